#include "storageLocation.h"

#include "Log.h"
#include "platform/KnownFolders_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <stdexcept>

namespace VEXA_NAMESPACE {

namespace {

const QString kCurrentProduct = QStringLiteral("Vexa Rectivo 3");
// Two literals on purpose: the machine-wide folder has a blank, the per-user one an
// underscore.
const wchar_t kMachineMakerFolder[] = L"Vexa Labs";
const wchar_t kUserMakerFolder[] = L"Vexa_Labs";
const QString kPreferencesFileName = QStringLiteral("Preferences.ini");

QString s_preferencesFilePath;

QString separator()
{
    return QString(QDir::separator());
}

std::wstring localAppDataSubPath(const std::wstring& name)
{
    return VexaPlatform::knownFolderSubPath(VexaPlatform::KnownFolder::LocalAppData, kUserMakerFolder, name);
}

std::wstring localLogsPath(const std::wstring& name)
{
    const std::wstring path = localAppDataSubPath(name);
    if (path.empty())
        return std::wstring();
    return path + static_cast<wchar_t>(QDir::separator().unicode()) + L"Logs";
}

// Runs on every call, also for cached texts, so a folder deleted while the program
// runs comes back. A failing mkpath is silent: the caller fails when opening a file.
const QString& ensureFolder(const QString& path)
{
    if (!QDir(QString()).exists(path))
        QDir(QString()).mkpath(path);
    return path;
}

QString currentDataSubfolder(const QString& name)
{
    return CStorageLocation::currentDataLocation() + name + separator();
}

QString resourceFilePath(const QString& fileName, const QString& label)
{
    ASSERT(!fileName.isEmpty());
    ASSERT(!label.isEmpty());
    const QString path = QDir::toNativeSeparators(QDir::cleanPath(
        QCoreApplication::applicationDirPath() + separator() + "Resources" + separator() + fileName));
    LOG_D(label << " : " << path);
    return path;
}

QString readableModulesFolder(const QString& appName)
{
    QString candidate = CStorageLocation::appDataLocation(appName);
    if (!candidate.isEmpty())
        candidate += "Modules" + separator();
    return QDir(candidate).isReadable() ? candidate : QString();
}

} // namespace

QString CStorageLocation::appDataLocation(const QString& appName)
{
    const QString folder = QString::fromStdWString(localAppDataSubPath(appName.toStdWString()));
    return QDir::toNativeSeparators(QDir(folder).absolutePath()) + separator();
}

QString CStorageLocation::currentDataLocation()
{
    return ensureFolder(appDataLocation(kCurrentProduct));
}

QString CStorageLocation::sessionSingleAppDirectory()
{
    return QDir(QDir::tempPath()).absolutePath();
}

QString CStorageLocation::diskCacheLocation()
{
    static const QString path = currentDataSubfolder("DiskCache");
    return ensureFolder(path);
}

QString CStorageLocation::cachedTokenFilePath()
{
    static const QString path = currentDataSubfolder("Facebook");
    return ensureFolder(path);
}

QString CStorageLocation::packUserStoragePath()
{
    static const QString path = currentDataSubfolder("PresetPack");
    return ensureFolder(path);
}

QString CStorageLocation::favoritePresetPath()
{
    static const QString path = currentDataSubfolder("Favorite");
    return ensureFolder(path);
}

QString CStorageLocation::cafDataPath()
{
    static const QString path = currentDataSubfolder("Modules");
    return ensureFolder(path);
}

QString CStorageLocation::crashFilesPath()
{
    static const QString path = currentDataSubfolder("CrashReports");
    return ensureFolder(path);
}

QString CStorageLocation::crashTempFilesPath()
{
    static const QString path = crashFilesPath() + "temp" + separator();
    return ensureFolder(path);
}

QString CStorageLocation::loggerFilesPath()
{
    // The system's raw text, deliberately not passed through QDir.
    static const QString path = QString::fromStdWString(localLogsPath(kCurrentProduct.toStdWString())) + separator();
    return ensureFolder(path);
}

QString CStorageLocation::miniatureBlurShapesPath()
{
    static const QString path = resourceFilePath("BlurShapes.lua", "Miniature blur shapes data path");
    return path;
}

QString CStorageLocation::framePackPath()
{
    static const QString path = resourceFilePath("Frames.lua", "Frames data path");
    return path;
}

QString CStorageLocation::texturesPackPath()
{
    static const QString path = resourceFilePath("Textures.lua", "Textures data path");
    return path;
}

QString CStorageLocation::defectsPackPath()
{
    static const QString path = resourceFilePath("Defects.lua", "Defects data path");
    return path;
}

QString CStorageLocation::getDefaultPreferencesFilePath()
{
    const std::wstring folder = VexaPlatform::knownFolderSubPath(
        VexaPlatform::KnownFolder::ProgramData, kMachineMakerFolder, kCurrentProduct.toStdWString());
    if (folder.empty())
        return QString();
    return QDir::toNativeSeparators(
        QDir::cleanPath(QString::fromStdWString(folder) + separator() + kPreferencesFileName));
}

void CStorageLocation::setPreferencesFilePath(const QString& path)
{
    s_preferencesFilePath = path;
}

QString CStorageLocation::getCurrentPreferencesFilePath()
{
    if (s_preferencesFilePath.isEmpty())
        throw std::runtime_error("Preferences file path not set");
    return s_preferencesFilePath;
}

QString CStorageLocation::cafDataPathOfRectivo2()
{
    return appDataLocation("Vexa Rectivo 2") + "Modules" + separator();
}

QString CStorageLocation::cafDataPathOfOpsoraLatestVersion()
{
    for (int version : {11, 10}) {
        const QString candidate = readableModulesFolder(QString("Vexa Opsora %1").arg(version));
        if (!candidate.isEmpty())
            return candidate;
    }
    // Version 9 and before spelt the product name with a blank.
    return readableModulesFolder(QString("Vexa Op Sora %1").arg(9));
}

const QString& CStorageLocation::getSorelUserConfigFileLocation()
{
    static const QString path = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + "/Vexa/Sorel Collection/SorelCollection.cfg";
    return path;
}

const QString& CStorageLocation::getSorelGlobalConfigFileLocation()
{
    // A literal drive and folder on purpose: the Sorel products install there.
    static const QString path = QStringLiteral("C:/ProgramData") + "/Vexa/Sorel Collection/SorelCollection.cfg";
    return path;
}

QString CStorageLocation::getSamplePicturesLocation()
{
    QString folder = QString::fromStdWString(VexaPlatform::commonPicturesFolder());
    if (folder.isEmpty())
        return QString();
    if (!folder.endsWith(separator()))
        folder += separator();
    return folder + "Vexa Rectivo 3 Samples" + separator();
}

} // namespace VEXA_NAMESPACE
