# utilsdll_add_subfolders([EXCLUDE name...])
# Adds every folder below the current one that has a CMakeLists.txt, in name order,
# so that a new module or test folder needs no edit of its parent.
function(utilsdll_add_subfolders)
    cmake_parse_arguments(ARG "" "" "EXCLUDE" ${ARGN})
    file(GLOB folders LIST_DIRECTORIES true RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/*)
    foreach(folder IN LISTS folders)
        if(NOT folder IN_LIST ARG_EXCLUDE AND EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt)
            add_subdirectory(${folder})
        endif()
    endforeach()
endfunction()

# utilsdll_include_lists()
# Includes every *.cmake file beside the current CMakeLists.txt.
macro(utilsdll_include_lists)
    file(GLOB _utilsdllLists ${CMAKE_CURRENT_SOURCE_DIR}/*.cmake)
    foreach(_utilsdllList IN LISTS _utilsdllLists)
        include(${_utilsdllList})
    endforeach()
endmacro()
