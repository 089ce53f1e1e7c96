# libFuzzer target for QtSoapMessage::setContent. The library itself is built with
# coverage instrumentation in a fuzz build, so that the fuzzer sees into it.
target_compile_options(UtilsDll PRIVATE -fsanitize=fuzzer-no-link,address,undefined)
target_link_options(UtilsDll PRIVATE -fsanitize=address,undefined)
utilsdll_add_fuzzer(soap_message SOURCES ${CMAKE_CURRENT_LIST_DIR}/soap_message_fuzzer.cpp)
