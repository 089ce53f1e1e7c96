#pragma once

#include "UtilsDllGlobal.h"

#include <QString>

// Texts shared with the embedding executables. The library defines them but, except
// for IMAGE_SIZE_UNITS_KEY, reads none of them: their logic lives in the executables.
namespace VEXA_NAMESPACE {

// Product and launch modes ("PS" is the Photoshop host).
UTILSDLL_EXPORT extern const QString PRODUCT_NAME;
UTILSDLL_EXPORT extern const QString LAUNCH_MODE_STANDALONE;
UTILSDLL_EXPORT extern const QString LAUNCH_MODE_LR;
UTILSDLL_EXPORT extern const QString LAUNCH_MODE_PS;
UTILSDLL_EXPORT extern const QString LAUNCH_MODE_AP;

// Crash flags and their values.
UTILSDLL_EXPORT extern const QString APP_CRASH_FLAG;
UTILSDLL_EXPORT extern const QString APP_STANDALONE_CRASH_FLAG;
UTILSDLL_EXPORT extern const QString APP_PS_CRASH_FLAG;
UTILSDLL_EXPORT extern const QString APP_LR_CRASH_FLAG;
UTILSDLL_EXPORT extern const QString APP_AP_CRASH_FLAG;
UTILSDLL_EXPORT extern const QString CRASH_FLAG_STARTED;
UTILSDLL_EXPORT extern const QString CRASH_FLAG_CRASHED;
UTILSDLL_EXPORT extern const QString CRASH_FLAG_FINISHED;

// Print crash watch.
UTILSDLL_EXPORT extern const QString PRINT_CRASH_FLAG;
UTILSDLL_EXPORT extern const QString PRINT_CRASH_WATCHER_STARTED;
UTILSDLL_EXPORT extern const QString PRINT_CRASH_WATCHER_FINISHED;

// Preference keys.
UTILSDLL_EXPORT extern const QString SCENE_BACKGROUND_COLOR_KEY;
UTILSDLL_EXPORT extern const QString SHOW_SAMPLE_IMAGE_AT_STARTUP_KEY;
UTILSDLL_EXPORT extern const QString GRID_OVERLAY_SIZE_KEY;
UTILSDLL_EXPORT extern const QString SHOW_IMAGE_SIZE_KEY;
UTILSDLL_EXPORT extern const QString IMAGE_SIZE_UNITS_KEY;
UTILSDLL_EXPORT extern const QString SETTINGS_FOCUS_NUMBER_KEY;

// Instrumentation.
UTILSDLL_EXPORT extern const QString INSTRUMENTATION_GROUP;
UTILSDLL_EXPORT extern const QString INSTRUMENTATION_ALLOW_SENDING_KEY;
UTILSDLL_EXPORT extern const QString INSTRUMENTATION_VALUE_OFF;
UTILSDLL_EXPORT extern const QString INSTRUMENTATION_VALUE_ON;

} // namespace VEXA_NAMESPACE
