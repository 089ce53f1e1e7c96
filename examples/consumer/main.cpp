// The minimal start-up of an embedding executable.
#include <UtilsDll/UtilsDll.h>

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());

    // 1. The preferences file before anything reads it.
    Vexa::CStorageLocation::setPreferencesFilePath(Vexa::CStorageLocation::getDefaultPreferencesFilePath());
    // 2. A temporary store, installed before other threads use settings.
    CTemporarySettings temporaryStore(QCoreApplication::applicationFilePath().toLocal8Bit().constData());
    Vexa::CSettings::setTemporarySettings(temporaryStore);
    // 3. The logger, as early as possible.
    Vexa::initLoggerForUtilsDll(nullptr, "consumer.log");

    Vexa::setLastLaunchMode(Vexa::LAUNCH_MODE_STANDALONE);
    QTextStream(stdout) << "data: " << Vexa::CStorageLocation::currentDataLocation() << '\n'
                        << "launch mode: " << Vexa::getLastLaunchMode() << '\n';
    return Vexa::getLastLaunchMode() == Vexa::LAUNCH_MODE_STANDALONE ? 0 : 1;
}
