// Starts the logger as an embedding executable does, for tst_loggerbootstrap.
//   logger_probe [--pass-logger] [--then-pass-logger] [--assert] [--threads N --lines M]

#include "Log.h"
#include "LoggerBootstrap.h"

#include <QCoreApplication>
#include <QStringList>

#include <iostream>
#include <thread>
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
    return !logger ? "null" : logger == first ? "first" : logger == second ? "second" : "module";
}

void logFromThreads(int threadCount, int lineCount)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < threadCount; ++t) {
        threads.emplace_back([t, lineCount] {
            for (int i = 0; i < lineCount; ++i)
                LOG_D("thread " << t << " line " << i << " " << QString("payload-%1").arg(i));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
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
