# -DUTILSDLL_SANITIZE=<list> instruments every target of the tree with the named
# sanitizers: thread, address, undefined, or a comma-separated mix such as
# address,undefined. ThreadSanitizer and AddressSanitizer cannot share a process.
#
# Every test gets its sanitizer options from the tree itself (UTILSDLL_SANITIZER_ENVIRONMENT),
# so that a plain ctest in a sanitizer build needs nothing from the caller.
set(UTILSDLL_SANITIZER_ENVIRONMENT "")

# utilsdll_sanitizer_environment(<test>...)
# Adds the sanitizer options to tests made with a plain add_test (utilsdll_add_test
# does it itself). Call it after the test's own ENVIRONMENT is set.
function(utilsdll_sanitizer_environment)
    if(UTILSDLL_SANITIZER_ENVIRONMENT)
        set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT ${UTILSDLL_SANITIZER_ENVIRONMENT})
    endif()
endfunction()

if(UTILSDLL_SANITIZE STREQUAL "")
    return()
endif()

string(REPLACE "," ";" _sanitizers "${UTILSDLL_SANITIZE}")
list(REMOVE_DUPLICATES _sanitizers)
foreach(_sanitizer IN LISTS _sanitizers)
    if(NOT _sanitizer MATCHES "^(thread|address|undefined)$")
        message(FATAL_ERROR "UTILSDLL_SANITIZE takes thread, address and undefined, "
            "comma-separated, not '${UTILSDLL_SANITIZE}'")
    endif()
endforeach()
if("thread" IN_LIST _sanitizers AND "address" IN_LIST _sanitizers)
    message(FATAL_ERROR "UTILSDLL_SANITIZE: thread and address cannot be combined; build them apart")
endif()

list(JOIN _sanitizers "," _list)
set(_flags -fsanitize=${_list})
if("address" IN_LIST _sanitizers)
    list(APPEND _flags -fno-omit-frame-pointer)
endif()
if("undefined" IN_LIST _sanitizers)
    # Undefined behaviour stops the test at the first report instead of scrolling past.
    list(APPEND _flags -fno-sanitize-recover=undefined)
endif()
# Line tables are all a sanitizer report needs, and -O1 keeps its frames readable: with
# full debug information and -O2 an instrumented build compiles two to three times slower.
# (Given after the build type's flags, these win.)
add_compile_options(${_flags} -O1 -g1)
add_link_options(${_flags})

if("address" IN_LIST _sanitizers)
    # Debian's Qt is not instrumented; the suppressions name only frames inside Qt and the
    # system libraries below it, so a leak of ours still fails its test.
    list(APPEND UTILSDLL_SANITIZER_ENVIRONMENT
        "ASAN_OPTIONS=detect_leaks=1:check_initialization_order=1:detect_stack_use_after_return=0"
        "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_LIST_DIR}/lsan.supp:print_suppressions=0")
endif()
if("undefined" IN_LIST _sanitizers)
    list(APPEND UTILSDLL_SANITIZER_ENVIRONMENT "UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1")
endif()
if("thread" IN_LIST _sanitizers)
    # Races inside Qt alone are false reports there; ours still show.
    list(APPEND UTILSDLL_SANITIZER_ENVIRONMENT "TSAN_OPTIONS=ignore_noninstrumented_modules=1")
endif()
