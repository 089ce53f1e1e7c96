#pragma once

#include "UtilsDllGlobal.h"

#include <QString>

/// \file
/// \brief Texts shared with the embedding executables: launch modes, crash flags,
/// preference keys.
///
/// The library defines them but, except for IMAGE_SIZE_UNITS_KEY, reads none of them:
/// their logic lives in the executables.
namespace VEXA_NAMESPACE {

/// \name Product and launch modes ("PS" is the Photoshop host)
/// @{
UTILSDLL_EXPORT extern const QString PRODUCT_NAME; ///< "Vexa Rectivo 3"
UTILSDLL_EXPORT extern const QString LAUNCH_MODE_STANDALONE; ///< "Standalone"
UTILSDLL_EXPORT extern const QString LAUNCH_MODE_LR; ///< "LR"
UTILSDLL_EXPORT extern const QString LAUNCH_MODE_PS; ///< "PS"
UTILSDLL_EXPORT extern const QString LAUNCH_MODE_AP; ///< "AP"

/// @}

/// \name Crash flags and their values
/// @{
UTILSDLL_EXPORT extern const QString APP_CRASH_FLAG; ///< "appCrashFlag"
UTILSDLL_EXPORT extern const QString APP_STANDALONE_CRASH_FLAG; ///< "appStandaloneCrashFlag"
UTILSDLL_EXPORT extern const QString APP_PS_CRASH_FLAG; ///< "appPSCrashFlag"
UTILSDLL_EXPORT extern const QString APP_LR_CRASH_FLAG; ///< "appLRCrashFlag"
UTILSDLL_EXPORT extern const QString APP_AP_CRASH_FLAG; ///< "appAPCrashFlag"
UTILSDLL_EXPORT extern const QString CRASH_FLAG_STARTED; ///< "started"
UTILSDLL_EXPORT extern const QString CRASH_FLAG_CRASHED; ///< "crashed"
UTILSDLL_EXPORT extern const QString CRASH_FLAG_FINISHED; ///< "finished"

/// @}

/// \name Print crash watch
/// @{
UTILSDLL_EXPORT extern const QString PRINT_CRASH_FLAG; ///< "printCrashFlag"
UTILSDLL_EXPORT extern const QString PRINT_CRASH_WATCHER_STARTED; ///< "printCrashWatcherStarted"
UTILSDLL_EXPORT extern const QString PRINT_CRASH_WATCHER_FINISHED; ///< "printCrashWatcherFinished"

/// @}

/// \name Preference keys
/// @{
UTILSDLL_EXPORT extern const QString SCENE_BACKGROUND_COLOR_KEY; ///< "sceneBackgroundColor"
UTILSDLL_EXPORT extern const QString SHOW_SAMPLE_IMAGE_AT_STARTUP_KEY; ///< "showSampleImageAtStartup"
UTILSDLL_EXPORT extern const QString GRID_OVERLAY_SIZE_KEY; ///< "gridOverlay.size"
UTILSDLL_EXPORT extern const QString SHOW_IMAGE_SIZE_KEY; ///< "showImageSize"
UTILSDLL_EXPORT extern const QString IMAGE_SIZE_UNITS_KEY; ///< "imageSizeUnits"
UTILSDLL_EXPORT extern const QString SETTINGS_FOCUS_NUMBER_KEY; ///< "settingsFocusNumber"

/// @}

/// \name Instrumentation
/// @{
UTILSDLL_EXPORT extern const QString INSTRUMENTATION_GROUP; ///< "Instrumentation"
UTILSDLL_EXPORT extern const QString INSTRUMENTATION_ALLOW_SENDING_KEY; ///< "AllowSending"
UTILSDLL_EXPORT extern const QString INSTRUMENTATION_VALUE_OFF; ///< "0"
UTILSDLL_EXPORT extern const QString INSTRUMENTATION_VALUE_ON; ///< "1"
/// @}

} // namespace VEXA_NAMESPACE
