# CompressFiles and the plain DecompressFiles against the zip and unzip tools, on
# about 200 MB of generated mixed files.
utilsdll_add_benchmark(bench_files SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_files.cpp)
