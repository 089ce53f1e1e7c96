#include "TestEnvironment.h"
#include "TestLogger.h"

#include "storageLocation.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QThread>

#include <atomic>
#include <stdexcept>
#include <vector>

using Vexa::CStorageLocation;
using UtilsDllTest::ScopedTestLogger;

namespace {

const QString kSep = QString(QDir::separator());

QString dataHome()
{
    return qEnvironmentVariable("XDG_DATA_HOME");
}

QString productFolder()
{
    return dataHome() + "/Vexa_Labs/Vexa Rectivo 3/";
}

} // namespace

class TestStorageLocation : public QObject
{
    Q_OBJECT
private slots:
    // Runs first: the cached location must not have been asked for before.
    void racingFirstCallsAgreeAndMakeTheFolder();
    void preferencesPathIsRequiredAndKeptAsGiven();
    void baseLocations();
    void cachedFoldersComeBackWhenDeleted();
    void cachedFolderShapes_data();
    void cachedFolderShapes();
    void packPathsAreCleanNativeAndLoggedOnce();
    void defaultPreferencesFileFollowsTheFirstConfigDir();
    void olderProductsModulesFolders();
    void sorelLocationsAreStableReferences();
    void samplePicturesFolderIsNotCreated();
};

void TestStorageLocation::racingFirstCallsAgreeAndMakeTheFolder()
{
    constexpr int threadCount = 8;
    std::atomic<int> ready{0};
    std::vector<QString> results(threadCount);
    std::vector<QThread*> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.push_back(QThread::create([&, i] {
            ++ready;
            while (ready.load() < threadCount)
                QThread::yieldCurrentThread();
            results[i] = CStorageLocation::favoritePresetPath();
        }));
        threads.back()->start();
    }
    for (QThread* thread : threads) {
        QVERIFY(thread->wait(10000));
        delete thread;
    }
    for (const QString& result : results)
        QCOMPARE(result, productFolder() + "Favorite/");
    QVERIFY(QDir(results.front()).exists());
}

void TestStorageLocation::preferencesPathIsRequiredAndKeptAsGiven()
{
    QVERIFY_EXCEPTION_THROWN(CStorageLocation::getCurrentPreferencesFilePath(), std::runtime_error);
    try {
        CStorageLocation::getCurrentPreferencesFilePath();
    } catch (const std::runtime_error& error) {
        QCOMPARE(QString(error.what()), QString("Preferences file path not set"));
    }

    CStorageLocation::setPreferencesFilePath("");
    QVERIFY_EXCEPTION_THROWN(CStorageLocation::getCurrentPreferencesFilePath(), std::runtime_error);

    for (const QString& path : {QString("relative/../odd//Prefs.ini"), QString("/no/such/folder/p.ini")}) {
        CStorageLocation::setPreferencesFilePath(path);
        QCOMPARE(CStorageLocation::getCurrentPreferencesFilePath(), path);
    }
}

void TestStorageLocation::baseLocations()
{
    QCOMPARE(CStorageLocation::appDataLocation("Some Tool"), dataHome() + "/Vexa_Labs/Some Tool/");
    QVERIFY(!QDir(dataHome() + "/Vexa_Labs/Some Tool").exists());

    const QString current = CStorageLocation::currentDataLocation();
    QCOMPARE(current, productFolder());
    QVERIFY(QDir(current).exists());
    QCOMPARE(CStorageLocation::currentDataLocation(), current);

    QCOMPARE(CStorageLocation::sessionSingleAppDirectory(), QDir(QDir::tempPath()).absolutePath());
    QVERIFY(!CStorageLocation::sessionSingleAppDirectory().endsWith('/'));

    QCOMPARE(CStorageLocation::cafDataPathOfRectivo2(), dataHome() + "/Vexa_Labs/Vexa Rectivo 2/Modules/");
    QVERIFY(!QDir(CStorageLocation::cafDataPathOfRectivo2()).exists());
}

void TestStorageLocation::cachedFoldersComeBackWhenDeleted()
{
    const QString first = CStorageLocation::diskCacheLocation();
    QVERIFY(QDir(first).exists());
    QVERIFY(QDir(first).removeRecursively());

    QCOMPARE(CStorageLocation::diskCacheLocation(), first);
    QVERIFY(QDir(first).exists());

    // The whole product folder goes too: both levels are made again.
    QVERIFY(QDir(productFolder()).removeRecursively());
    QCOMPARE(CStorageLocation::crashTempFilesPath(), productFolder() + "CrashReports/temp/");
    QVERIFY(QDir(productFolder() + "CrashReports/temp").exists());
}

void TestStorageLocation::cachedFolderShapes_data()
{
    QTest::addColumn<QString>("actual");
    QTest::addColumn<QString>("expected");
    QTest::newRow("diskCache") << CStorageLocation::diskCacheLocation() << productFolder() + "DiskCache/";
    QTest::newRow("token") << CStorageLocation::cachedTokenFilePath() << productFolder() + "Facebook/";
    QTest::newRow("packs") << CStorageLocation::packUserStoragePath() << productFolder() + "PresetPack/";
    QTest::newRow("favorite") << CStorageLocation::favoritePresetPath() << productFolder() + "Favorite/";
    QTest::newRow("modules") << CStorageLocation::cafDataPath() << productFolder() + "Modules/";
    QTest::newRow("crash") << CStorageLocation::crashFilesPath() << productFolder() + "CrashReports/";
    QTest::newRow("crashTemp") << CStorageLocation::crashTempFilesPath()
                               << CStorageLocation::crashFilesPath() + "temp" + kSep;
    QTest::newRow("logs") << CStorageLocation::loggerFilesPath() << productFolder() + "Logs/";
}

void TestStorageLocation::cachedFolderShapes()
{
    QFETCH(QString, actual);
    QFETCH(QString, expected);
    QCOMPARE(actual, expected);
    QVERIFY(actual.endsWith(kSep));
    QVERIFY(QDir(actual).exists());
}

void TestStorageLocation::packPathsAreCleanNativeAndLoggedOnce()
{
    ScopedTestLogger logger;
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
        QVERIFY(!path.contains(".."));
        QCOMPARE(pack.path(), path); // second call: cached, not logged again
        expectedLines << QString("%1 : %2").arg(pack.label, path);
    }
    QCOMPARE(logger->linesAt('D'), expectedLines);
    QVERIFY(logger->linesAt('E').isEmpty());
}

void TestStorageLocation::defaultPreferencesFileFollowsTheFirstConfigDir()
{
    const QByteArray saved = qgetenv("XDG_CONFIG_DIRS");
    qputenv("XDG_CONFIG_DIRS", "relative/ignored:/opt/site//xdg/:/etc/other");
    QCOMPARE(CStorageLocation::getDefaultPreferencesFilePath(),
             QString("/opt/site/xdg/Vexa Labs/Vexa Rectivo 3/Preferences.ini"));
    QVERIFY(!QDir("/opt/site").exists()); // never touches the disk

    qunsetenv("XDG_CONFIG_DIRS");
    QCOMPARE(CStorageLocation::getDefaultPreferencesFilePath(),
             QString("/etc/xdg/Vexa Labs/Vexa Rectivo 3/Preferences.ini"));
    qputenv("XDG_CONFIG_DIRS", saved);
}

void TestStorageLocation::olderProductsModulesFolders()
{
    const QString makerFolder = dataHome() + "/Vexa_Labs/";
    QCOMPARE(CStorageLocation::cafDataPathOfOpsoraLatestVersion(), QString());

    QVERIFY(QDir().mkpath(makerFolder + "Vexa Opsora 8/Modules")); // too old to be tried
    QCOMPARE(CStorageLocation::cafDataPathOfOpsoraLatestVersion(), QString());

    QVERIFY(QDir().mkpath(makerFolder + "Vexa Op Sora 9/Modules"));
    QCOMPARE(CStorageLocation::cafDataPathOfOpsoraLatestVersion(), makerFolder + "Vexa Op Sora 9/Modules/");

    QVERIFY(QDir().mkpath(makerFolder + "Vexa Opsora 10/Modules"));
    QCOMPARE(CStorageLocation::cafDataPathOfOpsoraLatestVersion(), makerFolder + "Vexa Opsora 10/Modules/");

    QVERIFY(QDir().mkpath(makerFolder + "Vexa Opsora 11/Modules"));
    QCOMPARE(CStorageLocation::cafDataPathOfOpsoraLatestVersion(), makerFolder + "Vexa Opsora 11/Modules/");
}

void TestStorageLocation::sorelLocationsAreStableReferences()
{
    const QString& user = CStorageLocation::getSorelUserConfigFileLocation();
    QCOMPARE(&CStorageLocation::getSorelUserConfigFileLocation(), &user);
    QCOMPARE(user, QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                       + "/Vexa/Sorel Collection/SorelCollection.cfg");

    const QString& global = CStorageLocation::getSorelGlobalConfigFileLocation();
    QCOMPARE(&CStorageLocation::getSorelGlobalConfigFileLocation(), &global);
    QCOMPARE(global, QString("C:/ProgramData/Vexa/Sorel Collection/SorelCollection.cfg"));
}

void TestStorageLocation::samplePicturesFolderIsNotCreated()
{
    const QString samples = CStorageLocation::getSamplePicturesLocation();
    QCOMPARE(samples, UtilsDllTest::IsolatedEnvironment::home() + "/Pictures/Vexa Rectivo 3 Samples/");
    QVERIFY(QDir(UtilsDllTest::IsolatedEnvironment::home() + "/Pictures").exists());
    QVERIFY(!QDir(samples).exists());
}

UTILSDLL_TEST_MAIN(TestStorageLocation)
#include "tst_storagelocation.moc"
