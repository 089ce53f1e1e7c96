// Arbitrary bytes as an executable image: the reader must answer without reading
// outside them. Seed it with tests/files/data/*.exe.
#include "PeVersionReader_p.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    VexaPlatform::readPeFileVersion(data, size);
    return 0;
}
