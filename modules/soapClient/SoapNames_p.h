#pragma once

#include "QtSoapType.h"

#include <QDomDocument>
#include <QString>
#include <QStringView>

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
// The same, as a view into the text, for look-ups that need no copy.
QStringView localNameView(QStringView text);

// A type name that the factory registers or nameToType accepts, kept as one shared
// string so that neither of them has to build or scan one for every scalar read.
struct KnownTypeName
{
    QString text;                       // lower case
    VEXA_NAMESPACE::QtSoapType::Type type; // what nameToType gives for it
};
// The entry whose text equals `lowerCaseName` exactly, or null.
const KnownTypeName* findKnownTypeName(QStringView lowerCaseName);
// True if the text has no capital, no blank and nothing beyond ASCII: lower-casing
// and trimming it would change nothing.
bool isPlainLowerCase(QStringView text);

// Creates an element for a value name: without a namespace when the URI is empty,
// otherwise qualified with the registered prefix (empty for an unknown URI, which
// makes the qualified name start with a colon; that is the wire text callers get).
QDomElement createNamedElement(QDomDocument& doc, const QString& name, const QString& uri);

// prefix + ":" + localPart, the prefix looked up for the URI.
QString qualifiedAttributeName(const QString& uri, const QString& localPart);

// qualifiedAttributeName(schemaInstanceUri(), "type"), which every scalar writes:
// built again only when the namespace table has changed since the last call.
const QString& schemaInstanceTypeName();

// Raised by every change of a prefix in the namespace table.
unsigned namespaceTableVersion();

// The shared "no such value" object of each look-up that hands out a mutable
// reference. Each is const and refuses every write (with a warning), so that threads
// looking up at once never share a write, whatever the caller does with the reference.
enum class MissingValue { TypeByString, TypeByName, TypeByIndex, StructByName, StructByIndex, ArrayByIndex, Count };
VEXA_NAMESPACE::QtSoapType& missingValue(MissingValue form);
// True, after a warning naming the operation, if `value` is one of those objects.
bool refusesWrite(const VEXA_NAMESPACE::QtSoapType* value, const char* operation);

} // namespace SoapNames
