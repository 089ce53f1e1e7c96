// A stand-in for the logger module, built under the module's file name in a folder of its
// own: it appends every call to the file named by $UTILSDLL_RECORDING_LOGGER, so that tests
// see exactly what the library handed over.
//
// It is built without the library's headers, as a logger module made elsewhere would be:
// its logger is a class of its own with three virtual functions in the module's slot
// order (one the library never calls, then initialize, then log) and nothing more. A
// library that calls through other slots than these records the wrong call or crashes.
#include <cstdlib>
#include <fstream>
#include <string>

#ifdef _WIN32
#define RECORDING_LOGGER_ENTRY extern "C" __declspec(dllexport)
#else
#define RECORDING_LOGGER_ENTRY extern "C" __attribute__((visibility("default")))
#endif

namespace {

void record(const std::string& line)
{
    if (const char* path = std::getenv("UTILSDLL_RECORDING_LOGGER"))
        std::ofstream(path, std::ios::app) << line << '\n';
}

class RecordingLogger
{
public:
    virtual void unused() { record("first slot"); }
    virtual bool initialize(const std::string& folder, const std::string& logName, char level)
    {
        record("initialize|" + folder + '|' + logName + '|' + std::to_string(static_cast<unsigned char>(level)));
        return true;
    }
    virtual void log(char level, const char* text) { record(std::string("log|") + level + '|' + text); }
};

struct LoadMarker
{
    LoadMarker() { record("loaded"); }
} s_loadMarker;

} // namespace

RECORDING_LOGGER_ENTRY void* loggerInstance()
{
    static RecordingLogger s_logger;
    return &s_logger;
}
