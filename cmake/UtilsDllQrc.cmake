# utilsdll_qrc_entries(<variable> <folder> files...) appends the entries that put
# each file, wherever it lies, under :/<folder>/<name>; utilsdll_write_qrc(<qrc> <entries>)
# writes the collection, only when its text changes, so rcc does not run for nothing.
function(utilsdll_qrc_entries variable folder)
    set(entries "${${variable}}")
    foreach(file IN LISTS ARGN)
        get_filename_component(name ${file} NAME)
        string(APPEND entries "        <file alias=\"${folder}/${name}\">${file}</file>\n")
    endforeach()
    set(${variable} "${entries}" PARENT_SCOPE)
endfunction()

function(utilsdll_write_qrc qrc entries)
    file(WRITE ${qrc}.in "<RCC>\n    <qresource prefix=\"/\">\n${entries}    </qresource>\n</RCC>\n")
    configure_file(${qrc}.in ${qrc} COPYONLY)
endfunction()
