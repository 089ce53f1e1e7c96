// A stand-in for the logger module, built under the module's file name in a folder of its
// own: it appends every call to the file named by $UTILSDLL_RECORDING_LOGGER, so that tests
// see exactly what the library handed over.
//
// It is built without the library's headers, as a logger module made elsewhere would be:
// it declares the interface itself, by the module's slot order only (one function the
// library never calls, then initialize, then log), with no virtual destructor. A library
// that calls through other slots than these records the wrong call or crashes.
#include <cstdlib>
#include <fstream>
#include <string>

#ifdef _WIN32
#define RECORDING_LOGGER_ENTRY extern "C" __declspec(dllexport)
#else
#define RECORDING_LOGGER_ENTRY extern "C" __attribute__((visibility("default")))
#endif

// Under the library's name, as the sanitizers' check of a call's dynamic type goes by name.
namespace Vexa {

class ILoggerInterface
{
public:
    virtual void unused() = 0;
    virtual bool initialize(const std::string& folder, const std::string& logName, char level) = 0;
    virtual void log(char level, const char* text) = 0;
};

} // namespace Vexa

namespace {

void record(const std::string& line)
{
    if (const char* path = std::getenv("UTILSDLL_RECORDING_LOGGER"))
        std::ofstream(path, std::ios::app) << line << '\n';
}

class RecordingLogger : public Vexa::ILoggerInterface
{
public:
    void unused() override { record("first slot"); }
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

RECORDING_LOGGER_ENTRY Vexa::ILoggerInterface* loggerInstance()
{
    static RecordingLogger s_logger;
    return &s_logger;
}
