#include "TestEnvironment.h"
#include "TestLogger.h"

#include "storageLocation.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

using Vexa::CStorageLocation;

namespace {

QString dataHome() { return qEnvironmentVariable("XDG_DATA_HOME"); }
QString productFolder() { return dataHome() + "/Vexa_Labs/Vexa Rectivo 3/"; }

} // namespace

class TestStorageLocation : public QObject
{
    Q_OBJECT
private slots:
    // Runs first: the cached location must not have been asked for before.
    void racingFirstCallsAgreeAndMakeTheFolder()
    {
        constexpr int threadCount = 8;
        std::atomic<int> ready{0};
        std::vector<QString> results(threadCount);
        std::vector<std::thread> threads;
        for (int i = 0; i < threadCount; ++i) {
            threads.emplace_back([&, i] {
                for (++ready; ready.load() < threadCount;)
                    std::this_thread::yield();
                results[i] = CStorageLocation::favoritePresetPath();
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(results, std::vector<QString>(threadCount, productFolder() + "Favorite/"));
        QVERIFY(QDir(results.front()).exists());
    }

    void preferencesPathIsRequiredAndKeptAsGiven()
    {
        for (const QString& unset : {QString("never set"), QString()}) {
            if (unset.isEmpty())
                CStorageLocation::setPreferencesFilePath(unset);
            try {
                CStorageLocation::getCurrentPreferencesFilePath();
                QFAIL("no exception for an unset preferences path");
            } catch (const std::runtime_error& error) {
                QCOMPARE(QString(error.what()), QString("Preferences file path not set"));
            }
        }
        CStorageLocation::setPreferencesFilePath("relative/../odd//Prefs.ini");
        QCOMPARE(CStorageLocation::getCurrentPreferencesFilePath(), QString("relative/../odd//Prefs.ini"));
    }

    void uncachedLocations()
    {
        QCOMPARE(CStorageLocation::appDataLocation("Some Tool"), dataHome() + "/Vexa_Labs/Some Tool/");
        QVERIFY(!QDir(dataHome() + "/Vexa_Labs/Some Tool").exists());
        QCOMPARE(CStorageLocation::currentDataLocation(), productFolder());
        QVERIFY(QDir(productFolder()).exists());
        // Qt's form: forward slashes and no trailing separator.
        QCOMPARE(CStorageLocation::sessionSingleAppDirectory(), QDir(QDir::tempPath()).absolutePath());
        QVERIFY(!CStorageLocation::sessionSingleAppDirectory().endsWith('/'));
        // Answered whether or not the folder exists.
        QCOMPARE(CStorageLocation::cafDataPathOfRectivo2(), dataHome() + "/Vexa_Labs/Vexa Rectivo 2/Modules/");
        QVERIFY(!QDir(CStorageLocation::cafDataPathOfRectivo2()).exists());

        // The sample folder is named but not made.
        const QString pictures = UtilsDllTest::IsolatedEnvironment::home() + "/Pictures";
        QCOMPARE(CStorageLocation::getSamplePicturesLocation(), pictures + "/Vexa Rectivo 3 Samples/");
        QVERIFY(QDir(pictures).exists() && !QDir(pictures + "/Vexa Rectivo 3 Samples").exists());

        // The machine-wide folder has a blank, the per-user one an underscore; the disk is not touched.
        const QByteArray saved = qgetenv("XDG_CONFIG_DIRS");
        qputenv("XDG_CONFIG_DIRS", "relative/ignored:/opt/site//xdg/:/etc/other");
        QCOMPARE(CStorageLocation::getDefaultPreferencesFilePath(),
                 QString("/opt/site/xdg/Vexa Labs/Vexa Rectivo 3/Preferences.ini"));
        QVERIFY(!QDir("/opt/site").exists());
        qunsetenv("XDG_CONFIG_DIRS");
        QCOMPARE(CStorageLocation::getDefaultPreferencesFilePath(),
                 QString("/etc/xdg/Vexa Labs/Vexa Rectivo 3/Preferences.ini"));
        qputenv("XDG_CONFIG_DIRS", saved);

        // The global file is a literal drive path on every platform.
        QCOMPARE(CStorageLocation::getSorelUserConfigFileLocation(),
                 QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                     + "/Vexa/Sorel Collection/SorelCollection.cfg");
        QCOMPARE(CStorageLocation::getSorelGlobalConfigFileLocation(),
                 QString("C:/ProgramData/Vexa/Sorel Collection/SorelCollection.cfg"));
    }

    void cachedFoldersAreMadeAndComeBack()
    {
        const struct {
            QString (*path)();
            const char* folder;
        } folders[] = {
            {&CStorageLocation::diskCacheLocation, "DiskCache/"},  {&CStorageLocation::cachedTokenFilePath, "Facebook/"},
            {&CStorageLocation::packUserStoragePath, "PresetPack/"}, {&CStorageLocation::cafDataPath, "Modules/"},
            {&CStorageLocation::crashFilesPath, "CrashReports/"},  {&CStorageLocation::loggerFilesPath, "Logs/"},
        };
        for (const auto& folder : folders) {
            QCOMPARE(folder.path(), productFolder() + folder.folder);
            QVERIFY(QDir(folder.path()).exists());
        }
        // The cached text stays, and the folder is made again, both levels if need be.
        QVERIFY(QDir(productFolder()).removeRecursively());
        QCOMPARE(CStorageLocation::diskCacheLocation(), productFolder() + "DiskCache/");
        QVERIFY(QDir(productFolder() + "DiskCache").exists());
        QCOMPARE(CStorageLocation::crashTempFilesPath(), productFolder() + "CrashReports/temp/");
        QVERIFY(QDir(productFolder() + "CrashReports/temp").exists());
    }

    void packPathsAreCleanNativeAndLoggedOnce()
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
            const QString path = pack.path();
            QCOMPARE(path, QDir::toNativeSeparators(resources + pack.file));
            QCOMPARE(pack.path(), path); // second call: cached, not logged again
            expectedLines << QString("%1 : %2").arg(pack.label, path);
        }
        QCOMPARE(logger->linesAt('D'), expectedLines);
        QVERIFY(logger->linesAt('E').isEmpty());
    }

    void olderProductsModulesFolders()
    {
        // Newest first; versions below 9 are never tried, and 9 had a spaced name.
        const QString maker = dataHome() + "/Vexa_Labs/";
        QCOMPARE(CStorageLocation::cafDataPathOfOpsoraLatestVersion(), QString());
        for (const char* product : {"Vexa Opsora 8", "Vexa Op Sora 9", "Vexa Opsora 10", "Vexa Opsora 11"}) {
            QVERIFY(QDir().mkpath(maker + product + "/Modules"));
            const QString expected = product == QLatin1String("Vexa Opsora 8") ? QString() : maker + product + "/Modules/";
            QCOMPARE(CStorageLocation::cafDataPathOfOpsoraLatestVersion(), expected);
        }
    }
};

UTILSDLL_TEST_MAIN(TestStorageLocation)
#include "tst_storagelocation.moc"
