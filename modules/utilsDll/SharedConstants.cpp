#include "SharedConstants.h"

namespace VEXA_NAMESPACE {

const QString PRODUCT_NAME = QStringLiteral("Vexa Rectivo 3");
const QString LAUNCH_MODE_STANDALONE = QStringLiteral("Standalone");
const QString LAUNCH_MODE_LR = QStringLiteral("LR");
const QString LAUNCH_MODE_PS = QStringLiteral("PS");
const QString LAUNCH_MODE_AP = QStringLiteral("AP");

const QString APP_CRASH_FLAG = QStringLiteral("appCrashFlag");
const QString APP_STANDALONE_CRASH_FLAG = QStringLiteral("appStandaloneCrashFlag");
const QString APP_PS_CRASH_FLAG = QStringLiteral("appPSCrashFlag");
const QString APP_LR_CRASH_FLAG = QStringLiteral("appLRCrashFlag");
const QString APP_AP_CRASH_FLAG = QStringLiteral("appAPCrashFlag");
const QString CRASH_FLAG_STARTED = QStringLiteral("started");
const QString CRASH_FLAG_CRASHED = QStringLiteral("crashed");
const QString CRASH_FLAG_FINISHED = QStringLiteral("finished");

const QString PRINT_CRASH_FLAG = QStringLiteral("printCrashFlag");
const QString PRINT_CRASH_WATCHER_STARTED = QStringLiteral("printCrashWatcherStarted");
const QString PRINT_CRASH_WATCHER_FINISHED = QStringLiteral("printCrashWatcherFinished");

const QString SCENE_BACKGROUND_COLOR_KEY = QStringLiteral("sceneBackgroundColor");
const QString SHOW_SAMPLE_IMAGE_AT_STARTUP_KEY = QStringLiteral("showSampleImageAtStartup");
const QString GRID_OVERLAY_SIZE_KEY = QStringLiteral("gridOverlay.size");
const QString SHOW_IMAGE_SIZE_KEY = QStringLiteral("showImageSize");
const QString IMAGE_SIZE_UNITS_KEY = QStringLiteral("imageSizeUnits");
const QString SETTINGS_FOCUS_NUMBER_KEY = QStringLiteral("settingsFocusNumber");

const QString INSTRUMENTATION_GROUP = QStringLiteral("Instrumentation");
const QString INSTRUMENTATION_ALLOW_SENDING_KEY = QStringLiteral("AllowSending");
const QString INSTRUMENTATION_VALUE_OFF = QStringLiteral("0");
const QString INSTRUMENTATION_VALUE_ON = QStringLiteral("1");

} // namespace VEXA_NAMESPACE
