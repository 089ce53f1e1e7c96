#pragma once

#include "LoggerInterface.h"

#include <memory>
#include <mutex>
#include <string>

namespace spdlog {
class logger;
}

namespace VexaLoggerModule {

// The logger module's one logger: one file per process, one line per log() call as
// "<local time> <level letter> <text>", flushed at once so that a crash loses
// nothing. Safe to call from any thread. Lines logged before initialize() are dropped.
class FileLogger : public Vexa::ILoggerInterface
{
public:
    static FileLogger& instance();

    bool initialize(const std::string& folder, const std::string& logName, char level) override;
    void log(char level, const char* text) override;

private:
    FileLogger() = default;

    std::mutex m_mutex;
    std::shared_ptr<spdlog::logger> m_logger;
};

} // namespace VexaLoggerModule

// The entry that the library resolves by name.
extern "C" __attribute__((visibility("default"))) Vexa::ILoggerInterface* loggerInstance();
