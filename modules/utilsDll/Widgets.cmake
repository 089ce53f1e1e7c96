# GUI helpers, message box and error strings, about and host warning dialogs,
# application style, tool drawing.
utilsdll_add_sources(
    PUBLIC_HEADERS
        ${CMAKE_CURRENT_LIST_DIR}/GuiUtils.h
        ${CMAKE_CURRENT_LIST_DIR}/MessageBox.h
        ${CMAKE_CURRENT_LIST_DIR}/customvexaappstyle.h
        ${CMAKE_CURRENT_LIST_DIR}/ToolDrawing.h
        ${CMAKE_CURRENT_LIST_DIR}/HostWarningDlg.h
        ${CMAKE_CURRENT_LIST_DIR}/AboutDlg.h
    SOURCES
        ${CMAKE_CURRENT_LIST_DIR}/GuiUtils.cpp
        ${CMAKE_CURRENT_LIST_DIR}/MessageBox.cpp
        ${CMAKE_CURRENT_LIST_DIR}/MessageBox.ui
        ${CMAKE_CURRENT_LIST_DIR}/customvexaappstyle.cpp
        ${CMAKE_CURRENT_LIST_DIR}/ToolDrawing.cpp
        ${CMAKE_CURRENT_LIST_DIR}/HostWarningDlg.cpp
        ${CMAKE_CURRENT_LIST_DIR}/HostWarningDlg.ui
        ${CMAKE_CURRENT_LIST_DIR}/AboutDlg.cpp
        ${CMAKE_CURRENT_LIST_DIR}/AboutDlg_p.h
        ${CMAKE_CURRENT_LIST_DIR}/AboutDlg.ui
        ${CMAKE_CURRENT_LIST_DIR}/AboutSorelDlg.ui
        ${CMAKE_CURRENT_LIST_DIR}/platform/ActivationMessages.h
        ${CMAKE_CURRENT_LIST_DIR}/platform/ScreenMetrics.h
        ${CMAKE_CURRENT_LIST_DIR}/platform/StopMessage.h
)

if(WIN32)
    target_sources(UtilsDll PRIVATE
        ${CMAKE_CURRENT_LIST_DIR}/platform/win/ScreenMetrics.cpp
        ${CMAKE_CURRENT_LIST_DIR}/platform/win/StopMessage.cpp
        ${CMAKE_CURRENT_LIST_DIR}/platform/win/ActivationMessages.cpp)
    target_link_libraries(UtilsDll PRIVATE user32 gdi32)
else()
    target_sources(UtilsDll PRIVATE
        ${CMAKE_CURRENT_LIST_DIR}/platform/linux/ScreenMetrics.cpp
        ${CMAKE_CURRENT_LIST_DIR}/platform/linux/StopMessage.cpp
        ${CMAKE_CURRENT_LIST_DIR}/platform/linux/ActivationMessages.cpp)
endif()
