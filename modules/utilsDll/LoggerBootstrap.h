#pragma once

#include "LoggerInterface.h"
#include "UtilsDllGlobal.h"

#include <QString>

/// \file
/// \brief The start of the library's logger.

namespace VEXA_NAMESPACE {

/// \brief Sets the process-wide logger s_logger, once.
///
/// Uses \p logger when it is given (it is neither initialised nor given a header
/// here), otherwise the instance of the logger module "LoggerDllvrcv3", loaded by
/// name beside the program first, which is then opened in
/// CStorageLocation::loggerFilesPath() under \p logName and receives the four header
/// lines. Once set, later calls change nothing. Call it on one thread, before other
/// threads log; nothing logged before it is kept.
///
/// \return s_logger, which stays null while logging is disabled (isLoggerEnabled())
/// or the module cannot be loaded. The logger is never released.
UTILSDLL_EXPORT ILoggerInterface* initLoggerForUtilsDll(ILoggerInterface* logger, const QString& logName);

} // namespace VEXA_NAMESPACE
