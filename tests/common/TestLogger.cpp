#include "TestLogger.h"

#include <QMutexLocker>

namespace UtilsDllTest {

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
    for (const QString& line : lines())
        if (line.at(0) == QChar(level))
            result << line.mid(2);
    return result;
}

void TestLogger::clear()
{
    QMutexLocker lock(&m_mutex);
    m_lines.clear();
}

} // namespace UtilsDllTest
