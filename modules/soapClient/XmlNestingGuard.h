#pragma once

#include <QByteArray>
#include <QString>

// Qt's DOM and the value tree both recurse once per element level, so a deeply
// nested document would overflow the stack before any error is found; and a
// document type declaration lets a few bytes of entity text stand for any amount
// of markup or text, none of it visible to a scan of the raw bytes. This pre-scan
// runs before the DOM sees the text. It reads the document with QXmlStreamReader,
// which decodes every encoding the DOM accepts, so depth is counted on the decoded
// elements and not on bytes, and it stops at the first document type declaration
// (SOAP forbids one in a message) before any entity can be expanded.
namespace XmlNestingGuard {

struct Refusal
{
    bool found = false;
    QString reason;
    int line = 0;     // 1-based, where the reader stood when it refused
    int column = 0;   // 1-based, in decoded characters
};

Refusal findRefusal(const QByteArray& xml, int maximumDepth);

} // namespace XmlNestingGuard
