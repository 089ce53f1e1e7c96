#include "QtSoapNamespaces.h"

namespace VEXA_NAMESPACE {

QtSoapNamespaces& QtSoapNamespaces::instance()
{
    static QtSoapNamespaces table;
    return table;
}

void QtSoapNamespaces::registerNamespace(const QString& prefix, const QString& uri)
{
    namespaceMap[uri] = prefix;
}

QString QtSoapNamespaces::prefixFor(const QString& uri)
{
    return namespaceMap.value(uri);
}

} // namespace VEXA_NAMESPACE
