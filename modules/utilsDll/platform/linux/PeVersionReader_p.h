#pragma once

// Reads the fixed file version from the version resource of a PE executable (the
// format of Windows programs and libraries) without loading it. Portable C++ with
// every offset checked against the data, since the file may be anything.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace VexaPlatform {

struct PeFileVersion
{
    bool found = false;
    std::uint32_t fileVersionMS = 0;
    std::uint32_t fileVersionLS = 0;
};

// The VS_FIXEDFILEINFO file version of the resource of type 16 (version) and name 1,
// first language; not found for anything that is not a well-formed PE image with one.
PeFileVersion readPeFileVersion(const std::uint8_t* data, std::size_t size);
PeFileVersion readPeFileVersion(const std::vector<std::uint8_t>& image);
// Reads only the parts of the file that lead to the version, and only a regular file.
PeFileVersion readPeFileVersionFromFile(const std::string& path);

} // namespace VexaPlatform
