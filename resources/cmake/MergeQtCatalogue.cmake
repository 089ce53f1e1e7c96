# cmake -DLCONVERT=... -DMETA=<folder>/qt_de.qm -DOUTPUT=<file> -P MergeQtCatalogue.cmake
#
# Debian's qt_xx.qm holds no message of its own: it names the catalogues of the Qt
# modules (qtbase_xx, ...) that a translator loads from the same folder. Loaded from
# the resources, those names would not resolve, so the messages of every named
# catalogue are merged into one self-contained file.
execute_process(COMMAND ${LCONVERT} -i ${META} -of ts -o -
    OUTPUT_VARIABLE _ts RESULT_VARIABLE _result)
if(NOT _result EQUAL 0)
    message(FATAL_ERROR "lconvert cannot read ${META}")
endif()
get_filename_component(_folder ${META} DIRECTORY)
string(REGEX MATCHALL "<dependency catalog=\"[^\"]+\"" _dependencies "${_ts}")
set(_inputs "")
foreach(_dependency IN LISTS _dependencies)
    string(REGEX REPLACE "<dependency catalog=\"([^\"]+)\"" "\\1" _name "${_dependency}")
    if(EXISTS ${_folder}/${_name}.qm)
        list(APPEND _inputs -i ${_folder}/${_name}.qm)
    endif()
endforeach()
if(NOT _inputs)
    message(FATAL_ERROR "${META} names no catalogue that exists beside it")
endif()
execute_process(COMMAND ${LCONVERT} ${_inputs} -o ${OUTPUT} RESULT_VARIABLE _result)
if(NOT _result EQUAL 0)
    message(FATAL_ERROR "lconvert cannot merge the catalogues of ${META}")
endif()
