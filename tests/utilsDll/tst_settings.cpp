#include "TestEnvironment.h"
#include "TestLogger.h"

#include "Settings.h"
#include "SharedUtils.h"
#include "TemporarySettings.h"
#include "storageLocation.h"

#include <QDir>
#include <QFile>
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

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
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

    void preferencesFile() // first: no preferences path is set yet
    {
        QVERIFY_EXCEPTION_THROWN(CSettings::getStringFromPreferencesFile("anything", "default"), std::runtime_error);
        QTemporaryDir folder;
        writeFile(folder.filePath("Preferences.ini"), "[General]\nlang=de\nempty=\n");
        CStorageLocation::setPreferencesFilePath(folder.filePath("Preferences.ini"));
        QCOMPARE(CSettings::getStringFromPreferencesFile("lang", "fallback"), QString("de"));
        QCOMPARE(CSettings::getStringFromPreferencesFile("empty", "fallback"), QString("fallback"));
        CStorageLocation::setPreferencesFilePath(folder.path()); // a folder cannot be read
        QCOMPARE(CSettings::getStringFromPreferencesFile("lang", "fallback"), QString("fallback"));
    }

    void backendIsChosenOnEveryCall()
    {
        CSettings builtBefore;
        builtBefore.setValue("where", "system");
        useTemporaryStore();
        QVERIFY(builtBefore.usingTemporarySettings());
        QCOMPARE(builtBefore.value("where", "absent").toString(), QString("absent"));
        QCOMPARE(CSettings(nullptr, true).value("where").toString(), QString("system"));
        CSettings(nullptr, true).setValue("ignoring", 1);
        QVERIFY(systemStore().contains("ignoring") && !m_store->contains("ignoring"));

        CSettings builtDuring;
        builtDuring.setValue("where", "temporary");
        QCOMPARE(m_store->value("where").toString(), QString("temporary"));
        const QString folder = QFileInfo(m_store->tempSettingsPath()).absolutePath();
        m_store.reset();
        QVERIFY(!QDir(folder).exists());
        QCOMPARE(builtDuring.value("where").toString(), QString("system"));
    }

    void groupsPrefixOnlyWritesToTheTemporaryStore()
    {
        useTemporaryStore();
        CSettings settings;
        settings.beginGroup("outer");
        settings.beginGroup("g"); // replaces, does not nest
        settings.setValue("key", 1);
        QCOMPARE(m_store->value("g/key").toInt(), 1);
        QVERIFY(settings.contains("key"));
        QCOMPARE(settings.value("key", 7).toInt(), 7); // reads take the key as given
        settings.remove("key");
        QVERIFY(!m_store->contains("g/key"));
        settings.endGroup();
        QVERIFY(settings.group().isEmpty());
    }

    void temporaryStoreFiles()
    {
        // Seeded from the defaults beside the anchor, which stay untouched.
        QTemporaryDir anchorFolder;
        const QByteArray defaults("[General]\nresellerId=shop\n");
        writeFile(anchorFolder.filePath("DefaultTemporarySettings.ini"), defaults);
        auto first = makeStore(anchorFolder.path());
        CSettings::setTemporarySettings(*first);
        QCOMPARE(CSettings().value("resellerId").toString(), QString("shop"));
        const QString firstPath = first->tempSettingsPath();
        QCOMPARE(QFileInfo(firstPath).fileName(), QString("vrcv3.ini"));
        CSettings().setValue("key", 1); // on disk at once
        QVERIFY(fileText(firstPath).contains("key=1"));
        QCOMPARE(fileText(anchorFolder.filePath("DefaultTemporarySettings.ini")).toUtf8(), defaults);

        // A second store takes over the reported path; each keeps writing its own file.
        auto second = makeStore();
        const QString secondPath = second->tempSettingsPath();
        QVERIFY(firstPath != secondPath);
        QCOMPARE(first->tempSettingsPath(), secondPath);
        first->setValue("owner", "first");
        QVERIFY(fileText(firstPath).contains("owner=first") && !fileText(secondPath).contains("owner"));
        CSettings().remove("key");
        first->clear();
        QVERIFY(!fileText(firstPath).contains("key=") && !fileText(firstPath).contains("owner="));
        second->setSharedSettingsPath("/shared/elsewhere.ini");
        QCOMPARE(second->tempSettingsPath(), QString("/shared/elsewhere.ini"));
    }

    void storeChangesAreLogged()
    {
        UtilsDllTest::ScopedTestLogger logger;
        useTemporaryStore();
        const QString path = m_store->tempSettingsPath();
        installSystemStore();
        QCOMPARE(logger->linesAt('D'), (QStringList{"Info: settings are now stored in file: " + path,
                                                    "Info: settings are now stored in system"}));
        // Each CSettings made while a store is installed reports its end, even one that ignores it.
        CSettings unconnected;
        CSettings::setTemporarySettings(*m_store);
        CSettings connectedA, connectedB(nullptr, true);
        logger->clear();
        m_store.reset();
        const QStringList pair{"Temporary settings file is to be destoyed: " + path, "Persistent settings will be used"};
        QCOMPARE(logger->linesAt('D'), pair + pair);
    }

    void firstLaunchAndCrashCounters()
    {
        QVERIFY(isFirstLaunch());
        setNotFirstLaunch();
        QVERIFY(!isFirstLaunch());
        QVERIFY(systemStore().contains("app_launched"));
        incrementCrashCounter(); // no mode stored: the bare key
        setLastLaunchMode("PS");
        incrementCrashCounter();
        incrementCrashCounter();
        QCOMPARE(crashCounterForPlugin("PS"), 2);
        crashCounterReset("PS");
        QVERIFY(!CSettings().contains("crashCounter_PS"));
        QCOMPARE(crashCounterForPlugin(""), 1);
        // A temporary store starts as a first launch, however often the product ran.
        useTemporaryStore();
        QVERIFY(isFirstLaunch());
    }

    void reseller_data()
    {
        QTest::addColumn<QString>("stored"); // null: nothing stored
        QTest::addColumn<QString>("expected");
        QTest::newRow("absent") << QString() << "vexa";
        QTest::newRow("placeholder") << "VEXA_RESELLER_ID_PLACEHOLDER" << "vexa";
        QTest::newRow("placeholder in lower case") << "vexa_reseller_id_placeholder" << "vexa_reseller_id_placeholder";
        QTest::newRow("empty") << "" << "";
    }
    void reseller()
    {
        QFETCH(QString, stored);
        QFETCH(QString, expected);
        if (!stored.isNull())
            setResellerID(stored);
        QCOMPARE(getResellerID(), expected);
    }

    void flagRule_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<bool>("expected");
        QTest::newRow("absent") << QVariant() << true;
        QTest::newRow("text 0") << QVariant("0") << false;
        QTest::newRow("false") << QVariant("false") << true;
    }
    void flagRule()
    {
        QFETCH(QVariant, stored);
        QFETCH(bool, expected);
        for (const char* key : {"UseActionSave", "loggerEnabled", "VexaSendStat", "VexaSentCrashReport"})
            if (stored.isValid())
                systemStore().setValue(key, stored);
        QCOMPARE((QVector<bool>{useActionSave(), isLoggerEnabled(), isStatisticSent(), crashReportSendingAllowed()}),
                 QVector<bool>(4, expected));
    }

    void settersWriteTheActiveStoreAndLoggerKeysAreReadFromTheSystemOne()
    {
        for (bool on : {false, true}) {
            setStatisticSent(on);
            allowCrashReportSending(on);
            QCOMPARE(systemStore().value("VexaSendStat").toString(), QString(on ? "1" : "0"));
            QVERIFY(isStatisticSent() == on && crashReportSendingAllowed() == on);
        }
        setLogLevel("E");
        setLoggerEnabled(false);
        QCOMPARE(getLogLevel(), QString("E"));
        QVERIFY(!isLoggerEnabled());
        useTemporaryStore();
        setStatisticSent(false);
        QVERIFY(!isStatisticSent());
        setLogLevel("W");
        setLoggerEnabled(true);
        QCOMPARE(m_store->value("loggerLevel").toString(), QString("W"));
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
