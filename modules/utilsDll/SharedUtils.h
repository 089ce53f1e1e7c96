#pragma once

#include "UtilsDllGlobal.h"

#include <QString>

/// \file
/// \brief Per-user launch state and preference accessors.
///
/// Each call opens its own Vexa::CSettings and lets it go; nothing is cached. Unless
/// said otherwise a value is read from and written to the active store: the temporary
/// store while one is installed, the system store otherwise. Flags are stored as "1"
/// and "0"; anything stored but exactly "0" reads as true.
namespace VEXA_NAMESPACE {

/// True while "app_launched" has never been written.
UTILSDLL_EXPORT bool isFirstLaunch();
/// Writes "app_launched", so that isFirstLaunch() answers false from now on.
UTILSDLL_EXPORT void setNotFirstLaunch();

/// The stored launch mode ("app_launchMode"), empty when none is stored.
UTILSDLL_EXPORT QString getLastLaunchMode();
/// Stores \p mode as the launch mode, one of the LAUNCH_MODE_ texts.
UTILSDLL_EXPORT void setLastLaunchMode(const QString& mode);

/// Adds one to the counter of the stored launch mode, "crashCounter_" + mode.
UTILSDLL_EXPORT void incrementCrashCounter();
/// The crash counter of the launch mode \p plugin; 0 when none is stored.
UTILSDLL_EXPORT int crashCounterForPlugin(const QString& plugin);
/// Removes the crash counter of the launch mode \p plugin.
UTILSDLL_EXPORT void crashCounterReset(const QString& plugin);

/// \brief The user's identifier, a UUID without braces.
///
/// Shared by all of the maker's products through the maker's own store; made and
/// stored on first use, never in the temporary store.
UTILSDLL_EXPORT QString getUserID();

/// The stored reseller identifier; "vexa" when none is stored or the build's
/// placeholder is.
UTILSDLL_EXPORT QString getResellerID();
/// Stores \p id as the reseller identifier.
UTILSDLL_EXPORT void setResellerID(const QString& id);

/// \brief The log level letter ("loggerLevel"), "D" when none is stored.
///
/// The logger keys and "UseActionSave" are read from the system store only, while
/// their setters write to the active store: under a temporary store a write is not
/// seen by the next read. This is intended.
UTILSDLL_EXPORT QString getLogLevel();
/// Stores the log level letter \p level in the active store; see getLogLevel().
UTILSDLL_EXPORT void setLogLevel(const QString& level);
/// Whether logging is on ("loggerEnabled", read from the system store); true when absent.
UTILSDLL_EXPORT bool isLoggerEnabled();
/// Stores "loggerEnabled" in the active store; see getLogLevel() for why a later
/// isLoggerEnabled() may not see it.
UTILSDLL_EXPORT void setLoggerEnabled(bool enabled);
/// "UseActionSave" from the system store: true unless "0" is stored, also when the
/// key is absent.
UTILSDLL_EXPORT bool useActionSave();

/// Whether usage statistics may be sent ("VexaSendStat"); true when absent.
UTILSDLL_EXPORT bool isStatisticSent();
/// Stores "VexaSendStat".
UTILSDLL_EXPORT void setStatisticSent(bool sent);
/// Whether crash reports may be sent ("VexaSentCrashReport"); true when absent.
UTILSDLL_EXPORT bool crashReportSendingAllowed();
/// Stores "VexaSentCrashReport".
UTILSDLL_EXPORT void allowCrashReportSending(bool allowed);

} // namespace VEXA_NAMESPACE
