#include "TestEnvironment.h"
#include "TestLogger.h"

#include "storageLocation.h"

#include <stdexcept>

using Vexa::CStorageLocation;

namespace {

#ifdef Q_OS_WIN
// Under Wine each test has a prefix, and so known folders, of its own.
QString localAppData() { return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation); }
QString publicPictures() { return qEnvironmentVariable("PUBLIC") + "/Pictures"; }
QString machinePreferences() { return qEnvironmentVariable("ProgramData") + "/Vexa Labs/Vexa Rectivo 3/Preferences.ini"; }
#else
QString localAppData() { return qEnvironmentVariable("XDG_DATA_HOME"); }
QString publicPictures() { return UtilsDllTest::IsolatedEnvironment::home() + "/Pictures"; }
// The machine-wide folder has a blank, the per-user one an underscore; the disk is not touched.
QString machinePreferences() { return "/opt/site/xdg/Vexa Labs/Vexa Rectivo 3/Preferences.ini"; }
#endif
// The folders come back in the platform's separators.
QString maker(const QString& below = QString()) { return QDir::toNativeSeparators(localAppData() + "/Vexa_Labs/" + below); }
QString productFolder(const QString& below = QString()) { return maker("Vexa Rectivo 3/" + below); }

} // namespace

class TestStorageLocation : public QObject
{
    Q_OBJECT
private slots:
    void preferencesPathIsRequiredAndKeptAsGiven()
    {
        try {
            CStorageLocation::getCurrentPreferencesFilePath();
            QFAIL("no exception for an unset preferences path");
        } catch (const std::runtime_error& error) {
            QCOMPARE(QString(error.what()), QString("Preferences file path not set"));
        }
        CStorageLocation::setPreferencesFilePath("relative/../odd//Prefs.ini");
        QCOMPARE(CStorageLocation::getCurrentPreferencesFilePath(), QString("relative/../odd//Prefs.ini"));
        qputenv("XDG_CONFIG_DIRS", "relative/ignored:/opt/site//xdg/:/etc/other");
        QCOMPARE(CStorageLocation::getDefaultPreferencesFilePath(), QDir::toNativeSeparators(machinePreferences()));
        QVERIFY(!QFileInfo::exists(QFileInfo(machinePreferences()).path()));
    }

    void folders()
    {
        QCOMPARE(CStorageLocation::appDataLocation("Some Tool"), maker("Some Tool/"));
        QVERIFY(!QDir(maker("Some Tool")).exists()); // named, not made
        QCOMPARE(CStorageLocation::cafDataPathOfRectivo2(), maker("Vexa Rectivo 2/Modules/"));
        QCOMPARE(CStorageLocation::sessionSingleAppDirectory(), QDir(QDir::tempPath()).absolutePath());
        QCOMPARE(CStorageLocation::getSamplePicturesLocation(),
                 QDir::toNativeSeparators(publicPictures() + "/Vexa Rectivo 3 Samples/"));
        QCOMPARE(CStorageLocation::getSorelUserConfigFileLocation(),
                 QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                     + "/Vexa/Sorel Collection/SorelCollection.cfg");
        QCOMPARE(CStorageLocation::getSorelGlobalConfigFileLocation(),
                 QString("C:/ProgramData/Vexa/Sorel Collection/SorelCollection.cfg"));

        // The product's own folders are made when asked for, and made again once gone.
        const QList<QPair<QString (*)(), const char*>> made = {
            {&CStorageLocation::diskCacheLocation, "DiskCache/"},     {&CStorageLocation::cachedTokenFilePath, "Facebook/"},
            {&CStorageLocation::packUserStoragePath, "PresetPack/"},  {&CStorageLocation::cafDataPath, "Modules/"},
            {&CStorageLocation::crashFilesPath, "CrashReports/"},     {&CStorageLocation::loggerFilesPath, "Logs/"},
            {&CStorageLocation::crashTempFilesPath, "CrashReports/temp/"}, {&CStorageLocation::favoritePresetPath, "Favorite/"},
        };
        // The second round asks for texts that are cached by then: the folders come back all the same.
        for (int round = 0; round < 2; ++round) {
            QVERIFY(QDir(productFolder()).removeRecursively());
            QCOMPARE(CStorageLocation::currentDataLocation(), productFolder());
            QVERIFY(QDir(productFolder()).exists());
            QVERIFY(QDir(productFolder()).removeRecursively());
            for (const auto& [path, folder] : made) {
                QCOMPARE(path(), productFolder(folder));
                QVERIFY2(QDir(path()).exists(), folder);
            }
        }
    }

    void packPathsAreNativeAndLoggedOnce()
    {
        UtilsDllTest::ScopedTestLogger logger;
        const QString resources = QDir::cleanPath(QCoreApplication::applicationDirPath()) + "/Resources/";
        const struct {
            QString (*path)();
            const char* file;
            const char* label;
        } packs[] = {
            {&CStorageLocation::miniatureBlurShapesPath, "BlurShapes.lua", "Miniature blur shapes data path"},
            {&CStorageLocation::framePackPath, "Frames.lua", "Frames data path"},
            {&CStorageLocation::texturesPackPath, "Textures.lua", "Textures data path"},
            {&CStorageLocation::defectsPackPath, "Defects.lua", "Defects data path"},
        };
        QStringList expectedLines;
        for (const auto& pack : packs) {
            QCOMPARE(pack.path(), QDir::toNativeSeparators(resources + pack.file));
            expectedLines << QString("%1 : %2").arg(pack.label, pack.path());
        }
        QCOMPARE(logger->linesAt('D'), expectedLines);
    }

    void olderProductsModulesFolders()
    {
        // Newest first; versions below 9 are never tried, and 9 had a spaced name.
        QCOMPARE(CStorageLocation::cafDataPathOfOpsoraLatestVersion(), QString());
        for (const char* product : {"Vexa Opsora 8", "Vexa Op Sora 9", "Vexa Opsora 10", "Vexa Opsora 11"}) {
            QVERIFY(QDir().mkpath(maker(product + QString("/Modules"))));
            const QString expected = QString(product).endsWith(" 8") ? QString() : maker(product + QString("/Modules/"));
            QCOMPARE(CStorageLocation::cafDataPathOfOpsoraLatestVersion(), expected);
        }
    }
};

UTILSDLL_TEST_MAIN(TestStorageLocation)
#include "tst_storagelocation.moc"
