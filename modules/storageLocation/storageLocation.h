#pragma once

#include "UtilsDllGlobal.h"

#include <QString>

namespace VEXA_NAMESPACE {

// Where every file of the product lives. All members are static; the class holds
// no instance data. Folder results end with QDir::separator() unless noted.
class UTILSDLL_EXPORT CStorageLocation
{
public:
    CStorageLocation() = delete;

    // <LocalAppData>/Vexa_Labs/<appName>/ in native form; never creates the folder.
    static QString appDataLocation(const QString& appName);
    // appDataLocation("Vexa Rectivo 3"), created whenever it is missing.
    static QString currentDataLocation();
    // QDir::tempPath() in Qt's form, without a trailing separator.
    static QString sessionSingleAppDirectory();

    // Folders under currentDataLocation(): text cached on the first call, folder
    // made again on every call where it is missing.
    static QString diskCacheLocation();
    static QString cachedTokenFilePath(); // a folder, despite the name
    static QString packUserStoragePath();
    static QString favoritePresetPath();
    static QString cafDataPath();
    static QString crashFilesPath();
    static QString crashTempFilesPath();
    static QString loggerFilesPath();

    // Installed data packs under <application dir>/Resources; cached, each logged once.
    static QString miniatureBlurShapesPath();
    static QString framePackPath();
    static QString texturesPackPath();
    static QString defectsPackPath();

    static QString getDefaultPreferencesFilePath();
    // Stored as given: no check, no normalisation. The embedding executable calls it.
    static void setPreferencesFilePath(const QString& path);
    // Throws std::runtime_error("Preferences file path not set") while unset or empty.
    static QString getCurrentPreferencesFilePath();

    static QString cafDataPathOfRectivo2();
    static QString cafDataPathOfOpsoraLatestVersion();
    static const QString& getSorelUserConfigFileLocation();
    static const QString& getSorelGlobalConfigFileLocation();

    static QString getSamplePicturesLocation();
};

} // namespace VEXA_NAMESPACE
