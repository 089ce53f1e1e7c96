#pragma once

#include <QByteArray>

// Qt's DOM parser and the value tree both recurse once per element level, so a
// deeply nested document would overflow the stack before any error is found.
// This scan runs before the DOM sees the text and finds the first place where
// element nesting passes the limit. It counts conservatively: comments, CDATA,
// processing instructions, declarations and quoted attribute values are skipped,
// and the depth never goes below zero, so stray end tags cannot hide real depth.
namespace XmlNestingGuard {

struct Excess
{
    bool found = false;
    int line = 0;     // 1-based, of the start tag that went too deep
    int column = 0;   // 1-based, in bytes
};

Excess findExcessiveNesting(const QByteArray& xml, int maximumDepth);

} // namespace XmlNestingGuard
