#include "XmlNestingGuard.h"

#include <cstring>

namespace XmlNestingGuard {

namespace {

class Scanner
{
public:
    explicit Scanner(const QByteArray& xml)
        : data(xml.constData())
        , size(xml.size())
    {
    }

    Excess run(int maximumDepth)
    {
        int depth = 0;
        while (advanceTo('<')) {
            const int tagStart = position;
            ++position;
            if (startsWith("!--")) {
                skipPast("-->");
            } else if (startsWith("![CDATA[")) {
                skipPast("]]>");
            } else if (startsWith("?")) {
                skipPast("?>");
            } else if (startsWith("!")) {
                skipDeclaration();
            } else if (startsWith("/")) {
                skipTag();
                if (depth > 0)
                    --depth;
            } else if (!skipTag()) {
                if (++depth > maximumDepth)
                    return excessAt(tagStart);
            }
        }
        return Excess();
    }

private:
    bool advanceTo(char wanted)
    {
        const void* found = position < size ? std::memchr(data + position, wanted, size_t(size - position)) : nullptr;
        if (!found) {
            position = size;
            return false;
        }
        position = int(static_cast<const char*>(found) - data);
        return true;
    }

    bool startsWith(const char* text) const
    {
        const int length = int(std::strlen(text));
        return size - position >= length && std::memcmp(data + position, text, size_t(length)) == 0;
    }

    void skipPast(const char* terminator)
    {
        const int length = int(std::strlen(terminator));
        while (position < size && !startsWith(terminator))
            ++position;
        position = qMin(size, position + length);
    }

    void skipQuoted()
    {
        const char quote = data[position++];
        advanceTo(quote);
        if (position < size)
            ++position;
    }

    // Stops at the '>' of a declaration, or at the '[' that opens a DTD's internal
    // subset, whose own declarations the main loop then skips one by one.
    void skipDeclaration()
    {
        while (position < size) {
            const char c = data[position];
            if (c == '"' || c == '\'') {
                skipQuoted();
                continue;
            }
            ++position;
            if (c == '>' || c == '[')
                return;
        }
    }

    // Returns true for an empty-element tag ("<a/>"), which does not nest.
    bool skipTag()
    {
        char previous = 0;
        while (position < size) {
            const char c = data[position];
            if (c == '"' || c == '\'') {
                skipQuoted();
                previous = 0;
                continue;
            }
            ++position;
            if (c == '>')
                return previous == '/';
            previous = c;
        }
        return false;
    }

    Excess excessAt(int offset) const
    {
        Excess excess;
        excess.found = true;
        excess.line = 1;
        int lineStart = 0;
        for (int i = 0; i < offset; ++i) {
            if (data[i] == '\n') {
                ++excess.line;
                lineStart = i + 1;
            }
        }
        excess.column = offset - lineStart + 1;
        return excess;
    }

    const char* data;
    int size;
    int position = 0;
};

} // namespace

Excess findExcessiveNesting(const QByteArray& xml, int maximumDepth)
{
    return Scanner(xml).run(maximumDepth);
}

} // namespace XmlNestingGuard
