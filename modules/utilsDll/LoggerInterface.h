#pragma once

#include "UtilsDllGlobal.h"

#include <string>

/// \file
/// \brief The logger interface and the process-wide logger pointer.

namespace VEXA_NAMESPACE {

/// \brief The logger that the library writes through.
///
/// It is implemented by the separate logger module (or by the embedding executable);
/// the library only calls initialize() and log(). The order of the three virtual
/// functions is the module's binary contract: a module built without this header, with
/// three virtual functions in this order, must work. The library never deletes a logger.
class ILoggerInterface
{
public:
    /// First slot: never called by the library. Not pure, so that loggers written
    /// against this header need not define it.
    virtual void reserved() {}
    /// Opens the log \p logName in \p folder, writing from the level letter \p level
    /// up; answers whether the log could be opened.
    virtual bool initialize(const std::string& folder, const std::string& logName, char level) = 0;
    /// Writes one finished line \p text at the level letter \p level ('D' or 'E').
    /// Must accept calls from any thread.
    virtual void log(char level, const char* text) = 0;

protected:
    /// Not virtual, as the library never deletes a logger: a virtual destructor takes
    /// two slots under the Itanium ABI (Linux, and MinGW on Windows), which would move
    /// initialize() and log() one slot down from where a module puts them.
    ~ILoggerInterface() = default;
};

/// \brief The process-wide logger, null until initLoggerForUtilsDll() sets it.
///
/// Never owned, never cleared. Every log statement tests it first.
UTILSDLL_EXPORT extern ILoggerInterface* s_logger;

} // namespace VEXA_NAMESPACE
