#pragma once

#include "UtilsDllGlobal.h"

#include <QMap>
#include <QString>

namespace VEXA_NAMESPACE {

// Process-wide table from namespace URI to the prefix written on the wire. It is
// empty until the first QtSoapMessage registers the SOAP and schema namespaces.
// Shared and unlocked: messages fill it safely from any thread, but a caller's own
// registration must come before messages are built on several threads.
class UTILSDLL_EXPORT QtSoapNamespaces
{
public:
    QtSoapNamespaces(const QtSoapNamespaces&) = default;
    QtSoapNamespaces(QtSoapNamespaces&&) = default;
    QtSoapNamespaces& operator=(const QtSoapNamespaces&) = default;
    QtSoapNamespaces& operator=(QtSoapNamespaces&&) = default;

    static QtSoapNamespaces& instance();

    // A second registration of the same URI replaces its prefix silently.
    void registerNamespace(const QString& prefix, const QString& uri);
    // Exact, case-sensitive match; an unknown URI gives an empty prefix.
    QString prefixFor(const QString& uri);

private:
    QtSoapNamespaces() = default;

    QMap<QString, QString> namespaceMap;
};

} // namespace VEXA_NAMESPACE
