#include "TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>
#include <QTemporaryDir>

namespace {

struct ProbeRun
{
    QString out;
    QString err;
    int exitCode = -1;
};

QStringList readLines(const QString& path, Qt::SplitBehavior behavior = Qt::SkipEmptyParts)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split('\n', behavior);
}

int lineOfProbeAssert()
{
    const QStringList lines = readLines(PROBE_SOURCE, Qt::KeepEmptyParts);
    for (int i = 0; i < lines.size(); ++i) {
        if (lines[i].contains("// LINE_OF_PROBE_ASSERT"))
            return i + 1;
    }
    return -1;
}

} // namespace

// Each case runs a probe program in a home of its own, since the logger is set once
// per process and the bootstrap writes to the standard streams.
class TestLoggerBootstrap : public QObject
{
    Q_OBJECT
private slots:
    void init();

    void disabledLoggerLoadsNothing();
    void passedLoggerIsTakenAsItIs();
    void missingModuleIsReportedAndRetried();
    void moduleReceivesFolderNameLevelAndHeader_data();
    void moduleReceivesFolderNameLevelAndHeader();
    void realModuleWritesEveryLineFromManyThreads();

private:
    ProbeRun run(const char* probe, const QStringList& arguments);
    void storeSystemValue(const QString& key, const QString& value);
    QString logsFolder() const { return m_root->path() + "/data/Vexa_Labs/Vexa Rectivo 3/Logs/"; }
    QString recordFile() const { return m_root->path() + "/record.txt"; }
    QString userId() const
    {
        return QSettings(m_root->path() + "/config/VexaLabs.conf", QSettings::IniFormat).value("UserID").toString();
    }

    std::unique_ptr<QTemporaryDir> m_root;
};

void TestLoggerBootstrap::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    QVERIFY(m_root->isValid());
}

ProbeRun TestLoggerBootstrap::run(const char* probe, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", m_root->path());
    environment.insert("XDG_CONFIG_HOME", m_root->path() + "/config");
    environment.insert("XDG_DATA_HOME", m_root->path() + "/data");
    environment.insert("UTILSDLL_RECORDING_LOGGER", recordFile());
    environment.remove("LD_LIBRARY_PATH");
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(probe, arguments);
    ProbeRun result;
    if (!process.waitForFinished(60000))
        return result;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    result.exitCode = process.exitCode();
    return result;
}

void TestLoggerBootstrap::storeSystemValue(const QString& key, const QString& value)
{
    QSettings store(m_root->path() + "/config/Vexa Labs/Vexa Rectivo 3.conf", QSettings::IniFormat);
    store.setValue(key, value);
}

void TestLoggerBootstrap::disabledLoggerLoadsNothing()
{
    storeSystemValue("loggerEnabled", "0");
    const ProbeRun probe = run(PROBE_WITH_RECORDER, {"--pass-logger", "--then-pass-logger"});
    QCOMPARE(probe.exitCode, 0);
    QCOMPARE(probe.out, QString("result: null\nagain: null\n"));
    QCOMPARE(probe.err, QString());
    QVERIFY(!QFile::exists(recordFile()));
    QVERIFY(!QDir(logsFolder()).exists());
}

void TestLoggerBootstrap::passedLoggerIsTakenAsItIs()
{
    const ProbeRun probe = run(PROBE_WITH_RECORDER, {"--pass-logger", "--then-pass-logger", "--assert"});
    QCOMPARE(probe.exitCode, 0);
    // Neither initialised nor given a header; the second logger is refused.
    QCOMPARE(probe.out.section('\n', 0, 1), QString("result: first\nagain: first"));
    QVERIFY(!probe.out.contains("initialize"));
    QVERIFY(!probe.out.contains("first.log D"));
    QCOMPARE(probe.out.section('\n', 2, 2),
             QString("first.log E ASSERT in %1 %2").arg(PROBE_SOURCE).arg(lineOfProbeAssert()));
    QVERIFY(!QFile::exists(recordFile()));
}

void TestLoggerBootstrap::missingModuleIsReportedAndRetried()
{
    const ProbeRun probe = run(PROBE_WITHOUT_MODULE, {"--then-pass-logger"});
    QCOMPARE(probe.exitCode, 0);
    QCOMPARE(probe.err, QString("***ERROR*** logger dll could not be loaded from  LoggerDllvrcv3.dll\n"));
    QCOMPARE(probe.out, QString("result: null\nagain: second\n"));
}

void TestLoggerBootstrap::moduleReceivesFolderNameLevelAndHeader_data()
{
    QTest::addColumn<QString>("storedLevel"); // a null text stores nothing
    QTest::addColumn<QString>("shownLevel");
    QTest::addColumn<int>("levelCode");
    QTest::newRow("absent") << QString() << "D" << int('D');
    QTest::newRow("long text") << "Debug" << "Debug" << int('D');
    QTest::newRow("error") << "E" << "E" << int('E');
    QTest::newRow("empty") << "" << "" << 0;
    QTest::newRow("latin-1") << QString::fromUtf8("\u00e9") << QString::fromUtf8("\u00e9") << 0xe9;
    QTest::newRow("beyond 8 bits") << QString::fromUtf8("\u0416x") << QString::fromUtf8("\u0416x") << 0;
}

void TestLoggerBootstrap::moduleReceivesFolderNameLevelAndHeader()
{
    QFETCH(QString, storedLevel);
    QFETCH(QString, shownLevel);
    QFETCH(int, levelCode);
    if (!storedLevel.isNull())
        storeSystemValue("loggerLevel", storedLevel);

    const ProbeRun probe = run(PROBE_WITH_RECORDER, {});
    QCOMPARE(probe.exitCode, 0);
    QCOMPARE(probe.err, QString());
    QCOMPARE(probe.out, QString("Initializing logger in %1 / %2\nresult: module\n").arg(logsFolder(), shownLevel));

    const QStringList record = readLines(recordFile());
    QCOMPARE(record.size(), 6);
    QCOMPARE(record[0], QString("loaded"));
    QCOMPARE(record[1], QString("initialize|%1|probe.log|%2").arg(logsFolder()).arg(levelCode));
    QVERIFY2(QRegularExpression(R"(^log\|D\|Current time \(UTC\): \d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$)")
                 .match(record[2]).hasMatch(), qPrintable(record[2]));
    QCOMPARE(record[3], QString("log|D|Vexa Rectivo 3 Version: 3.2.0.254"));
    QCOMPARE(record[4], "log|D|UID: " + userId());
    QVERIFY(!userId().isEmpty());
    QCOMPARE(record[5], QString("log|D|CE version: 9.1.4.2102231203"));
}

void TestLoggerBootstrap::realModuleWritesEveryLineFromManyThreads()
{
    constexpr int threads = 8;
    constexpr int lines = 500;
    const ProbeRun probe =
        run(PROBE_WITH_MODULE, {"--assert", "--threads", QString::number(threads), "--lines", QString::number(lines)});
    QCOMPARE(probe.exitCode, 0);
    QCOMPARE(probe.err, QString());
    QCOMPARE(probe.out, QString("Initializing logger in %1 / D\nresult: module\n").arg(logsFolder()));

    const QStringList log = readLines(logsFolder() + "probe.log");
    QCOMPARE(log.size(), 4 + 1 + threads * lines);
    const QString stamp = R"(^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} )";
    const QStringList header{
        R"(D Current time \(UTC\): \d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$)",
        R"(D Vexa Rectivo 3 Version: 3\.2\.0\.254$)",
        "D UID: " + QRegularExpression::escape(userId()) + "$",
        R"(D CE version: 9\.1\.4\.2102231203$)",
        "E " + QRegularExpression::escape(QString("ASSERT in %1 %2").arg(PROBE_SOURCE).arg(lineOfProbeAssert())) + "$",
    };
    for (int i = 0; i < header.size(); ++i)
        QVERIFY2(QRegularExpression(stamp + header[i]).match(log[i]).hasMatch(), qPrintable(log[i]));

    // Every line whole, none lost or doubled, whatever the interleaving.
    const QRegularExpression threadLine(stamp + R"(D thread (\d+) line (\d+) payload-(\d+)$)");
    QSet<QString> seen;
    for (int i = header.size(); i < log.size(); ++i) {
        const QRegularExpressionMatch match = threadLine.match(log[i]);
        QVERIFY2(match.hasMatch(), qPrintable(log[i]));
        QCOMPARE(match.captured(2), match.captured(3));
        seen.insert(match.captured(1) + '/' + match.captured(2));
    }
    QCOMPARE(seen.size(), threads * lines);
}

UTILSDLL_TEST_MAIN(TestLoggerBootstrap)
#include "tst_loggerbootstrap.moc"
