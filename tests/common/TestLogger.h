#pragma once

#include "LoggerInterface.h"

#include <QMutex>
#include <QString>
#include <QStringList>

namespace UtilsDllTest {

// Records every line the library logs. While a ScopedTestLogger lives it is the
// process-wide logger; the previous one comes back afterwards.
class TestLogger : public Vexa::ILoggerInterface
{
public:
    bool initialize(const std::string& folder, const std::string& logName, char level) override;
    void log(char level, const char* text) override;

    // Lines as "<level> <text>", in the order received.
    QStringList lines() const;
    QStringList linesAt(char level) const;
    void clear();

    int initializeCalls() const;

private:
    mutable QMutex m_mutex;
    QStringList m_lines;
    int m_initializeCalls = 0;
};

class ScopedTestLogger
{
public:
    ScopedTestLogger();
    ~ScopedTestLogger();
    ScopedTestLogger(const ScopedTestLogger&) = delete;
    ScopedTestLogger& operator=(const ScopedTestLogger&) = delete;

    TestLogger& logger() { return m_logger; }
    TestLogger* operator->() { return &m_logger; }

private:
    TestLogger m_logger;
    Vexa::ILoggerInterface* m_previous;
};

} // namespace UtilsDllTest
