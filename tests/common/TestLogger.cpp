#include "TestLogger.h"

#include <QMutexLocker>

namespace UtilsDllTest {

bool TestLogger::initialize(const std::string&, const std::string&, char)
{
    QMutexLocker lock(&m_mutex);
    ++m_initializeCalls;
    return true;
}

void TestLogger::log(char level, const char* text)
{
    QMutexLocker lock(&m_mutex);
    m_lines << QString(QChar(level)) + ' ' + QString::fromStdString(text);
}

QStringList TestLogger::lines() const
{
    QMutexLocker lock(&m_mutex);
    return m_lines;
}

QStringList TestLogger::linesAt(char level) const
{
    QStringList result;
    const QString prefix = QString(QChar(level)) + ' ';
    for (const QString& line : lines()) {
        if (line.startsWith(prefix))
            result << line.mid(2);
    }
    return result;
}

void TestLogger::clear()
{
    QMutexLocker lock(&m_mutex);
    m_lines.clear();
}

int TestLogger::initializeCalls() const
{
    QMutexLocker lock(&m_mutex);
    return m_initializeCalls;
}

ScopedTestLogger::ScopedTestLogger()
    : m_previous(Vexa::s_logger)
{
    Vexa::s_logger = &m_logger;
}

ScopedTestLogger::~ScopedTestLogger()
{
    Vexa::s_logger = m_previous;
}

} // namespace UtilsDllTest
