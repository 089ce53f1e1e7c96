#include "XmlNestingGuard.h"

#include <QXmlStreamReader>

namespace XmlNestingGuard {

namespace {

Refusal refusalAt(const QXmlStreamReader& reader, const QString& reason)
{
    Refusal refusal;
    refusal.found = true;
    refusal.reason = reason;
    refusal.line = int(reader.lineNumber());
    refusal.column = int(reader.columnNumber()) + 1;
    return refusal;
}

} // namespace

Refusal findRefusal(const QByteArray& xml, int maximumDepth)
{
    QXmlStreamReader reader(xml);
    // Prefixes are the DOM's business; an undeclared one must not end the scan early.
    reader.setNamespaceProcessing(false);
    int depth = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::DTD:
            return refusalAt(reader, QStringLiteral("document type declarations are not allowed in a SOAP message"));
        case QXmlStreamReader::StartElement:
            if (++depth > maximumDepth)
                return refusalAt(reader, QStringLiteral("elements nested deeper than %1 levels").arg(maximumDepth));
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            break;
        }
    }
    // A document cut short was read to its end, so its depth is known, and the DOM
    // gives the usual message for it. Any other error leaves the rest of the text
    // unread, and so unchecked: the document is refused with the reader's message.
    if (reader.hasError() && reader.error() != QXmlStreamReader::PrematureEndOfDocumentError)
        return refusalAt(reader, reader.errorString());
    return Refusal();
}

} // namespace XmlNestingGuard
