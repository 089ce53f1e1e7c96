# Loading the library (its static initialisers register the four resource sets) and
# installing a language. bench_assets_load links nothing of the tree: it opens the
# library itself.
add_executable(bench_assets_load ${CMAKE_CURRENT_LIST_DIR}/assets_load.cpp)
target_link_libraries(bench_assets_load PRIVATE benchmark::benchmark ${CMAKE_DL_LIBS})
target_compile_definitions(bench_assets_load PRIVATE UTILSDLL_LIBRARY_FILE="$<TARGET_FILE:UtilsDll>")
add_dependencies(bench_assets_load UtilsDll)

utilsdll_add_benchmark(bench_assets SOURCES ${CMAKE_CURRENT_LIST_DIR}/assets.cpp)
target_compile_definitions(bench_assets PRIVATE UTILSDLL_LIBRARY_FILE="$<TARGET_FILE:UtilsDll>")
