#include "XmlNestingGuard_p.h"

#include <QTextCodec>

#include <cstddef>
#include <cstring>

namespace XmlNestingGuard {

namespace {

const int utf8Mib = 106;

enum class Problem { None, DocumentType, Depth, Size };

struct Stop
{
    Problem problem = Problem::None;
    std::ptrdiff_t offset = 0; // of the '<' or '&' that was refused
};

template <typename Unit>
bool isXmlSpace(Unit c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

template <typename Unit>
bool startsWith(const Unit* p, const Unit* end, const char* ascii)
{
    const std::ptrdiff_t length = std::ptrdiff_t(std::strlen(ascii));
    if (end - p < length)
        return false;
    for (std::ptrdiff_t i = 0; i < length; ++i) {
        if (p[i] != Unit(ascii[i]))
            return false;
    }
    return true;
}

// Just past the first 'terminator' at or after p, or end.
template <typename Unit>
const Unit* skipPast(const Unit* p, const Unit* end, const char* terminator)
{
    const Unit first = Unit(terminator[0]);
    for (; p < end; ++p) {
        if (*p == first && startsWith(p, end, terminator))
            return p + std::strlen(terminator);
    }
    return end;
}

// Character references and the five predefined entities become part of the text;
// any other reference becomes a node of its own, and the text after it another.
template <typename Unit>
bool referenceMakesNode(const Unit* p, const Unit* end)
{
    return !(startsWith(p, end, "&#") || startsWith(p, end, "&amp;") || startsWith(p, end, "&lt;")
             || startsWith(p, end, "&gt;") || startsWith(p, end, "&quot;") || startsWith(p, end, "&apos;"));
}

template <typename Unit>
Stop scan(const Unit* const begin, const Unit* const end, int maximumDepth, int maximumNodes)
{
    const Unit* p = begin;
    int depth = 0;
    int nodes = 0;
    bool textCounted = false; // the current run of text has been counted
    while (p < end) {
        if (*p != '<') {
            if (*p == '&' && referenceMakesNode(p, end)) {
                if (++nodes > maximumNodes)
                    return {Problem::Size, p - begin};
                textCounted = false;
            } else if (!textCounted && !isXmlSpace(*p)) {
                // The DOM keeps no text made only of white space.
                if (++nodes > maximumNodes)
                    return {Problem::Size, p - begin};
                textCounted = true;
            }
            ++p;
            continue;
        }

        const Unit* const markup = p;
        textCounted = false;
        if (startsWith(p, end, "</")) {
            if (depth > 0)
                --depth;
            p = skipPast(p, end, ">");
            continue;
        }
        if (startsWith(p, end, "<!DOCTYPE"))
            return {Problem::DocumentType, markup - begin};
        if (++nodes > maximumNodes)
            return {Problem::Size, markup - begin};
        if (startsWith(p, end, "<?")) {
            p = skipPast(p, end, "?>");
        } else if (startsWith(p, end, "<!--")) {
            p = skipPast(p + 4, end, "-->");
        } else if (startsWith(p, end, "<![CDATA[")) {
            p = skipPast(p, end, "]]>");
        } else if (startsWith(p, end, "<!")) {
            p = skipPast(p, end, ">"); // not XML: the DOM will say so
        } else {
            // A start tag, up to its '>', stepping over quoted attribute values,
            // which may hold '>' and "/>" as text.
            if (++depth > maximumDepth)
                return {Problem::Depth, markup - begin};
            for (++p; p < end && *p != '>'; ++p) {
                if (*p == '"' || *p == '\'') {
                    if (++nodes > maximumNodes)
                        return {Problem::Size, markup - begin};
                    const Unit quote = *p;
                    for (++p; p < end && *p != quote;)
                        ++p;
                    if (p == end)
                        break;
                } else if (*p == '/' && p + 1 < end && p[1] == '>') {
                    --depth;
                }
            }
            if (p < end)
                ++p;
        }
    }
    return {};
}

// The encoding named by the XML declaration at the start of 'head', or an empty text.
// Read as the DOM's input source reads it: the first quoted value after "encoding"
// within the first tag.
QString declaredEncoding(QString head)
{
    if (head.startsWith(QChar(0xFEFF)))
        head.remove(0, 1);
    if (!head.startsWith(QLatin1String("<?xml")))
        return QString();
    const int tagEnd = head.indexOf(QLatin1Char('>'));
    int pos = head.indexOf(QLatin1String("encoding"));
    if (tagEnd < 0 || pos < 0 || pos >= tagEnd)
        return QString();
    while (pos < tagEnd && head.at(pos) != QLatin1Char('"') && head.at(pos) != QLatin1Char('\''))
        ++pos;
    const int valueEnd = pos < tagEnd ? head.indexOf(head.at(pos), pos + 1) : -1;
    if (valueEnd < 0 || valueEnd > tagEnd)
        return QString();
    return head.mid(pos + 1, valueEnd - pos - 1);
}

// The MIB number of the encoding the DOM starts reading 'xml' in: by a byte-order
// mark, or by the first character being '<' in UTF-32 or UTF-16, else UTF-8.
int initialMib(const QByteArray& xml)
{
    const auto byte = [&xml](int i) { return uchar(xml.at(i)); };
    if (xml.size() >= 4) {
        if ((byte(0) == 0 && byte(1) == 0 && byte(2) == 0xFE && byte(3) == 0xFF)
            || (byte(0) == 0xFF && byte(1) == 0xFE && byte(2) == 0 && byte(3) == 0))
            return 1017; // UTF-32 with a byte-order mark
        if (byte(0) == '<' && byte(1) == 0 && byte(2) == 0 && byte(3) == 0)
            return 1019; // UTF-32LE
        if (byte(0) == 0 && byte(1) == 0 && byte(2) == 0 && byte(3) == '<')
            return 1018; // UTF-32BE
    }
    if (xml.size() >= 2) {
        if ((byte(0) == 0xFE && byte(1) == 0xFF) || (byte(0) == 0xFF && byte(1) == 0xFE))
            return 1015; // UTF-16 with a byte-order mark
        if (byte(0) == '<' && byte(1) == 0)
            return 1014; // UTF-16LE
        if (byte(0) == 0 && byte(1) == '<')
            return 1013; // UTF-16BE
    }
    return utf8Mib;
}

// The codec the DOM reads 'xml' with: the initial one, replaced by the declared
// encoding when Qt knows it and it differs.
QTextCodec* documentCodec(const QByteArray& xml)
{
    const int mib = initialMib(xml);
    QTextCodec* const initial = QTextCodec::codecForMib(mib);
    const QString encoding = declaredEncoding(initial->toUnicode(xml.left(1024)));
    if (!encoding.isEmpty()) {
        QTextCodec* const declared = QTextCodec::codecForName(encoding.toLatin1());
        if (declared && declared->mibEnum() != mib)
            return declared;
    }
    return initial;
}

template <typename Unit>
Refusal refusalAt(const Unit* begin, const Stop& stop, int maximumDepth, int maximumNodes)
{
    Refusal refusal;
    refusal.found = true;
    switch (stop.problem) {
    case Problem::DocumentType:
        refusal.reason = QStringLiteral("document type declarations are not allowed in a SOAP message");
        break;
    case Problem::Depth:
        refusal.reason = QStringLiteral("elements nested deeper than %1 levels").arg(maximumDepth);
        break;
    case Problem::Size:
    case Problem::None:
        refusal.reason = QStringLiteral("more than %1 elements, attributes and texts").arg(maximumNodes);
        break;
    }
    refusal.line = 1;
    refusal.column = 1;
    for (const Unit* p = begin; p < begin + stop.offset; ++p) {
        if (*p == '\n') {
            ++refusal.line;
            refusal.column = 1;
        } else if (sizeof(Unit) > 1 || (*p & 0xC0) != 0x80) { // not a UTF-8 continuation byte
            ++refusal.column;
        }
    }
    return refusal;
}

} // namespace

Refusal findRefusal(const QByteArray& xml, int maximumDepth, int maximumNodes)
{
    QTextCodec* const codec = documentCodec(xml);
    if (codec->mibEnum() == utf8Mib) {
        // Markup is ASCII, and no byte of a multi-byte UTF-8 sequence is: the bytes
        // are scanned as they stand, without decoding.
        const auto* begin = reinterpret_cast<const unsigned char*>(xml.constData());
        const Stop stop = scan(begin, begin + xml.size(), maximumDepth, maximumNodes);
        return stop.problem == Problem::None ? Refusal() : refusalAt(begin, stop, maximumDepth, maximumNodes);
    }
    const QString text = codec->toUnicode(xml);
    const auto* begin = reinterpret_cast<const ushort*>(text.utf16());
    const Stop stop = scan(begin, begin + text.size(), maximumDepth, maximumNodes);
    return stop.problem == Problem::None ? Refusal() : refusalAt(begin, stop, maximumDepth, maximumNodes);
}

} // namespace XmlNestingGuard
