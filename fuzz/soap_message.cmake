# libFuzzer targets for the SOAP client: QtSoapMessage::setContent, and the value-tree
# API driven by the fuzz bytes. In a fuzz build the library itself gets coverage
# instrumentation, so that the fuzzers see into it.
if(UTILSDLL_BUILD_FUZZERS)
    target_compile_options(UtilsDll PRIVATE -fsanitize=fuzzer-no-link,address,undefined)
    target_link_options(UtilsDll PRIVATE -fsanitize=address,undefined)
endif()
set(_soapData ${PROJECT_SOURCE_DIR}/tests/soapClient/data)
utilsdll_add_fuzzer(soap_message
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/soap_message_fuzzer.cpp
    INPUTS ${CMAKE_CURRENT_LIST_DIR}/corpus/soap_message ${_soapData}/fuzz-regressions ${_soapData}/hostile)
utilsdll_add_fuzzer(soap_values
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/soap_values_fuzzer.cpp
    INPUTS ${CMAKE_CURRENT_LIST_DIR}/corpus/soap_values)
