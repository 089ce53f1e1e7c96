#include "SoapNames_p.h"

#include "QtSoapNamespaces.h"

#include <QThreadStorage>

namespace SoapNames {

QString localName(const QString& text)
{
    const int colon = text.indexOf(QLatin1Char(':'));
    if (colon == 0)
        return text;
    return text.right(text.size() - colon - 1);
}

QStringView localNameView(QStringView text)
{
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    if (colon == 0)
        return text;
    return text.mid(colon + 1);
}

bool isPlainLowerCase(QStringView text)
{
    for (const QChar c : text) {
        const ushort code = c.unicode();
        if (code <= 0x20 || code >= 0x7f || (code >= 'A' && code <= 'Z'))
            return false;
    }
    return true;
}

QDomElement createNamedElement(QDomDocument& doc, const QString& name, const QString& uri)
{
    if (uri == QLatin1String(""))
        return doc.createElement(name);
    const QString prefix = VEXA_NAMESPACE::QtSoapNamespaces::instance().prefixFor(uri);
    return doc.createElementNS(uri, prefix + QLatin1Char(':') + name);
}

QString qualifiedAttributeName(const QString& uri, const QString& localPart)
{
    return VEXA_NAMESPACE::QtSoapNamespaces::instance().prefixFor(uri) + QLatin1Char(':') + localPart;
}

const QString& schemaInstanceTypeName()
{
    // Per thread, so that this cache adds no sharing of its own; in Qt's thread storage,
    // as thread_local objects with destructors crash thread exits in the MinGW-built DLL.
    struct Cache
    {
        unsigned builtFor = 0;
        QString name;
    };
    static QThreadStorage<Cache> caches;
    Cache& cache = caches.localData();
    const unsigned version = namespaceTableVersion();
    if (cache.builtFor != version) {
        cache.name = qualifiedAttributeName(schemaInstanceUri(), QStringLiteral("type"));
        cache.builtFor = version;
    }
    return cache.name;
}

} // namespace SoapNames
