#include "TestEnvironment.h"

#include "Settings.h"
#include "SharedUtils.h"
#include "TemporarySettings.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>

#include <memory>

using namespace Vexa;

namespace {

__attribute__((no_sanitize("undefined"))) void installSystemStore()
{
    CSettings::setTemporarySettings(*static_cast<CTemporarySettings*>(nullptr));
}

QSettings& systemStore()
{
    static QSettings store("Vexa Labs", "Vexa Rectivo 3");
    return store;
}

QString makerStoreFile()
{
    return qEnvironmentVariable("XDG_CONFIG_HOME") + "/VexaLabs.conf";
}

} // namespace

class TestSharedUtils : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void firstLaunch();
    void crashCounters();
    void userIdIsSharedAndStable();
    void reseller_data();
    void reseller();
    void flagRule_data();
    void flagRule();
    void flagsDefaultToOn();
    void loggerKeysAreReadFromTheSystemStoreOnly();

private:
    void useTemporaryStore();
    std::unique_ptr<CTemporarySettings> m_store;
};

void TestSharedUtils::init()
{
    systemStore().clear();
    systemStore().sync();
}

void TestSharedUtils::cleanup()
{
    installSystemStore();
    m_store.reset();
}

void TestSharedUtils::useTemporaryStore()
{
    m_store = std::make_unique<CTemporarySettings>((QDir::tempPath() + "/anchor").toUtf8().constData());
    CSettings::setTemporarySettings(*m_store);
}

void TestSharedUtils::firstLaunch()
{
    QVERIFY(isFirstLaunch());
    setNotFirstLaunch();
    QVERIFY(!isFirstLaunch());
    QCOMPARE(CSettings().value("app_launched").toInt(), 1);

    // Presence counts, not the value.
    systemStore().setValue("app_launched", 0);
    QVERIFY(!isFirstLaunch());

    // A temporary store starts as a first launch, however often the product ran.
    useTemporaryStore();
    QVERIFY(isFirstLaunch());
    setNotFirstLaunch();
    QVERIFY(!isFirstLaunch());
}

void TestSharedUtils::crashCounters()
{
    QCOMPARE(crashCounterForPlugin("PS"), 0);
    QCOMPARE(getLastLaunchMode(), QString());

    incrementCrashCounter(); // no mode stored: the bare key
    QVERIFY(CSettings().contains("crashCounter_"));
    QCOMPARE(crashCounterForPlugin(""), 1);

    setLastLaunchMode("PS");
    QCOMPARE(getLastLaunchMode(), QString("PS"));
    incrementCrashCounter();
    incrementCrashCounter();
    QCOMPARE(crashCounterForPlugin("PS"), 2);
    QCOMPARE(crashCounterForPlugin("LR"), 0);

    crashCounterReset("PS");
    QVERIFY(!CSettings().contains("crashCounter_PS"));
    QCOMPARE(crashCounterForPlugin("PS"), 0);
    QCOMPARE(crashCounterForPlugin(""), 1);

    setLastLaunchMode("any text at all"); // not checked against the known modes
    incrementCrashCounter();
    QCOMPARE(crashCounterForPlugin("any text at all"), 1);
}

void TestSharedUtils::userIdIsSharedAndStable()
{
    QVERIFY(!QFileInfo::exists(makerStoreFile()));
    useTemporaryStore();
    const QString id = getUserID();
    QVERIFY(QRegularExpression("^[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}$").match(id).hasMatch());
    QCOMPARE(getUserID(), id);

    // Stored in the maker's own store, not in the product's nor in the temporary one.
    QCOMPARE(QSettings(makerStoreFile(), QSettings::IniFormat).value("UserID").toString(), id);
    QVERIFY(!m_store->contains("UserID"));
    QVERIFY(!systemStore().contains("UserID"));
    QVERIFY(makerStoreFile() != systemStore().fileName());

    installSystemStore();
    QCOMPARE(getUserID(), id);
}

void TestSharedUtils::reseller_data()
{
    QTest::addColumn<bool>("store");
    QTest::addColumn<QString>("expected");
    QTest::newRow("absent") << false << "vexa";
    QTest::newRow("VEXA_RESELLER_ID_PLACEHOLDER") << true << "vexa";
    QTest::newRow("vexa_reseller_id_placeholder") << true << "vexa_reseller_id_placeholder";
    QTest::newRow("partner-42") << true << "partner-42";
    QTest::newRow("") << true << "";
}

void TestSharedUtils::reseller()
{
    QFETCH(bool, store);
    QFETCH(QString, expected);
    if (store)
        setResellerID(QTest::currentDataTag());
    QCOMPARE(getResellerID(), expected);
    if (store) // the placeholder is reported as "vexa" but stays stored
        QCOMPARE(CSettings().value("resellerId").toString(), QString(QTest::currentDataTag()));
}

void TestSharedUtils::flagRule_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<bool>("expected");
    QTest::newRow("absent") << QVariant() << true;
    QTest::newRow("text 0") << QVariant("0") << false;
    QTest::newRow("integer 0") << QVariant(0) << false;
    QTest::newRow("text 1") << QVariant("1") << true;
    QTest::newRow("false") << QVariant("false") << true;
    QTest::newRow("no") << QVariant("no") << true;
    QTest::newRow("empty") << QVariant("") << true;
    QTest::newRow("boolean false") << QVariant(false) << true;
    QTest::newRow("00") << QVariant("00") << true;
}

void TestSharedUtils::flagRule()
{
    QFETCH(QVariant, stored);
    QFETCH(bool, expected);
    for (const char* key : {"UseActionSave", "loggerEnabled", "VexaSendStat", "VexaSentCrashReport"}) {
        if (stored.isValid())
            systemStore().setValue(key, stored);
    }
    systemStore().sync();
    QCOMPARE(useActionSave(), expected);
    QCOMPARE(isLoggerEnabled(), expected);
    QCOMPARE(isStatisticSent(), expected);
    QCOMPARE(crashReportSendingAllowed(), expected);
}

void TestSharedUtils::flagsDefaultToOn()
{
    for (bool temporary : {false, true}) {
        if (temporary)
            useTemporaryStore();
        QVERIFY(isStatisticSent());
        QVERIFY(crashReportSendingAllowed());
        setStatisticSent(false);
        allowCrashReportSending(false);
        QVERIFY(!isStatisticSent());
        QVERIFY(!crashReportSendingAllowed());
        QCOMPARE(CSettings().value("VexaSendStat").toString(), QString("0"));
        setStatisticSent(true);
        allowCrashReportSending(true);
        QCOMPARE(CSettings().value("VexaSentCrashReport").toString(), QString("1"));
        QVERIFY(isStatisticSent());
        QVERIFY(crashReportSendingAllowed());
        setStatisticSent(false);
    }
}

void TestSharedUtils::loggerKeysAreReadFromTheSystemStoreOnly()
{
    QCOMPARE(getLogLevel(), QString("D"));
    QVERIFY(isLoggerEnabled());
    setLogLevel("E");
    setLoggerEnabled(false);
    QCOMPARE(getLogLevel(), QString("E"));
    QVERIFY(!isLoggerEnabled());
    QCOMPARE(systemStore().value("loggerEnabled").toString(), QString("0"));

    // Under a temporary store the writes land there and the reads do not see them.
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

UTILSDLL_TEST_MAIN(TestSharedUtils)
#include "tst_sharedutils.moc"
