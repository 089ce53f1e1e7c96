#include "../StopMessage_p.h"

#include <cstddef>

#include <unistd.h>

namespace VexaPlatform {

namespace {

void writeToStandardError(const char* data, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(STDERR_FILENO, data, size);
        if (written <= 0)
            return;
        data += written;
        size -= std::size_t(written);
    }
}

// Writes the UTF-16 text as UTF-8 through a buffer on the stack, so that nothing is
// allocated. A lone surrogate becomes U+FFFD.
void writeUtf8(const char16_t* text)
{
    char buffer[256];
    std::size_t used = 0;
    for (const char16_t* p = text; *p; ++p) {
        char32_t code = *p;
        if (code >= 0xD800 && code <= 0xDBFF && p[1] >= 0xDC00 && p[1] <= 0xDFFF) {
            code = 0x10000 + ((code - 0xD800) << 10) + (p[1] - 0xDC00);
            ++p;
        } else if (code >= 0xD800 && code <= 0xDFFF) {
            code = 0xFFFD;
        }
        if (used + 4 > sizeof buffer) {
            writeToStandardError(buffer, used);
            used = 0;
        }
        if (code < 0x80) {
            buffer[used++] = char(code);
        } else if (code < 0x800) {
            buffer[used++] = char(0xC0 | (code >> 6));
            buffer[used++] = char(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            buffer[used++] = char(0xE0 | (code >> 12));
            buffer[used++] = char(0x80 | ((code >> 6) & 0x3F));
            buffer[used++] = char(0x80 | (code & 0x3F));
        } else {
            buffer[used++] = char(0xF0 | (code >> 18));
            buffer[used++] = char(0x80 | ((code >> 12) & 0x3F));
            buffer[used++] = char(0x80 | ((code >> 6) & 0x3F));
            buffer[used++] = char(0x80 | (code & 0x3F));
        }
    }
    writeToStandardError(buffer, used);
}

} // namespace

// The desktop has no toolkit-free message box: the texts go to the standard error
// stream as "<title>: <text>" and an end of line.
void showStopMessage(std::uintptr_t, const char16_t* title, const char16_t* text)
{
    writeUtf8(title);
    writeToStandardError(": ", 2);
    writeUtf8(text);
    writeToStandardError("\n", 1);
}

} // namespace VexaPlatform
