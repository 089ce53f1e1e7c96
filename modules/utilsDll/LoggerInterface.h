#pragma once

#include "UtilsDllGlobal.h"

#include <string>

namespace VEXA_NAMESPACE {

// The logger that the library writes through. It is implemented by the separate
// logger module (or by the embedding executable); the library only calls
// initialize() and log(). The slot order is the module's binary contract: a module
// built without this header, with three virtual functions in this order, must work.
class ILoggerInterface
{
public:
    // First slot: never called by the library. Not pure, so that loggers written
    // against this header need not define it.
    virtual void reserved() {}
    // Opens the log named logName in folder, at the given level letter.
    virtual bool initialize(const std::string& folder, const std::string& logName, char level) = 0;
    // Writes one finished line. Must accept calls from any thread.
    virtual void log(char level, const char* text) = 0;

protected:
    // Not virtual, as the library never deletes a logger: a virtual destructor takes
    // two slots under the Itanium ABI (Linux, and MinGW on Windows), which would move
    // initialize() and log() one slot down from where a module puts them.
    ~ILoggerInterface() = default;
};

// Process-wide logger, null until initLoggerForUtilsDll sets it; never owned,
// never cleared. Every log statement tests it first.
UTILSDLL_EXPORT extern ILoggerInterface* s_logger;

} // namespace VEXA_NAMESPACE
