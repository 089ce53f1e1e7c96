utilsdll_add_benchmark(bench_widgets SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_widgets.cpp)
