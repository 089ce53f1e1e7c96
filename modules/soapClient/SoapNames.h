#pragma once

#include <QDomDocument>
#include <QString>

// Internal helpers shared by the SOAP value classes and the message.
namespace SoapNames {

// Functions rather than globals so that they are safe during static initialisation.
inline QString envelopeUri() { return QStringLiteral("http://schemas.xmlsoap.org/soap/envelope/"); }
inline QString encodingUri() { return QStringLiteral("http://schemas.xmlsoap.org/soap/encoding/"); }
inline QString schemaInstanceUri() { return QStringLiteral("http://www.w3.org/1999/XMLSchema-instance"); }
inline QString schemaUri() { return QStringLiteral("http://www.w3.org/1999/XMLSchema"); }

// Reduces a tag or a type attribute to its local name: everything after the first
// colon. A leading colon is kept on purpose, so ":int" stays ":int" and names no
// known type.
QString localName(const QString& text);

// Creates an element for a value name: without a namespace when the URI is empty,
// otherwise qualified with the registered prefix (empty for an unknown URI, which
// makes the qualified name start with a colon; that is the wire text callers get).
QDomElement createNamedElement(QDomDocument& doc, const QString& name, const QString& uri);

// prefix + ":" + localPart, the prefix looked up for the URI.
QString qualifiedAttributeName(const QString& uri, const QString& localPart);

} // namespace SoapNames
