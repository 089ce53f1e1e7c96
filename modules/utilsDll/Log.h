#pragma once

#include "LoggerInterface.h"

#include <QByteArray>
#include <QString>

#include <sstream>
#include <string>

namespace VEXA_NAMESPACE {

// Builds one log line in a string stream; Qt texts enter through toStdString().
class LogLineBuilder
{
public:
    template <class T>
    LogLineBuilder& operator<<(const T& value)
    {
        m_stream << value;
        return *this;
    }
    LogLineBuilder& operator<<(const QString& value)
    {
        m_stream << value.toStdString();
        return *this;
    }
    LogLineBuilder& operator<<(const QByteArray& value)
    {
        m_stream << value.toStdString();
        return *this;
    }
    std::string str() const { return m_stream.str(); }

private:
    std::ostringstream m_stream;
};

// Write "ASSERT in <file> <line>" / "ASSERT_X in <file> <line>: <message>" at level
// 'E' when a logger is installed; nothing otherwise.
UTILSDLL_EXPORT void reportAssert(const char* file, int line);
UTILSDLL_EXPORT void reportAssertX(const char* file, int line, const QString& message);

} // namespace VEXA_NAMESPACE

// The log statement: skipped entirely, arguments unevaluated, while no logger is set.
#define VEXA_LOG(level, parts)                                                  \
    do {                                                                        \
        if (::VEXA_NAMESPACE::s_logger) {                                       \
            ::VEXA_NAMESPACE::LogLineBuilder vexaLogLine_;                      \
            vexaLogLine_ << parts;                                              \
            ::VEXA_NAMESPACE::s_logger->log(level, vexaLogLine_.str().c_str()); \
        }                                                                       \
    } while (false)

#define LOG_D(parts) VEXA_LOG('D', parts)
#define LOG_E(parts) VEXA_LOG('E', parts)

// Active in every build and never fatal: execution continues at the next statement,
// so code after an ASSERT must survive a false condition.
#define ASSERT(condition)                                                       \
    do {                                                                        \
        if (!(condition))                                                       \
            ::VEXA_NAMESPACE::reportAssert(__FILE__, __LINE__);                 \
    } while (false)

#define ASSERT_X(condition, message)                                            \
    do {                                                                        \
        if (!(condition))                                                       \
            ::VEXA_NAMESPACE::reportAssertX(__FILE__, __LINE__, message);       \
    } while (false)
