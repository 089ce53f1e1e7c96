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

} // namespace

class TestSharedUtils : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void firstLaunchAndCrashCounters();
    void userIdIsSharedAndStable();
    void reseller_data();
    void reseller();
    void flagRule_data();
    void flagRule();
    void setters();

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

void TestSharedUtils::firstLaunchAndCrashCounters()
{
    QVERIFY(isFirstLaunch());
    setNotFirstLaunch();
    QVERIFY(!isFirstLaunch());
    systemStore().setValue("app_launched", 0); // presence counts, not the value
    QVERIFY(!isFirstLaunch());

    QCOMPARE(crashCounterForPlugin("PS"), 0);
    QCOMPARE(getLastLaunchMode(), QString());
    incrementCrashCounter(); // no mode stored: the bare key
    QVERIFY(CSettings().contains("crashCounter_"));
    setLastLaunchMode("PS");
    QCOMPARE(getLastLaunchMode(), QString("PS"));
    incrementCrashCounter();
    incrementCrashCounter();
    QCOMPARE(crashCounterForPlugin("PS"), 2);
    QCOMPARE(crashCounterForPlugin("LR"), 0);
    crashCounterReset("PS");
    QVERIFY(!CSettings().contains("crashCounter_PS"));
    QCOMPARE(crashCounterForPlugin(""), 1);
    setLastLaunchMode("any text at all"); // not checked against the known modes
    incrementCrashCounter();
    QCOMPARE(crashCounterForPlugin("any text at all"), 1);

    // A temporary store starts as a first launch, however often the product ran.
    useTemporaryStore();
    QVERIFY(isFirstLaunch());
    QCOMPARE(crashCounterForPlugin("any text at all"), 0);
    setNotFirstLaunch();
    QVERIFY(!isFirstLaunch());
}

void TestSharedUtils::userIdIsSharedAndStable()
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
    QCOMPARE(getLogLevel(), QString("D"));
}

void TestSharedUtils::setters()
{
    // The setters store "0" and "1"; the statistics and crash flags follow the active store.
    for (bool temporary : {false, true}) {
        if (temporary)
            useTemporaryStore();
        QVERIFY(isStatisticSent() && crashReportSendingAllowed()); // on when absent
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

UTILSDLL_TEST_MAIN(TestSharedUtils)
#include "tst_sharedutils.moc"
