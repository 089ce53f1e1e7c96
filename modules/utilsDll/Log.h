#pragma once

#include "LoggerInterface.h"

#include <QByteArray>
#include <QString>

#include <sstream>
#include <string>

/// \file
/// \brief The log statements LOG_D and LOG_E and the never-fatal ASSERT macros.

namespace VEXA_NAMESPACE {

/// \brief Builds one log line in a string stream for VEXA_LOG.
///
/// Qt texts enter through QString::toStdString(), so they are written as UTF-8.
class LogLineBuilder
{
public:
    /// Appends \p value as \c std::ostream writes it.
    template <class T>
    LogLineBuilder& operator<<(const T& value)
    {
        m_stream << value;
        return *this;
    }
    /// Appends \p value as UTF-8.
    LogLineBuilder& operator<<(const QString& value)
    {
        m_stream << value.toStdString();
        return *this;
    }
    /// Appends the bytes of \p value as they are.
    LogLineBuilder& operator<<(const QByteArray& value)
    {
        m_stream << value.toStdString();
        return *this;
    }
    /// The line built so far.
    std::string str() const { return m_stream.str(); }

private:
    std::ostringstream m_stream;
};

/// Writes "ASSERT in <file> <line>" at level 'E' when a logger is installed, nothing
/// otherwise. Called by ASSERT.
UTILSDLL_EXPORT void reportAssert(const char* file, int line);
/// Writes "ASSERT_X in <file> <line>: <message>" at level 'E' when a logger is
/// installed, nothing otherwise. Called by ASSERT_X.
UTILSDLL_EXPORT void reportAssertX(const char* file, int line, const QString& message);

} // namespace VEXA_NAMESPACE

/// \brief The log statement: writes \p parts, joined with \c <<, as one line at \p level.
///
/// Skipped entirely, arguments unevaluated, while no logger is set (Vexa::s_logger).
/// The library adds no prefix and no time stamp; that is the logger's work.
#define VEXA_LOG(level, parts)                                                  \
    do {                                                                        \
        if (::VEXA_NAMESPACE::s_logger) {                                       \
            ::VEXA_NAMESPACE::LogLineBuilder vexaLogLine_;                      \
            vexaLogLine_ << parts;                                              \
            ::VEXA_NAMESPACE::s_logger->log(level, vexaLogLine_.str().c_str()); \
        }                                                                       \
    } while (false)

/// Logs \p parts at the information level 'D'; see VEXA_LOG.
#define LOG_D(parts) VEXA_LOG('D', parts)
/// Logs \p parts at the error level 'E'; see VEXA_LOG.
#define LOG_E(parts) VEXA_LOG('E', parts)

/// \brief Logs a line at level 'E' when \p condition is false.
///
/// Active in every build and never fatal: execution continues at the next statement,
/// so code after an ASSERT must survive a false condition. Without a logger it does
/// nothing.
#define ASSERT(condition)                                                       \
    do {                                                                        \
        if (!(condition))                                                       \
            ::VEXA_NAMESPACE::reportAssert(__FILE__, __LINE__);                 \
    } while (false)

/// Like ASSERT, with \p message (a QString) at the end of the line.
#define ASSERT_X(condition, message)                                            \
    do {                                                                        \
        if (!(condition))                                                       \
            ::VEXA_NAMESPACE::reportAssertX(__FILE__, __LINE__, message);       \
    } while (false)
