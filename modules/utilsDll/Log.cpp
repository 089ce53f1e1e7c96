#include "Log.h"

namespace VEXA_NAMESPACE {

ILoggerInterface* s_logger = nullptr;

void reportAssert(const char* file, int line)
{
    if (!s_logger)
        return;
    const QString text = QString("ASSERT in %1 %2").arg(QString::fromLocal8Bit(file), QString::number(line));
    s_logger->log('E', text.toStdString().c_str());
}

void reportAssertX(const char* file, int line, const QString& message)
{
    if (!s_logger)
        return;
    // One multi-argument arg() so that a '%' in the path or message is not re-expanded.
    const QString text = QString("ASSERT_X in %1 %2: %3")
                             .arg(QString::fromLocal8Bit(file), QString::number(line), message);
    s_logger->log('E', text.toStdString().c_str());
}

} // namespace VEXA_NAMESPACE
