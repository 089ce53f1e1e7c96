#pragma once

#include <QByteArray>
#include <QString>

// Qt's DOM and the value tree both recurse once per element level, so a deeply
// nested document would overflow the stack before any error is found; a document
// type declaration lets a few bytes of entity text stand for any amount of markup or
// text, none of it visible to a scan of the raw bytes; and a reply of tiny items
// costs the DOM and the value tree a hundred times its own size. This pre-scan runs
// before the DOM sees the text and refuses those three cases only: whether the
// document is well-formed is left to the DOM, which reports its own errors.
//
// The text is read in the encoding the DOM will read it in (a byte-order mark, or a
// first '<' in UTF-16 or UTF-32, else UTF-8; then the encoding declaration), so counts are of decoded markup and not of
// bytes. The scan only tokenises: it does not check the markup, and where the text
// is not well-formed it may count more than the DOM would build, never less, since
// the DOM stops at the first error.
namespace XmlNestingGuard {

struct Refusal
{
    bool found = false;
    QString reason;
    int line = 0;     // 1-based, of the markup that was refused
    int column = 0;   // 1-based, in decoded characters
};

// maximumNodes bounds elements, attributes, texts, comments, processing
// instructions, CDATA sections and entity references together.
Refusal findRefusal(const QByteArray& xml, int maximumDepth, int maximumNodes);

} // namespace XmlNestingGuard
