// A stand-in for the logger module, built under the module's file name in a folder of its
// own: it appends every call to the file named by $UTILSDLL_RECORDING_LOGGER, so that tests
// see exactly what the library handed over.
#include "LoggerInterface.h"

#include <cstdlib>
#include <fstream>
#include <string>

namespace {

void record(const std::string& line)
{
    if (const char* path = std::getenv("UTILSDLL_RECORDING_LOGGER"))
        std::ofstream(path, std::ios::app) << line << '\n';
}

class RecordingLogger : public Vexa::ILoggerInterface
{
public:
    bool initialize(const std::string& folder, const std::string& logName, char level) override
    {
        record("initialize|" + folder + '|' + logName + '|' + std::to_string(static_cast<unsigned char>(level)));
        return true;
    }
    void log(char level, const char* text) override { record(std::string("log|") + level + '|' + text); }
};

struct LoadMarker
{
    LoadMarker() { record("loaded"); }
} s_loadMarker;

} // namespace

extern "C" __attribute__((visibility("default"))) Vexa::ILoggerInterface* loggerInstance()
{
    static RecordingLogger s_logger;
    return &s_logger;
}
