#include "../StopMessage.h"

#include <QString>

#include <unistd.h>

namespace VexaPlatform {

std::string encodeStopMessageText(const std::wstring& text)
{
    return QString::fromStdWString(text).toStdString();
}

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

} // namespace

// The desktop has no toolkit-free message box: the prepared texts go to the
// standard error stream, with no allocation on the way.
void showStopMessage(std::uintptr_t, const char16_t*, const char16_t*, const std::string& encodedTitle,
                     const std::string& encodedText)
{
    writeToStandardError(encodedTitle.data(), encodedTitle.size());
    writeToStandardError(": ", 2);
    writeToStandardError(encodedText.data(), encodedText.size());
    writeToStandardError("\n", 1);
}

} // namespace VexaPlatform
