#include "ShowcaseReport.h"

#include "Log.h"
#include "Settings.h"
#include "SharedUtils.h"
#include "storageLocation.h"

#include <QSettings>
#include <QStringList>
#include <QTextStream>

#include <stdexcept>

using namespace Vexa;

namespace {

QString yesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QString currentPreferencesFile()
{
    try {
        return CStorageLocation::getCurrentPreferencesFilePath();
    } catch (const std::runtime_error& error) {
        return QStringLiteral("(%1)").arg(QString::fromUtf8(error.what()));
    }
}

void section(QTextStream& out, const QString& title)
{
    out << '\n' << title << '\n' << QString(title.size(), '-') << '\n';
}

void row(QTextStream& out, const QString& name, const QString& value)
{
    out << QStringLiteral("  %1 %2\n").arg(name + ':', -34).arg(value.isEmpty() ? "(empty)" : value);
}

} // namespace

QString showcaseReport(const CTemporarySettings* temporaryStore)
{
    QString text;
    QTextStream out(&text);

    section(out, "Storage locations");
    row(out, "currentDataLocation", CStorageLocation::currentDataLocation());
    row(out, "sessionSingleAppDirectory", CStorageLocation::sessionSingleAppDirectory());
    row(out, "diskCacheLocation", CStorageLocation::diskCacheLocation());
    row(out, "cachedTokenFilePath", CStorageLocation::cachedTokenFilePath());
    row(out, "packUserStoragePath", CStorageLocation::packUserStoragePath());
    row(out, "favoritePresetPath", CStorageLocation::favoritePresetPath());
    row(out, "cafDataPath", CStorageLocation::cafDataPath());
    row(out, "crashFilesPath", CStorageLocation::crashFilesPath());
    row(out, "crashTempFilesPath", CStorageLocation::crashTempFilesPath());
    row(out, "loggerFilesPath", CStorageLocation::loggerFilesPath());
    row(out, "miniatureBlurShapesPath", CStorageLocation::miniatureBlurShapesPath());
    row(out, "framePackPath", CStorageLocation::framePackPath());
    row(out, "texturesPackPath", CStorageLocation::texturesPackPath());
    row(out, "defectsPackPath", CStorageLocation::defectsPackPath());
    row(out, "getDefaultPreferencesFilePath", CStorageLocation::getDefaultPreferencesFilePath());
    row(out, "getCurrentPreferencesFilePath", currentPreferencesFile());
    row(out, "cafDataPathOfRectivo2", CStorageLocation::cafDataPathOfRectivo2());
    row(out, "cafDataPathOfOpsoraLatestVersion", CStorageLocation::cafDataPathOfOpsoraLatestVersion());
    row(out, "getSorelUserConfigFileLocation", CStorageLocation::getSorelUserConfigFileLocation());
    row(out, "getSorelGlobalConfigFileLocation", CStorageLocation::getSorelGlobalConfigFileLocation());
    row(out, "getSamplePicturesLocation", CStorageLocation::getSamplePicturesLocation());

    section(out, "Settings");
    const bool temporary = CSettings().usingTemporarySettings();
    row(out, "backend in force", temporary ? "temporary store" : "system store");
    row(out, "system store", QSettings("Vexa Labs", "Vexa Rectivo 3").fileName());
    if (temporaryStore)
        row(out, "temporary store", temporaryStore->tempSettingsPath());

    section(out, "Launch state");
    row(out, "isFirstLaunch", yesNo(isFirstLaunch()));
    row(out, "getLastLaunchMode", getLastLaunchMode());
    row(out, "crashCounterForPlugin(Standalone)", QString::number(crashCounterForPlugin("Standalone")));
    row(out, "getUserID", getUserID());
    row(out, "getResellerID", getResellerID());
    row(out, "useActionSave", yesNo(useActionSave()));
    row(out, "isStatisticSent", yesNo(isStatisticSent()));
    row(out, "crashReportSendingAllowed", yesNo(crashReportSendingAllowed()));

    section(out, "Logger");
    row(out, "isLoggerEnabled", yesNo(isLoggerEnabled()));
    row(out, "getLogLevel", getLogLevel());
    row(out, "logger installed", yesNo(s_logger != nullptr));
    return text;
}
