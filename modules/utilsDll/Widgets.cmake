# GUI helpers, message box and error strings, about and host warning dialogs,
# application style, tool drawing.
utilsdll_add_sources(
    PUBLIC_HEADERS
        ${CMAKE_CURRENT_LIST_DIR}/GuiUtils.h
    SOURCES
        ${CMAKE_CURRENT_LIST_DIR}/GuiUtils.cpp
        ${CMAKE_CURRENT_LIST_DIR}/platform/ScreenMetrics.h
)

if(WIN32)
    target_sources(UtilsDll PRIVATE
        ${CMAKE_CURRENT_LIST_DIR}/platform/win/ScreenMetrics.cpp)
    target_link_libraries(UtilsDll PRIVATE user32 gdi32)
else()
    target_sources(UtilsDll PRIVATE
        ${CMAKE_CURRENT_LIST_DIR}/platform/linux/ScreenMetrics.cpp)
endif()
