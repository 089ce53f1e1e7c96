#pragma once

// The committed Windows executables in tests/files/data (see make_pe_samples.sh) and
// what a version reader must find in each. Plain C++: the Linux tests and the Windows
// tests under Wine read the same files against the same table.

#include <cstdint>

namespace PeSamples {

struct Sample
{
    const char* file;
    bool found;
    std::uint32_t fileVersionMS;
    std::uint32_t fileVersionLS;
};

// FILEVERSION 3,2,17,254: the file version, not the product version 9,8,7,6. A version
// resource under another name than 1 is not the one looked for.
constexpr Sample kSamples[] = {
    {"versioned.exe", true, (3u << 16) | 2u, (17u << 16) | 254u},
    {"unversioned.exe", false, 0, 0},
    {"othername.exe", false, 0, 0},
    {"missing.exe", false, 0, 0},
};

} // namespace PeSamples
