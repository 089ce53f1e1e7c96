#pragma once

#include "UtilsDllGlobal.h"

#include <QString>

/// \file
/// \brief Where every file of the product lives.

namespace VEXA_NAMESPACE {

/// \brief Where every file of the product lives.
///
/// All members are static; the class holds no instance data. Folder results end with
/// QDir::separator() unless noted. The cached texts are function-local statics, safe to
/// ask from any thread; setPreferencesFilePath() belongs before other threads start.
class UTILSDLL_EXPORT CStorageLocation
{
public:
    /// Not instantiable.
    CStorageLocation() = delete;

    /// `<LocalAppData>/Vexa_Labs/<appName>/` in native form; never creates the folder.
    static QString appDataLocation(const QString& appName);
    /// appDataLocation("Vexa Rectivo 3"), created whenever it is missing.
    static QString currentDataLocation();
    /// QDir::tempPath() in Qt's form, without a trailing separator.
    static QString sessionSingleAppDirectory();

    /// \brief The disk cache folder, "DiskCache" under currentDataLocation().
    ///
    /// This and the following folders under currentDataLocation() have their text
    /// cached on the first call, and the folder made again on every call where it is
    /// missing. Making it fails silently: the caller's file operation fails instead.
    static QString diskCacheLocation();
    /// The folder "Facebook" under currentDataLocation(): a folder, despite the name.
    static QString cachedTokenFilePath();
    /// The user's preset packs, "PresetPack" under currentDataLocation().
    static QString packUserStoragePath();
    /// The favourite presets, "Favorite" under currentDataLocation().
    static QString favoritePresetPath();
    /// The calibration modules, "Modules" under currentDataLocation().
    static QString cafDataPath();
    /// The crash reports, "CrashReports" under currentDataLocation().
    static QString crashFilesPath();
    /// "temp" under crashFilesPath().
    static QString crashTempFilesPath();
    /// The log folder, "Logs" under `<LocalAppData>/Vexa_Labs/Vexa Rectivo 3`, in the
    /// system's own form; made again whenever it is missing.
    static QString loggerFilesPath();

    /// \brief The installed blur shapes pack, the file `<application dir>/Resources/BlurShapes.lua`.
    ///
    /// This and the following pack paths are files, in native form; cached, each logged once.
    static QString miniatureBlurShapesPath();
    /// The installed frames pack, Resources/Frames.lua beside the application.
    static QString framePackPath();
    /// The installed textures pack, Resources/Textures.lua beside the application.
    static QString texturesPackPath();
    /// The installed defects pack, Resources/Defects.lua beside the application.
    static QString defectsPackPath();

    /// The machine-wide Preferences.ini under `<ProgramData>/Vexa Labs/Vexa Rectivo 3`, in
    /// native form; empty when the system has no such folder.
    static QString getDefaultPreferencesFilePath();
    /// Sets the preferences file that CSettings::getStringFromPreferencesFile() reads.
    /// Stored as given: no check, no normalisation. The embedding executable calls it
    /// first thing.
    static void setPreferencesFilePath(const QString& path);
    /// The path given to setPreferencesFilePath().
    /// \throws std::runtime_error "Preferences file path not set" while it is unset or empty.
    static QString getCurrentPreferencesFilePath();

    /// The calibration modules of the product's previous version, Rectivo 2.
    static QString cafDataPathOfRectivo2();
    /// The calibration modules of the newest installed Opsora (11, 10, then 9); empty
    /// when none of their folders can be read.
    static QString cafDataPathOfOpsoraLatestVersion();
    /// The user's configuration file of the Sorel products, a file path.
    static const QString& getSorelUserConfigFileLocation();
    /// The machine-wide configuration file of the Sorel products,
    /// "C:/ProgramData/Vexa/Sorel Collection/SorelCollection.cfg" on every platform.
    static const QString& getSorelGlobalConfigFileLocation();

    /// The product's sample pictures under the public pictures folder; empty when the
    /// system has none. Never creates the folder.
    static QString getSamplePicturesLocation();
};

} // namespace VEXA_NAMESPACE
