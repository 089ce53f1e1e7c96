#include "LoggerModule_p.h"

#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <exception>
#include <iostream>

namespace VexaLoggerModule {

namespace {

std::string joinPath(const std::string& folder, const std::string& name)
{
    if (folder.empty() || folder.back() == '/' || folder.back() == '\\')
        return folder + name;
    return folder + '/' + name;
}

} // namespace

FileLogger& FileLogger::instance()
{
    static FileLogger s_instance;
    return s_instance;
}

bool FileLogger::initialize(const std::string& folder, const std::string& logName, char /*level*/)
{
    // Every level is written: choosing what to log is the caller's business.
    try {
        auto sink = std::make_shared<spdlog::sinks::basic_file_sink_mt>(joinPath(folder, logName));
        auto logger = std::make_shared<spdlog::logger>("vexa", std::move(sink));
        logger->set_pattern("%Y-%m-%d %H:%M:%S.%e %v");
        logger->set_level(spdlog::level::trace);
        logger->flush_on(spdlog::level::trace);
        std::lock_guard<std::mutex> lock(m_mutex);
        m_logger = std::move(logger);
        return true;
    } catch (const std::exception& error) {
        std::cerr << "logger: cannot open " << joinPath(folder, logName) << ": " << error.what() << std::endl;
        return false;
    }
}

void FileLogger::log(char level, const char* text)
{
    std::shared_ptr<spdlog::logger> logger;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        logger = m_logger;
    }
    if (!logger)
        return;
    const char letter[2] = {level ? level : '?', '\0'};
    logger->info("{} {}", letter, text ? text : "");
}

} // namespace VexaLoggerModule

Vexa::ILoggerInterface* loggerInstance()
{
    return &VexaLoggerModule::FileLogger::instance();
}
