#include "TestEnvironment.h"
#include "TestLogger.h"

#include "Settings.h"
#include "SharedUtils.h"
#include "TemporarySettings.h"
#include "storageLocation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>

using namespace Vexa;

namespace {

// The way callers return to the system store: a reference with a null address.
// UBSan rightly calls binding it undefined, so only this helper does it.
__attribute__((no_sanitize("undefined"))) void installSystemStore()
{
    CSettings::setTemporarySettings(*static_cast<CTemporarySettings*>(nullptr));
}

QSettings& systemStore()
{
    static QSettings store("Vexa Labs", "Vexa Rectivo 3");
    return store;
}

// Read as text, bypassing QSettings and its per-process cache.
QString fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

std::unique_ptr<CTemporarySettings> makeStore(const QString& anchorFolder = QDir::tempPath())
{
    return std::make_unique<CTemporarySettings>((anchorFolder + "/anchor.exe").toUtf8().constData());
}

} // namespace

class TestSettings : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        systemStore().clear();
        systemStore().sync();
    }
    void cleanup()
    {
        installSystemStore();
        m_store.reset();
    }

    // First: no preferences path is set yet.
    void preferencesFileNeedsItsPath()
    {
        // The message itself is pinned by tst_storagelocation; here only that the read lets it through.
        QVERIFY_EXCEPTION_THROWN(CSettings::getStringFromPreferencesFile("anything", "default"), std::runtime_error);
    }

    void preferencesFileReads()
    {
        QTemporaryDir folder;
        QVERIFY(writeFile(folder.filePath("Preferences.ini"), "[General]\nlang=de\nempty=\n"));
        Vexa::CStorageLocation::setPreferencesFilePath(folder.filePath("Preferences.ini"));
        QCOMPARE(CSettings::getStringFromPreferencesFile("lang", "fallback"), QString("de"));
        QCOMPARE(CSettings::getStringFromPreferencesFile("empty", "fallback"), QString("fallback"));

        // A folder where the file should be cannot be read: defaults again.
        Vexa::CStorageLocation::setPreferencesFilePath(folder.path());
        QCOMPARE(CSettings::getStringFromPreferencesFile("lang", "fallback"), QString("fallback"));
    }

    void backendIsChosenOnEveryCall()
    {
        CSettings builtBefore;
        QVERIFY(!builtBefore.usingTemporarySettings());
        builtBefore.setValue("where", "system");

        useTemporaryStore();
        QVERIFY(builtBefore.usingTemporarySettings());
        QCOMPARE(builtBefore.value("where", "absent").toString(), QString("absent"));
        QCOMPARE(CSettings(nullptr, true).value("where").toString(), QString("system"));

        CSettings builtDuring;
        builtDuring.setValue("where", "temporary");
        QCOMPARE(m_store->value("where").toString(), QString("temporary"));
        const QString folder = QFileInfo(m_store->tempSettingsPath()).absolutePath();
        QVERIFY(QDir(folder).exists());

        m_store.reset();
        QVERIFY(!QDir(folder).exists());
        QCOMPARE(builtDuring.value("where").toString(), QString("system"));
    }

    void groupsAndArrays()
    {
        QSettings& system = systemStore();
        system.setValue("g/key", "prefixed");
        system.sync();
        useTemporaryStore();
        CSettings settings;
        settings.beginGroup("outer");
        settings.beginGroup("g"); // replaces, does not nest
        QCOMPARE(settings.localKey("key"), QString("g/key"));

        // The group prefixes writes only: reads and contains take the key as given.
        settings.setValue("key", 1);
        QVERIFY(settings.contains("key"));
        QCOMPARE(settings.value("key", 7).toInt(), 7);
        QCOMPARE(settings.value("g/key", 7).toInt(), 1);
        settings.remove("key");
        QVERIFY(!m_store->contains("g/key"));

        // Arrays go to the active store.
        settings.endGroup();
        QCOMPARE(settings.group(), QString());
        settings.beginWriteArray("recent", 2);
        settings.setArrayIndex(1);
        settings.setValue("file", "f1");
        settings.endArray();
        QCOMPARE(m_store->value("recent/2/file").toString(), QString("f1"));
        system.sync();
        QVERIFY(!system.contains("recent/size"));

        // A group left set when the store goes: reads are prefixed against the system store, writes are not.
        settings.beginGroup("g");
        m_store.reset();
        QCOMPARE(settings.value("key").toString(), QString("prefixed"));
        settings.setValue("key", "written");
        settings.sync();
        system.sync();
        QCOMPARE(system.value("key").toString(), QString("written"));
        QCOMPARE(system.value("g/key").toString(), QString("prefixed"));
    }

    void defaultsFileSeedsTheStoreAndStaysUntouched()
    {
        QTemporaryDir anchorFolder;
        const QString defaults = anchorFolder.filePath("DefaultTemporarySettings.ini");
        const QByteArray content("[General]\napp_launched=1\nresellerId=shop\n");
        QVERIFY(writeFile(defaults, content));
        m_store = makeStore(anchorFolder.path());
        CSettings::setTemporarySettings(*m_store);
        QCOMPARE(CSettings().value("resellerId").toString(), QString("shop"));
        QVERIFY(!isFirstLaunch());
        CSettings().setValue("resellerId", "other");
        QFile defaultsFile(defaults);
        QVERIFY(defaultsFile.open(QIODevice::ReadOnly));
        QCOMPARE(defaultsFile.readAll(), content);
    }

    void everyWriteIsOnDiskAndOwnFile()
    {
        auto first = makeStore();
        CSettings::setTemporarySettings(*first);
        const QString firstPath = first->tempSettingsPath();
        for (int i = 0; i < 2; ++i) {
            CSettings().setValue("key", i);
            QVERIFY2(fileText(firstPath).contains(QString("key=%1").arg(i)), qPrintable(fileText(firstPath)));
        }
        // A second store takes over the reported path, while each keeps writing its own file.
        auto second = makeStore();
        const QString secondPath = second->tempSettingsPath();
        QVERIFY(firstPath != secondPath);
        QCOMPARE(first->tempSettingsPath(), secondPath);
        first->setValue("owner", "first");
        QVERIFY(fileText(firstPath).contains("owner=first"));
        QVERIFY(!fileText(secondPath).contains("owner"));
        CSettings().remove("key");
        QVERIFY(!fileText(firstPath).contains("key="));
        first->clear();
        QVERIFY(!fileText(firstPath).contains("owner="));

        second->setSharedSettingsPath("/shared/elsewhere.ini");
        QCOMPARE(second->tempSettingsPath(), QString("/shared/elsewhere.ini"));
        second->setValue("owner", "second");
        QVERIFY(fileText(secondPath).contains("owner=second"));
    }

    void storeChangesAreLogged()
    {
        UtilsDllTest::ScopedTestLogger logger;
        useTemporaryStore();
        const QString path = m_store->tempSettingsPath();
        QCOMPARE(logger->linesAt('D'), QStringList{"Info: settings are now stored in file: " + path});

        logger->clear();
        installSystemStore();
        QCOMPARE(logger->linesAt('D'), QStringList{"Info: settings are now stored in system"});

        // Each CSettings made while a store is installed reports its end, even one that ignores it.
        CSettings unconnected;
        CSettings::setTemporarySettings(*m_store);
        CSettings connectedA;
        CSettings connectedB(nullptr, true);
        logger->clear();
        m_store.reset();
        const QStringList pair{"Temporary settings file is to be destoyed: " + path, "Persistent settings will be used"};
        QCOMPARE(logger->linesAt('D'), pair + pair);
        QVERIFY(logger->linesAt('E').isEmpty());
    }

    // The launch state and preference accessors over the store.
    void firstLaunchAndCrashCounters()
    {
        QVERIFY(isFirstLaunch());
        setNotFirstLaunch();
        QVERIFY(!isFirstLaunch());
        systemStore().setValue("app_launched", 0); // presence counts, not the value
        QVERIFY(!isFirstLaunch());

        QCOMPARE(crashCounterForPlugin("PS"), 0);
        incrementCrashCounter(); // no mode stored: the bare key
        QVERIFY(CSettings().contains("crashCounter_"));
        setLastLaunchMode("PS");
        QCOMPARE(getLastLaunchMode(), QString("PS")); // its only reader outside the counters
        incrementCrashCounter();
        incrementCrashCounter();
        QCOMPARE(crashCounterForPlugin("PS"), 2);
        crashCounterReset("PS");
        QVERIFY(!CSettings().contains("crashCounter_PS"));
        QCOMPARE(crashCounterForPlugin(""), 1);
        setLastLaunchMode("any text at all"); // not checked against the known modes
        incrementCrashCounter();
        QCOMPARE(crashCounterForPlugin("any text at all"), 1);

        // A temporary store starts as a first launch, however often the product ran.
        useTemporaryStore();
        QVERIFY(isFirstLaunch());
        setNotFirstLaunch();
        QVERIFY(!isFirstLaunch());
    }

    void userIdIsSharedAndStable()
    {
        const QString makerStoreFile = qEnvironmentVariable("XDG_CONFIG_HOME") + "/VexaLabs.conf";
        QVERIFY(!QFileInfo::exists(makerStoreFile));
        useTemporaryStore();
        const QString id = getUserID();
        QVERIFY(QRegularExpression("^[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}$").match(id).hasMatch());
        QCOMPARE(getUserID(), id);
        // In the maker's own store, in neither the product's nor the temporary one.
        QCOMPARE(QSettings(makerStoreFile, QSettings::IniFormat).value("UserID").toString(), id);
        QVERIFY(!m_store->contains("UserID") && !systemStore().contains("UserID"));
        installSystemStore();
        QCOMPARE(getUserID(), id);
    }

    void reseller_data()
    {
        QTest::addColumn<bool>("store");
        QTest::addColumn<QString>("expected");
        QTest::newRow("absent") << false << "vexa";
        QTest::newRow("VEXA_RESELLER_ID_PLACEHOLDER") << true << "vexa";
        QTest::newRow("vexa_reseller_id_placeholder") << true << "vexa_reseller_id_placeholder";
        QTest::newRow("") << true << "";
    }
    void reseller()
    {
        QFETCH(bool, store);
        QFETCH(QString, expected);
        if (store)
            setResellerID(QTest::currentDataTag());
        QCOMPARE(getResellerID(), expected);
        if (store) // the placeholder is reported as "vexa" but stays stored
            QCOMPARE(CSettings().value("resellerId").toString(), QString(QTest::currentDataTag()));
    }

    void flagRule_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<bool>("expected");
        QTest::newRow("absent") << QVariant() << true;
        QTest::newRow("text 0") << QVariant("0") << false;
        QTest::newRow("false") << QVariant("false") << true;
        QTest::newRow("empty") << QVariant("") << true;
        QTest::newRow("00") << QVariant("00") << true;
    }
    void flagRule()
    {
        QFETCH(QVariant, stored);
        QFETCH(bool, expected);
        for (const char* key : {"UseActionSave", "loggerEnabled", "VexaSendStat", "VexaSentCrashReport"})
            if (stored.isValid())
                systemStore().setValue(key, stored);
        systemStore().sync();
        QCOMPARE(useActionSave(), expected);
        QCOMPARE(isLoggerEnabled(), expected);
        QCOMPARE(isStatisticSent(), expected);
        QCOMPARE(crashReportSendingAllowed(), expected);
    }

    void setters()
    {
        // The setters store "0" and "1"; the statistics and crash flags follow the active store.
        for (bool temporary : {false, true}) {
            if (temporary)
                useTemporaryStore();
            if (temporary) // on when absent from the temporary store, though off in the system one
            QVERIFY(isStatisticSent() && crashReportSendingAllowed());
            for (bool on : {false, true}) {
                setStatisticSent(on);
                allowCrashReportSending(on);
                QCOMPARE(CSettings().value("VexaSendStat").toString(), QString(on ? "1" : "0"));
                QCOMPARE(CSettings().value("VexaSentCrashReport").toString(), QString(on ? "1" : "0"));
                QCOMPARE(isStatisticSent(), on);
                QCOMPARE(crashReportSendingAllowed(), on);
            }
            setStatisticSent(false); // left off in the system store for the temporary round
        }

        // The logger keys and UseActionSave are read from the system store only, while the
        // setters write to the active one: under a temporary store a write is not seen.
        cleanup();
        setLogLevel("E");
        setLoggerEnabled(false);
        QCOMPARE(getLogLevel(), QString("E"));
        QVERIFY(!isLoggerEnabled());
        QCOMPARE(systemStore().value("loggerEnabled").toString(), QString("0"));
        useTemporaryStore();
        setLogLevel("W");
        setLoggerEnabled(true);
        QCOMPARE(m_store->value("loggerLevel").toString(), QString("W"));
        QCOMPARE(m_store->value("loggerEnabled").toString(), QString("1"));
        QCOMPARE(getLogLevel(), QString("E"));
        QVERIFY(!isLoggerEnabled());
        m_store->setValue("UseActionSave", "0");
        QVERIFY(useActionSave());
    }

private:
    void useTemporaryStore()
    {
        m_store = makeStore();
        CSettings::setTemporarySettings(*m_store);
    }
    std::unique_ptr<CTemporarySettings> m_store;
};

UTILSDLL_TEST_MAIN(TestSettings)
#include "tst_settings.moc"
