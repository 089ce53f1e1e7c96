#include "QtSoapNamespaces.h"

#include "SoapNames_p.h"

#include <atomic>

namespace {

// Starts at 1 so that a cache that has seen no version yet is always out of date.
std::atomic<unsigned> tableVersion{1};

} // namespace

unsigned SoapNames::namespaceTableVersion()
{
    return tableVersion.load(std::memory_order_relaxed);
}

namespace VEXA_NAMESPACE {

QtSoapNamespaces& QtSoapNamespaces::instance()
{
    static QtSoapNamespaces table;
    return table;
}

void QtSoapNamespaces::registerNamespace(const QString& prefix, const QString& uri)
{
    // Every message construction registers the same four prefixes again, from any
    // thread: a registration that changes nothing only reads, so those threads share
    // no write. Only a real change makes the cached names out of date.
    const auto found = namespaceMap.constFind(uri);
    if (found != namespaceMap.constEnd() && *found == prefix && found->isNull() == prefix.isNull())
        return;
    namespaceMap.insert(uri, prefix);
    ++tableVersion;
}

QString QtSoapNamespaces::prefixFor(const QString& uri)
{
    return namespaceMap.value(uri);
}

} // namespace VEXA_NAMESPACE
