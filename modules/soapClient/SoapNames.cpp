#include "SoapNames.h"

#include "QtSoapNamespaces.h"

namespace SoapNames {

QString localName(const QString& text)
{
    const int colon = text.indexOf(QLatin1Char(':'));
    if (colon == 0)
        return text;
    return text.right(text.size() - colon - 1);
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

} // namespace SoapNames
