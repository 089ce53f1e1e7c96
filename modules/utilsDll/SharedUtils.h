#pragma once

#include "UtilsDllGlobal.h"

#include <QString>

// Per-user launch state and preference accessors. Each call opens its own
// CSettings and lets it go; nothing is cached.
namespace VEXA_NAMESPACE {

UTILSDLL_EXPORT bool isFirstLaunch();
UTILSDLL_EXPORT void setNotFirstLaunch();

UTILSDLL_EXPORT QString getLastLaunchMode();
UTILSDLL_EXPORT void setLastLaunchMode(const QString& mode);

// The counter of the stored launch mode, "crashCounter_" + mode.
UTILSDLL_EXPORT void incrementCrashCounter();
UTILSDLL_EXPORT int crashCounterForPlugin(const QString& plugin);
UTILSDLL_EXPORT void crashCounterReset(const QString& plugin);

// Shared by all of the maker's products; made on first use, never in the temporary store.
UTILSDLL_EXPORT QString getUserID();

UTILSDLL_EXPORT QString getResellerID();
UTILSDLL_EXPORT void setResellerID(const QString& id);

// The logger keys and "UseActionSave" are read from the system store only, while
// their setters write to the active store: under a temporary store a write is not
// seen by the next read. Intended.
UTILSDLL_EXPORT QString getLogLevel();
UTILSDLL_EXPORT void setLogLevel(const QString& level);
UTILSDLL_EXPORT bool isLoggerEnabled();
UTILSDLL_EXPORT void setLoggerEnabled(bool enabled);
// True unless "0" is stored, also when the key is absent.
UTILSDLL_EXPORT bool useActionSave();

UTILSDLL_EXPORT bool isStatisticSent();
UTILSDLL_EXPORT void setStatisticSent(bool sent);
UTILSDLL_EXPORT bool crashReportSendingAllowed();
UTILSDLL_EXPORT void allowCrashReportSending(bool allowed);

} // namespace VEXA_NAMESPACE
