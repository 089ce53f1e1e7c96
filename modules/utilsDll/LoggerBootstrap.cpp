#include "LoggerBootstrap.h"

#include "Log.h"
#include "SharedUtils.h"
#include "platform/ModuleLookup_p.h"
#include "UtilsDllVersion.h"
#include "storageLocation.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLibrary>

#include <iostream>

namespace VEXA_NAMESPACE {

namespace {

// "LoggerDllvrcv3.dll"; a Qt 6 build loads the module built with it, "LoggerDllvrcv3-qt6".
const wchar_t kLoggerModuleFileName[] = UTILSDLL_LOGGER_MODULE_NAME;
const char kLoggerEntryName[] = "loggerInstance";

using LoggerInstanceFunction = ILoggerInterface* (*)();

// Tries each name the platform's loader would look for. A loaded module stays
// loaded: the QLibrary object goes, the library does not unload it.
ILoggerInterface* loadLoggerModule()
{
    const std::wstring applicationDir =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath().toStdWString() : std::wstring();
    for (const std::wstring& name : VexaPlatform::moduleLoadNames(kLoggerModuleFileName, applicationDir)) {
        QLibrary module(QString::fromStdWString(name));
        if (!module.load())
            continue;
        auto entry = reinterpret_cast<LoggerInstanceFunction>(module.resolve(kLoggerEntryName));
        if (entry)
            return entry();
        return nullptr;
    }
    return nullptr;
}

char levelLetter(const QString& level)
{
    if (level.isEmpty() || level.at(0).unicode() > 0xFF)
        return 0;
    return static_cast<char>(level.at(0).unicode());
}

void writeLogHeader()
{
    LOG_D("Current time (UTC): " << QDateTime::currentDateTimeUtc().toString(Qt::ISODate));
    LOG_D("Vexa Rectivo 3 Version: " UTILSDLL_PRODUCT_VERSION_STRING);
    LOG_D("UID: " << getUserID());
    LOG_D("CE version: 9.1.4.2102231203");
}

} // namespace

ILoggerInterface* initLoggerForUtilsDll(ILoggerInterface* logger, const QString& logName)
{
    if (s_logger)
        return s_logger;
    if (!isLoggerEnabled())
        return nullptr;
    if (logger) {
        s_logger = logger;
        return s_logger;
    }

    s_logger = loadLoggerModule();
    if (!s_logger) {
        std::cerr << "***ERROR*** logger dll could not be loaded from  "
                  << QString::fromStdWString(kLoggerModuleFileName).toStdString() << std::endl;
        return nullptr;
    }

    const QString path = CStorageLocation::loggerFilesPath();
    const QString level = getLogLevel();
    std::cout << "Initializing logger in " << path.toStdString() << " / " << level.toStdString() << std::endl;
    s_logger->initialize(path.toStdString(), logName.toStdString(), levelLetter(level));
    writeLogHeader();
    return s_logger;
}

} // namespace VEXA_NAMESPACE
