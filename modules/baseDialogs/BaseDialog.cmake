utilsdll_add_sources(
    PUBLIC_HEADERS
        ${CMAKE_CURRENT_LIST_DIR}/CBaseDialog.h
    SOURCES
        ${CMAKE_CURRENT_LIST_DIR}/CBaseDialog.cpp
)
