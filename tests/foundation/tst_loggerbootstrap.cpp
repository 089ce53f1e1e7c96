#include "TestEnvironment.h"

namespace {

QStringList readLines(const QString& path, Qt::SplitBehavior behavior = Qt::SkipEmptyParts)
{
    QFile file(path);
    // QIODevice::Text: the module's files end their lines with CR LF on Windows.
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll()).split('\n', behavior) : QStringList();
}

QString probeAssertLine()
{
    const int line = readLines(PROBE_SOURCE, Qt::KeepEmptyParts).indexOf(QRegularExpression(".*// LINE_OF_PROBE_ASSERT"));
    return QString("ASSERT in %1 %2").arg(PROBE_SOURCE).arg(line + 1);
}

} // namespace

// Each case runs a probe program in a home of its own, since the logger is set once
// per process and the bootstrap writes to the standard streams.
class TestLoggerBootstrap : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_root = std::make_unique<QTemporaryDir>();
        QVERIFY(m_root->isValid());
#ifdef Q_OS_WIN
        // The probes share this test's Wine prefix, its registry and known folders.
        QSettings("Vexa Labs", "Vexa Rectivo 3").clear();
        QDir(logsFolder()).removeRecursively();
#endif
    }

    void nothingIsLoaded_data()
    {
        QTest::addColumn<QString>("probe");
        QTest::addColumn<QString>("loggerEnabled"); // a null text stores nothing
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("out");
        QTest::addColumn<QString>("err");
        // Disabled: no logger at all, not even a passed one, and not a word on either stream.
        QTest::newRow("disabled") << PROBE_WITH_RECORDER << "0" << QStringList{"--pass-logger", "--then-pass-logger"}
                                  << "result: null\nagain: null\n" << "";
        // A passed logger is neither initialised nor given a header; the second one is refused.
        QTest::newRow("passed logger") << PROBE_WITH_RECORDER << QString()
                                       << QStringList{"--pass-logger", "--then-pass-logger", "--assert"}
                                       << "result: first\nagain: first\nfirst.log E " + probeAssertLine() + "\n" << "";
        // One message for every cause, with its two blanks before the file name.
        QTest::newRow("missing module") << PROBE_WITHOUT_MODULE << QString() << QStringList{"--then-pass-logger"}
                                        << "result: null\nagain: second\n"
                                        << "***ERROR*** logger dll could not be loaded from  " LOGGER_MODULE_NAME "\n";
    }
    void nothingIsLoaded()
    {
        QFETCH(QString, probe);
        QFETCH(QString, loggerEnabled);
        QFETCH(QStringList, arguments);
        QFETCH(QString, out);
        QFETCH(QString, err);
        if (!loggerEnabled.isNull())
            storeSystemValue("loggerEnabled", loggerEnabled);
        QCOMPARE(run(qPrintable(probe), arguments), out);
        QCOMPARE(m_err, err);
        QVERIFY(!QFile::exists(recordFile()));
        QVERIFY(!QDir(logsFolder()).exists());
    }

    void moduleReceivesFolderNameLevelAndHeader_data()
    {
        QTest::addColumn<QString>("storedLevel"); // a null text stores nothing
        QTest::addColumn<int>("levelCode");
        QTest::newRow("absent") << QString() << int('D');
        QTest::newRow("long text: its first letter") << "Error" << int('E');
        QTest::newRow("beyond 8 bits") << QString::fromUtf8("\u0416x") << 0;
    }
    void moduleReceivesFolderNameLevelAndHeader()
    {
        QFETCH(QString, storedLevel);
        QFETCH(int, levelCode);
        if (!storedLevel.isNull())
            storeSystemValue("loggerLevel", storedLevel);
        const QString shownLevel = storedLevel.isNull() ? QString("D") : storedLevel;
        QCOMPARE(run(PROBE_WITH_RECORDER, {}), QString("Initializing logger in %1 / %2\nresult: module\n").arg(logsFolder(), shownLevel));
        QCOMPARE(m_err, QString());

        const QStringList record = readLines(recordFile());
        QCOMPARE(record.size(), 6);
        QCOMPARE(record.mid(0, 2), (QStringList{"loaded", QString("initialize|%1|probe.log|%2").arg(logsFolder()).arg(levelCode)}));
        QVERIFY(QRegularExpression(R"(^log\|D\|Current time \(UTC\): \d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$)").match(record[2]).hasMatch());
        QCOMPARE(record.mid(3), (QStringList{"log|D|Vexa Rectivo 3 Version: 3.2.0.254", "log|D|UID: " + userId(),
                                             "log|D|CE version: 9.1.4.2102231203"}));
    }

    void realModuleWritesEveryLineFromManyThreads()
    {
        constexpr int threads = 8;
        constexpr int lines = 500;
        QCOMPARE(run(PROBE_WITH_MODULE, {"--assert", "--threads", QString::number(threads), "--lines", QString::number(lines)}),
                 QString("Initializing logger in %1 / D\nresult: module\n").arg(logsFolder()));
        QCOMPARE(m_err, QString());

        // Four header lines, the assertion, then every thread line whole.
        const QStringList log = readLines(logsFolder() + "probe.log");
        QCOMPARE(log.size(), 4 + 1 + threads * lines);
        QVERIFY2(log[4].endsWith(" E " + probeAssertLine()), qPrintable(log[4]));
        const QRegularExpression threadLine(R"(^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} D thread (\d+) line (\d+) payload-(\d+)$)");
        QSet<QString> seen;
        for (const QString& line : log.mid(5)) {
            const QRegularExpressionMatch match = threadLine.match(line);
            QVERIFY2(match.hasMatch() && match.captured(2) == match.captured(3), qPrintable(line));
            seen.insert(match.captured(1) + '/' + match.captured(2));
        }
        QCOMPARE(seen.size(), threads * lines);
    }

private:
    // Runs the probe; returns its standard output, with its error stream in m_err.
    QString run(const char* probe, const QStringList& arguments)
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
        const bool finished = process.waitForFinished(60000) && process.exitCode() == 0;
        // The streams are in text mode: Windows ends their lines with CR LF.
        m_err = QString::fromUtf8(process.readAllStandardError()).replace("\r\n", "\n");
        return finished ? QString::fromUtf8(process.readAllStandardOutput()).replace("\r\n", "\n") : QString("probe failed");
    }

#ifdef Q_OS_WIN
    void storeSystemValue(const QString& key, const QString& value) { QSettings("Vexa Labs", "Vexa Rectivo 3").setValue(key, value); }
    QString logsFolder() const
    {
        return QDir::toNativeSeparators(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                                        + "/Vexa_Labs/Vexa Rectivo 3/Logs/");
    }
    QString userId() const { return QSettings("HKEY_CURRENT_USER\\Software\\VexaLabs", QSettings::NativeFormat).value("UserID").toString(); }
#else
    void storeSystemValue(const QString& key, const QString& value)
    {
        QSettings(m_root->path() + "/config/Vexa Labs/Vexa Rectivo 3.conf", QSettings::IniFormat).setValue(key, value);
    }
    QString logsFolder() const { return m_root->path() + "/data/Vexa_Labs/Vexa Rectivo 3/Logs/"; }
    QString userId() const
    {
        return QSettings(m_root->path() + "/config/VexaLabs.conf", QSettings::IniFormat).value("UserID").toString();
    }
#endif
    QString recordFile() const { return m_root->path() + "/record.txt"; }

    std::unique_ptr<QTemporaryDir> m_root;
    QString m_err;
};

UTILSDLL_TEST_MAIN(TestLoggerBootstrap)
#include "tst_loggerbootstrap.moc"
