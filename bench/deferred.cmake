# Delayed-call bookkeeping among many pending calls, and the wake-up latency of the
# atomic-value waits.
utilsdll_add_benchmark(bench_deferred SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_deferred.cpp)
