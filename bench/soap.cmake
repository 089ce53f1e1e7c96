# Parse and build SOAP envelopes with the library, and with KDSoap for a ratio.
find_package(KDSoap REQUIRED)
utilsdll_add_benchmark(soap_bench SOURCES ${CMAKE_CURRENT_LIST_DIR}/soap_bench.cpp LIBRARIES KDSoap::kdsoap)
