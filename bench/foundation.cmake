utilsdll_add_benchmark(bench_settings SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_settings.cpp)
