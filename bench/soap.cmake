# Parse and build SOAP envelopes with the library, and with KDSoap for a ratio.
find_package(KDSoap REQUIRED)
# The pre-scan is internal to the library, so its source is compiled in for its own row.
utilsdll_add_benchmark(soap_bench SOURCES ${CMAKE_CURRENT_LIST_DIR}/soap_bench.cpp
    ${PROJECT_SOURCE_DIR}/modules/soapClient/XmlNestingGuard.cpp LIBRARIES KDSoap::kdsoap)
target_include_directories(soap_bench PRIVATE ${PROJECT_SOURCE_DIR}/modules/soapClient)
