// A stand-in for the logger module, built under the module's file name in a folder
// of its own: it appends every call it receives to the file named by
// $UTILSDLL_RECORDING_LOGGER, so that tests see exactly what the library handed over.

#include "LoggerInterface.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace {

void record(const char* format, ...) __attribute__((format(printf, 1, 2)));
void record(const char* format, ...)
{
    const char* path = std::getenv("UTILSDLL_RECORDING_LOGGER");
    FILE* file = path ? std::fopen(path, "a") : nullptr;
    if (!file)
        return;
    va_list args;
    va_start(args, format);
    std::vfprintf(file, format, args);
    va_end(args);
    std::fclose(file);
}

class RecordingLogger : public Vexa::ILoggerInterface
{
public:
    bool initialize(const std::string& folder, const std::string& logName, char level) override
    {
        record("initialize|%s|%s|%d\n", folder.c_str(), logName.c_str(), static_cast<int>(static_cast<unsigned char>(level)));
        return true;
    }
    void log(char level, const char* text) override { record("log|%c|%s\n", level, text); }
};

struct LoadMarker
{
    LoadMarker() { record("loaded\n"); }
} s_loadMarker;

} // namespace

extern "C" __attribute__((visibility("default"))) Vexa::ILoggerInterface* loggerInstance()
{
    static RecordingLogger s_logger;
    return &s_logger;
}
