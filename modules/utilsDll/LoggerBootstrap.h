#pragma once

#include "LoggerInterface.h"
#include "UtilsDllGlobal.h"

#include <QString>

namespace VEXA_NAMESPACE {

// Sets the process-wide logger once: to logger when it is given (neither initialised
// nor given a header here), otherwise to the instance of the logger module
// "LoggerDllvrcv3", which is then opened in CStorageLocation::loggerFilesPath() under
// logName and receives the four header lines. Returns s_logger, which stays null
// while logging is disabled or the module cannot be loaded. Once set, later calls
// change nothing. Call it on one thread, before other threads log.
UTILSDLL_EXPORT ILoggerInterface* initLoggerForUtilsDll(ILoggerInterface* logger, const QString& logName);

} // namespace VEXA_NAMESPACE
