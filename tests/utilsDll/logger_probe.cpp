// Starts the logger the way an embedding executable does, for tst_loggerbootstrap,
// which runs it in a fresh HOME and reads its output streams and log file.
//
//   logger_probe [--pass-logger] [--then-pass-logger] [--assert]
//                [--threads N --lines M]

#include "Log.h"
#include "LoggerBootstrap.h"

#include <QCoreApplication>
#include <QStringList>
#include <QThread>

#include <iostream>
#include <vector>

namespace {

class ProbeLogger : public Vexa::ILoggerInterface
{
public:
    explicit ProbeLogger(const char* name) : m_name(name) {}
    bool initialize(const std::string&, const std::string&, char) override
    {
        std::cout << m_name << ".initialize" << std::endl;
        return true;
    }
    void log(char level, const char* text) override { std::cout << m_name << ".log " << level << ' ' << text << std::endl; }
    const char* m_name;
};

const char* describe(Vexa::ILoggerInterface* logger, Vexa::ILoggerInterface* first, Vexa::ILoggerInterface* second)
{
    if (!logger)
        return "null";
    if (logger == first)
        return "first";
    if (logger == second)
        return "second";
    return "module";
}

void logFromThreads(int threadCount, int lineCount)
{
    std::vector<QThread*> threads;
    for (int t = 0; t < threadCount; ++t) {
        threads.push_back(QThread::create([t, lineCount] {
            for (int i = 0; i < lineCount; ++i)
                LOG_D("thread " << t << " line " << i << " " << QString("payload-%1").arg(i));
        }));
        threads.back()->start();
    }
    for (QThread* thread : threads) {
        thread->wait();
        delete thread;
    }
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    ProbeLogger first("first");
    ProbeLogger second("second");

    Vexa::ILoggerInterface* given = args.contains("--pass-logger") ? &first : nullptr;
    Vexa::ILoggerInterface* result = Vexa::initLoggerForUtilsDll(given, "probe.log");
    std::cout << "result: " << describe(result, &first, &second) << std::endl;
    if (args.contains("--then-pass-logger")) {
        result = Vexa::initLoggerForUtilsDll(&second, "other.log");
        std::cout << "again: " << describe(result, &first, &second) << std::endl;
    }
    if (args.contains("--assert"))
        ASSERT(args.isEmpty()); // LINE_OF_PROBE_ASSERT
    const int threads = args.indexOf("--threads");
    if (threads > 0)
        logFromThreads(args.value(threads + 1).toInt(), args.value(args.indexOf("--lines") + 1).toInt());
    return 0;
}
