#include "TestEnvironment.h"
#include "TestLogger.h"

#include "Settings.h"
#include "TemporarySettings.h"
#include "storageLocation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>

using Vexa::CSettings;
using UtilsDllTest::ScopedTestLogger;

namespace {

// The way callers return to the system store: a reference with a null address.
// UBSan rightly calls binding it undefined, so only this helper does it.
__attribute__((no_sanitize("undefined"))) void installSystemStore()
{
    CSettings::setTemporarySettings(*static_cast<CTemporarySettings*>(nullptr));
}

QString systemStoreFile()
{
    return QSettings("Vexa Labs", "Vexa Rectivo 3").fileName();
}

// Reads the ini file as text, bypassing QSettings and its per-process cache.
QString fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

std::unique_ptr<CTemporarySettings> makeStore(const QString& anchorFolder = QString())
{
    const QString anchor = (anchorFolder.isEmpty() ? QDir::tempPath() : anchorFolder) + "/anchor.exe";
    return std::make_unique<CTemporarySettings>(anchor.toUtf8().constData());
}

} // namespace

class TestSettings : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void preferencesFileNeedsItsPath();
    void preferencesFileReads_data();
    void preferencesFileReads();
    void backendIsChosenOnEveryCall();
    void groupsInTheTemporaryStore();
    void groupLeftSetAfterTheStoreIsGone();
    void arraysGoToTheActiveStore();
    void everyWriteIsOnDiskBeforeReturning();
    void storeIsSeededFromTheDefaultsFile();
    void unusableStoreFilesGiveDefaults_data();
    void unusableStoreFilesGiveDefaults();
    void secondStoreTakesOverTheReportedPath();
    void storeChangesAreLogged();
};

void TestSettings::init()
{
    QSettings("Vexa Labs", "Vexa Rectivo 3").clear();
}

void TestSettings::cleanup()
{
    installSystemStore();
}

void TestSettings::preferencesFileNeedsItsPath()
{
    // Before any setPreferencesFilePath: this must be the first test function.
    for (const QString& key : {QString("anything"), QString()}) {
        try {
            CSettings::getStringFromPreferencesFile(key, "default");
            QFAIL("no exception for an unset preferences path");
        } catch (const std::runtime_error& error) {
            QCOMPARE(QString(error.what()), QString("Preferences file path not set"));
        }
    }
}

void TestSettings::preferencesFileReads_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("present") << QByteArray("[General]\nlang=de\n") << "lang" << "de";
    QTest::newRow("grouped") << QByteArray("[Paths]\nroot=/x\n") << "Paths/root" << "/x";
    QTest::newRow("empty value reads as default") << QByteArray("[General]\nlang=\n") << "lang" << "fallback";
    QTest::newRow("absent") << QByteArray("[General]\nother=1\n") << "lang" << "fallback";
    QTest::newRow("empty file") << QByteArray() << "lang" << "fallback";
    QTest::newRow("binary garbage") << QByteArray("\x00\xff\xfe[\x01=\x02\n\x80\x81", 11) << "lang" << "fallback";
}

void TestSettings::preferencesFileReads()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, key);
    QFETCH(QString, expected);
    QTemporaryDir folder;
    const QString path = folder.filePath("Preferences.ini");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();

    Vexa::CStorageLocation::setPreferencesFilePath(path);
    QCOMPARE(CSettings::getStringFromPreferencesFile(key, "fallback"), expected);

    // A folder where the file should be cannot be read: defaults again.
    Vexa::CStorageLocation::setPreferencesFilePath(folder.path());
    QCOMPARE(CSettings::getStringFromPreferencesFile(key, "fallback"), QString("fallback"));
}

void TestSettings::backendIsChosenOnEveryCall()
{
    CSettings builtBefore;
    QVERIFY(!builtBefore.usingTemporarySettings());
    builtBefore.setValue("where", "system");

    auto store = makeStore();
    CSettings::setTemporarySettings(*store);
    QVERIFY(CSettings().usingTemporarySettings());
    QVERIFY(!CSettings(nullptr, true).usingTemporarySettings());
    QVERIFY(builtBefore.usingTemporarySettings());
    QCOMPARE(builtBefore.value("where", "absent").toString(), QString("absent"));
    QCOMPARE(CSettings(nullptr, true).value("where").toString(), QString("system"));

    CSettings builtDuring;
    builtDuring.setValue("where", "temporary");
    QCOMPARE(store->value("where").toString(), QString("temporary"));
    const QString folder = QFileInfo(store->tempSettingsPath()).absolutePath();
    QVERIFY(QDir(folder).exists());

    store.reset();
    QVERIFY(!QDir(folder).exists());
    QVERIFY(!builtDuring.usingTemporarySettings());
    QCOMPARE(builtDuring.value("where").toString(), QString("system"));
}

void TestSettings::groupsInTheTemporaryStore()
{
    auto store = makeStore();
    CSettings::setTemporarySettings(*store);
    CSettings settings;
    QCOMPARE(settings.localKey("key"), QString("key"));

    settings.beginGroup("outer");
    settings.beginGroup("prefix"); // replaces, does not nest
    QCOMPARE(settings.group(), QString("prefix"));
    QCOMPARE(settings.localKey("key"), QString("prefix/key"));

    settings.setValue("key", 1);
    QVERIFY(settings.contains("key"));
    QCOMPARE(settings.value("key", 7).toInt(), 7);          // looked up without the prefix
    QCOMPARE(settings.value("prefix/key", 7).toInt(), 1);
    QCOMPARE(store->value("prefix/key").toInt(), 1);

    settings.remove("key");
    QVERIFY(!store->contains("prefix/key"));

    settings.endGroup();
    QCOMPARE(settings.group(), QString());
    // Nothing of the groups reached the system store.
    QCOMPARE(QSettings("Vexa Labs", "Vexa Rectivo 3").group(), QString());
}

void TestSettings::groupLeftSetAfterTheStoreIsGone()
{
    {
        QSettings system("Vexa Labs", "Vexa Rectivo 3");
        system.setValue("g/key", "prefixed");
        system.setValue("key", "plain");
    }
    auto store = makeStore();
    CSettings::setTemporarySettings(*store);
    CSettings settings;
    settings.beginGroup("g");
    store.reset();

    QVERIFY(!settings.usingTemporarySettings());
    QCOMPARE(settings.value("key").toString(), QString("prefixed"));
    settings.setValue("key", "written");
    settings.sync();
    QSettings system("Vexa Labs", "Vexa Rectivo 3");
    QCOMPARE(system.value("key").toString(), QString("written"));
    QCOMPARE(system.value("g/key").toString(), QString("prefixed"));
}

void TestSettings::arraysGoToTheActiveStore()
{
    auto store = makeStore();
    CSettings::setTemporarySettings(*store);
    {
        CSettings settings;
        settings.beginWriteArray("recent", 2);
        for (int i = 0; i < 2; ++i) {
            settings.setArrayIndex(i);
            settings.setValue("file", QString("f%1").arg(i));
        }
        settings.endArray();
        settings.sync();
    }
    CSettings reader;
    QCOMPARE(reader.beginReadArray("recent"), 2);
    reader.setArrayIndex(1);
    QCOMPARE(reader.value("file").toString(), QString("f1"));
    reader.endArray();
    QVERIFY(!QSettings("Vexa Labs", "Vexa Rectivo 3").contains("recent/size"));
}

void TestSettings::everyWriteIsOnDiskBeforeReturning()
{
    auto store = makeStore();
    CSettings::setTemporarySettings(*store);
    const QString path = store->tempSettingsPath();
    CSettings settings;
    for (int i = 0; i < 40; ++i) {
        settings.setValue(QString("key%1").arg(i % 5), i);
        QVERIFY2(fileText(path).contains(QString("key%1=%2").arg(i % 5).arg(i)), qPrintable(fileText(path)));
        store->setValue("direct", i);
        QVERIFY(fileText(path).contains(QString("direct=%1").arg(i)));
    }
    settings.remove("key0");
    QVERIFY(!fileText(path).contains("key0="));
    store->clear();
    QVERIFY(!fileText(path).contains("key1="));
}

void TestSettings::storeIsSeededFromTheDefaultsFile()
{
    QTemporaryDir anchorFolder;
    QFile defaults(anchorFolder.filePath("DefaultTemporarySettings.ini"));
    QVERIFY(defaults.open(QIODevice::WriteOnly));
    defaults.write("[General]\napp_launched=1\nresellerId=shop\n");
    defaults.close();

    auto store = makeStore(anchorFolder.path());
    CSettings::setTemporarySettings(*store);
    QCOMPARE(CSettings().value("resellerId").toString(), QString("shop"));
    // The defaults file itself is left alone.
    CSettings().setValue("resellerId", "other");
    QVERIFY(fileText(defaults.fileName()).contains("resellerId=shop"));
}

void TestSettings::unusableStoreFilesGiveDefaults_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("garbage") << QByteArray("\xff\xfe\x00[[[=\n=\n\x80", 12);
    QTest::newRow("truncated section") << QByteArray("[Gener");
}

void TestSettings::unusableStoreFilesGiveDefaults()
{
    QFETCH(QByteArray, content);
    const QString systemFile = systemStoreFile();
    QVERIFY(QDir().mkpath(QFileInfo(systemFile).absolutePath()));
    QFile file(systemFile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    QCOMPARE(CSettings().value("resellerId", "vexa").toString(), QString("vexa"));

    QTemporaryDir anchorFolder;
    QFile defaults(anchorFolder.filePath("DefaultTemporarySettings.ini"));
    QVERIFY(defaults.open(QIODevice::WriteOnly));
    defaults.write(content);
    defaults.close();
    auto store = makeStore(anchorFolder.path());
    CSettings::setTemporarySettings(*store);
    QCOMPARE(CSettings().value("resellerId", "vexa").toString(), QString("vexa"));
    QVERIFY(CSettings().value("app_launched").isNull());
}

void TestSettings::secondStoreTakesOverTheReportedPath()
{
    auto first = makeStore();
    const QString firstPath = first->tempSettingsPath();
    auto second = makeStore();
    const QString secondPath = second->tempSettingsPath();
    QVERIFY(firstPath != secondPath);
    QCOMPARE(first->tempSettingsPath(), secondPath);

    first->setValue("owner", "first");
    QVERIFY(fileText(firstPath).contains("owner=first"));
    QVERIFY(!fileText(secondPath).contains("owner"));

    second->setSharedSettingsPath("/shared/elsewhere.ini");
    QCOMPARE(second->tempSettingsPath(), QString("/shared/elsewhere.ini"));
    second->setValue("owner", "second");
    QVERIFY(fileText(secondPath).contains("owner=second"));
}

void TestSettings::storeChangesAreLogged()
{
    ScopedTestLogger logger;
    auto store = makeStore();
    CSettings::setTemporarySettings(*store);
    const QString path = store->tempSettingsPath();
    QCOMPARE(logger->linesAt('D'), QStringList{"Info: settings are now stored in file: " + path});

    logger->clear();
    installSystemStore();
    QCOMPARE(logger->linesAt('D'), QStringList{"Info: settings are now stored in system"});

    CSettings unconnected; // made while no store was installed: never connected
    CSettings::setTemporarySettings(*store);
    CSettings connectedA;
    CSettings connectedB(nullptr, true); // connected too, although it ignores the store
    logger->clear();
    store.reset();
    const QStringList pair{"Temporary settings file is to be destoyed: " + path, "Persistent settings will be used"};
    QCOMPARE(logger->linesAt('D'), pair + pair);
    QVERIFY(logger->linesAt('E').isEmpty());
}

UTILSDLL_TEST_MAIN(TestSettings)
#include "tst_settings.moc"
