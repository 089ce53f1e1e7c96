#pragma once

#include "LoggerInterface.h"

#include <QMutex>
#include <QStringList>

namespace UtilsDllTest {

// Records every line the library logs. While a ScopedTestLogger lives it is the
// process-wide logger; the previous one comes back afterwards.
class TestLogger : public Vexa::ILoggerInterface
{
public:
    bool initialize(const std::string&, const std::string&, char) override { return true; }
    void log(char level, const char* text) override;

    // Lines as "<level> <text>", in the order received.
    QStringList lines() const;
    QStringList linesAt(char level) const;
    void clear();

private:
    mutable QMutex m_mutex;
    QStringList m_lines;
};

class ScopedTestLogger
{
public:
    ScopedTestLogger() : m_previous(Vexa::s_logger) { Vexa::s_logger = &m_logger; }
    ~ScopedTestLogger() { Vexa::s_logger = m_previous; }
    ScopedTestLogger(const ScopedTestLogger&) = delete;
    ScopedTestLogger& operator=(const ScopedTestLogger&) = delete;

    TestLogger* operator->() { return &m_logger; }

private:
    TestLogger m_logger;
    Vexa::ILoggerInterface* m_previous;
};

} // namespace UtilsDllTest
