#pragma once

#include "UtilsDllGlobal.h"

#include <QMap>
#include <QString>

/// \file
/// \brief The table of namespace prefixes of SOAP messages.

namespace VEXA_NAMESPACE {

/// \brief Process-wide table from namespace URI to the prefix written on the wire.
///
/// It is empty until the first QtSoapMessage registers the SOAP and schema namespaces.
/// Shared and unlocked: messages fill it safely from any thread, but a caller's own
/// registration must come before messages are built on several threads.
class UTILSDLL_EXPORT QtSoapNamespaces
{
public:
    /// Copies the table.
    QtSoapNamespaces(const QtSoapNamespaces&) = default;
    /// Moves the table.
    QtSoapNamespaces(QtSoapNamespaces&&) = default;
    /// Copies the table.
    QtSoapNamespaces& operator=(const QtSoapNamespaces&) = default;
    /// Moves the table.
    QtSoapNamespaces& operator=(QtSoapNamespaces&&) = default;

    /// The process's table, built on the first call.
    static QtSoapNamespaces& instance();

    /// Writes \p prefix for \p uri from now on. A second registration of the same URI
    /// replaces its prefix silently.
    void registerNamespace(const QString& prefix, const QString& uri);
    /// The prefix of \p uri. Exact, case-sensitive match; an unknown URI gives an empty
    /// prefix.
    QString prefixFor(const QString& uri);

private:
    QtSoapNamespaces() = default;

    QMap<QString, QString> namespaceMap;
};

} // namespace VEXA_NAMESPACE
