// Feeds arbitrary text to validateFileName, both as a name and as a path. The input
// is read as UTF-16 so that every code unit, lone surrogates included, can occur;
// the answers are checked against the rules that hold whatever the text is.
#include "FileManagement.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf16(reinterpret_cast<const char16_t*>(data), int(size / 2));
    const bool asName = Vexa::validateFileName(text, false);
    const bool asPath = Vexa::validateFileName(text, true);
    // A valid bare name is a valid path too: the path rules only allow more.
    if (asName && !asPath)
        std::abort();
    if (text.isEmpty() && (asName || asPath))
        std::abort();
    return 0;
}
