#include "PeVersionReader_p.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace VexaPlatform {

namespace {

constexpr std::uint32_t kPeSignature = 0x00004550; // "PE\0\0"
constexpr std::uint16_t kDosSignature = 0x5A4D;    // "MZ"
constexpr std::uint16_t kPe32Magic = 0x10B;
constexpr std::uint16_t kPe32PlusMagic = 0x20B;
constexpr std::uint32_t kResourceDirectoryIndex = 2;
constexpr std::uint32_t kVersionResourceType = 16;
constexpr std::uint32_t kVersionResourceName = 1;
constexpr std::uint32_t kFixedFileInfoSignature = 0xFEEF04BD;
constexpr std::size_t kFixedFileInfoSize = 52;
constexpr std::uint32_t kHighBit = 0x80000000u;
// Files are read on demand, a page at a time: the few hundred bytes of headers and
// resource tables that lead to the version, not the whole executable.
constexpr std::size_t kPageSize = 4096;

// Little-endian reads that fail instead of reading past the end, from memory or from
// a file.
class ByteView
{
public:
    ByteView(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_size(size)
    {
    }

    ByteView(std::istream& file, std::size_t size)
        : m_file(&file)
        , m_size(size)
    {
    }

    bool has(std::size_t offset, std::size_t length) const
    {
        return offset <= m_size && length <= m_size - offset;
    }

    bool u16(std::size_t offset, std::uint16_t& value) const
    {
        std::uint8_t b[2];
        if (!bytesAt(offset, sizeof b, b))
            return false;
        value = static_cast<std::uint16_t>(b[0] | (b[1] << 8));
        return true;
    }

    bool u32(std::size_t offset, std::uint32_t& value) const
    {
        std::uint8_t b[4];
        if (!bytesAt(offset, sizeof b, b))
            return false;
        value = static_cast<std::uint32_t>(b[0]) | (static_cast<std::uint32_t>(b[1]) << 8)
              | (static_cast<std::uint32_t>(b[2]) << 16) | (static_cast<std::uint32_t>(b[3]) << 24);
        return true;
    }

private:
    bool bytesAt(std::size_t offset, std::size_t length, std::uint8_t* out) const
    {
        if (!has(offset, length))
            return false;
        for (std::size_t i = 0; i < length; ++i) {
            const std::size_t at = offset + i;
            if (m_data) {
                out[i] = m_data[at];
                continue;
            }
            if (!pageLoaded(at / kPageSize))
                return false;
            out[i] = m_page[at % kPageSize];
        }
        return true;
    }

    bool pageLoaded(std::size_t page) const
    {
        if (m_pageLoaded && m_pageIndex == page)
            return true;
        const std::size_t start = page * kPageSize;
        const std::size_t length = std::min(kPageSize, m_size - start);
        m_page.resize(length);
        m_file->clear();
        m_pageLoaded = m_file->seekg(static_cast<std::streamoff>(start))
                       && m_file->read(reinterpret_cast<char*>(m_page.data()), static_cast<std::streamsize>(length));
        m_pageIndex = page;
        return m_pageLoaded;
    }

    const std::uint8_t* m_data = nullptr;
    std::istream* m_file = nullptr;
    std::size_t m_size;
    mutable std::vector<std::uint8_t> m_page;
    mutable std::size_t m_pageIndex = 0;
    mutable bool m_pageLoaded = false;
};

struct Section
{
    std::uint32_t virtualAddress;
    std::uint32_t virtualSize;
    std::uint32_t rawSize;
    std::uint32_t rawOffset;
};

class PeImage
{
public:
    explicit PeImage(const ByteView& bytes)
        : m_bytes(bytes)
    {
    }

    bool parseHeaders();
    // The file offset of an RVA range that lies wholly in one section's raw data.
    bool fileOffset(std::uint32_t rva, std::uint32_t length, std::size_t& offset) const;
    bool resourceDirectory(std::uint32_t& rva, std::uint32_t& size) const
    {
        rva = m_resourceRva;
        size = m_resourceSize;
        return m_resourceRva != 0 && m_resourceSize != 0;
    }
    const ByteView& bytes() const { return m_bytes; }

private:
    ByteView m_bytes;
    std::vector<Section> m_sections;
    std::uint32_t m_resourceRva = 0;
    std::uint32_t m_resourceSize = 0;
};

bool PeImage::parseHeaders()
{
    std::uint16_t dosSignature = 0;
    std::uint32_t peOffset = 0;
    std::uint32_t peSignature = 0;
    if (!m_bytes.u16(0, dosSignature) || dosSignature != kDosSignature || !m_bytes.u32(0x3C, peOffset)
        || !m_bytes.u32(peOffset, peSignature) || peSignature != kPeSignature)
        return false;

    const std::size_t coff = std::size_t(peOffset) + 4;
    std::uint16_t sectionCount = 0;
    std::uint16_t optionalHeaderSize = 0;
    if (!m_bytes.u16(coff + 2, sectionCount) || !m_bytes.u16(coff + 16, optionalHeaderSize))
        return false;

    const std::size_t optional = coff + 20;
    std::uint16_t magic = 0;
    if (!m_bytes.u16(optional, magic) || (magic != kPe32Magic && magic != kPe32PlusMagic))
        return false;
    const std::size_t countOffset = optional + (magic == kPe32Magic ? 92 : 108);
    const std::size_t directories = optional + (magic == kPe32Magic ? 96 : 112);
    std::uint32_t directoryCount = 0;
    if (!m_bytes.u32(countOffset, directoryCount) || directoryCount <= kResourceDirectoryIndex)
        return false;
    const std::size_t resourceEntry = directories + kResourceDirectoryIndex * 8;
    if (resourceEntry + 8 > optional + optionalHeaderSize || !m_bytes.u32(resourceEntry, m_resourceRva)
        || !m_bytes.u32(resourceEntry + 4, m_resourceSize))
        return false;

    const std::size_t sectionTable = optional + optionalHeaderSize;
    if (!m_bytes.has(sectionTable, std::size_t(sectionCount) * 40))
        return false;
    m_sections.reserve(sectionCount);
    for (std::size_t i = 0; i < sectionCount; ++i) {
        const std::size_t header = sectionTable + i * 40;
        Section section = {};
        m_bytes.u32(header + 8, section.virtualSize);
        m_bytes.u32(header + 12, section.virtualAddress);
        m_bytes.u32(header + 16, section.rawSize);
        m_bytes.u32(header + 20, section.rawOffset);
        m_sections.push_back(section);
    }
    return true;
}

bool PeImage::fileOffset(std::uint32_t rva, std::uint32_t length, std::size_t& offset) const
{
    for (const Section& section : m_sections) {
        if (rva < section.virtualAddress)
            continue;
        const std::uint64_t intoSection = std::uint64_t(rva) - section.virtualAddress;
        if (intoSection + length > section.rawSize)
            continue;
        offset = std::size_t(std::uint64_t(section.rawOffset) + intoSection);
        return m_bytes.has(offset, length);
    }
    return false;
}

// Looks up an entry by numeric id in one resource directory table; answers the
// entry's target, an offset from the start of the resource section.
bool findResourceEntry(const PeImage& image, std::size_t resourceBase, std::uint32_t resourceSize,
                       std::uint32_t tableOffset, bool wantId, std::uint32_t id, std::uint32_t& target)
{
    const ByteView& bytes = image.bytes();
    std::uint16_t namedCount = 0;
    std::uint16_t idCount = 0;
    if (tableOffset > resourceSize || !bytes.u16(resourceBase + tableOffset + 12, namedCount)
        || !bytes.u16(resourceBase + tableOffset + 14, idCount))
        return false;
    const std::size_t entries = resourceBase + tableOffset + 16;
    const std::size_t total = std::size_t(namedCount) + idCount;
    for (std::size_t i = 0; i < total; ++i) {
        std::uint32_t name = 0;
        std::uint32_t offset = 0;
        if (!bytes.u32(entries + i * 8, name) || !bytes.u32(entries + i * 8 + 4, offset))
            return false;
        if (wantId && ((name & kHighBit) || name != id))
            continue;
        target = offset;
        return true;
    }
    return false;
}

bool subdirectory(std::uint32_t entry, std::uint32_t& offset)
{
    if (!(entry & kHighBit))
        return false;
    offset = entry & ~kHighBit;
    return true;
}

bool versionBlock(const PeImage& image, std::size_t& blockOffset, std::uint32_t& blockSize)
{
    std::uint32_t resourceRva = 0;
    std::uint32_t resourceSize = 0;
    std::size_t base = 0;
    if (!image.resourceDirectory(resourceRva, resourceSize) || !image.fileOffset(resourceRva, 16, base))
        return false;

    std::uint32_t entry = 0;
    std::uint32_t names = 0;
    std::uint32_t languages = 0;
    if (!findResourceEntry(image, base, resourceSize, 0, true, kVersionResourceType, entry)
        || !subdirectory(entry, names)
        || !findResourceEntry(image, base, resourceSize, names, true, kVersionResourceName, entry)
        || !subdirectory(entry, languages)
        || !findResourceEntry(image, base, resourceSize, languages, false, 0, entry) || (entry & kHighBit))
        return false;

    std::uint32_t dataRva = 0;
    if (entry > resourceSize || !image.bytes().u32(base + entry, dataRva)
        || !image.bytes().u32(base + entry + 4, blockSize) || blockSize == 0)
        return false;
    return image.fileOffset(dataRva, blockSize, blockOffset);
}

// The value of the VS_VERSIONINFO root block: its key, padded to four bytes, is
// followed by the VS_FIXEDFILEINFO.
PeFileVersion fixedFileInfo(const ByteView& bytes, std::size_t block, std::uint32_t blockSize)
{
    static const char16_t kKey[] = u"VS_VERSION_INFO";
    constexpr std::size_t kKeyOffset = 6;
    constexpr std::size_t kKeyBytes = sizeof(kKey); // with the terminating zero
    std::uint16_t length = 0;
    std::uint16_t valueLength = 0;
    if (blockSize < kKeyOffset + kKeyBytes || !bytes.u16(block, length) || !bytes.u16(block + 2, valueLength)
        || length > blockSize || valueLength < kFixedFileInfoSize)
        return PeFileVersion();
    for (std::size_t i = 0; i < kKeyBytes / 2; ++i) {
        std::uint16_t character = 0;
        if (!bytes.u16(block + kKeyOffset + i * 2, character) || character != kKey[i])
            return PeFileVersion();
    }
    const std::size_t value = block + ((kKeyOffset + kKeyBytes + 3) & ~std::size_t(3));
    std::uint32_t signature = 0;
    PeFileVersion version;
    if (value + kFixedFileInfoSize > block + length || !bytes.u32(value, signature)
        || signature != kFixedFileInfoSignature || !bytes.u32(value + 8, version.fileVersionMS)
        || !bytes.u32(value + 12, version.fileVersionLS))
        return PeFileVersion();
    version.found = true;
    return version;
}

} // namespace

namespace {

PeFileVersion readPeFileVersion(const ByteView& bytes)
{
    PeImage image(bytes);
    std::size_t block = 0;
    std::uint32_t blockSize = 0;
    if (!image.parseHeaders() || !versionBlock(image, block, blockSize))
        return PeFileVersion();
    return fixedFileInfo(image.bytes(), block, blockSize);
}

} // namespace

PeFileVersion readPeFileVersion(const std::uint8_t* data, std::size_t size)
{
    if (!data)
        return PeFileVersion();
    return readPeFileVersion(ByteView(data, size));
}

PeFileVersion readPeFileVersion(const std::vector<std::uint8_t>& image)
{
    return readPeFileVersion(image.data(), image.size());
}

PeFileVersion readPeFileVersionFromFile(const std::string& path)
{
    // Only a regular file: opening a pipe or a device in its place would wait for a
    // writer, and reading one could go on forever.
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return PeFileVersion();
    std::ifstream file;
    file.rdbuf()->pubsetbuf(nullptr, 0); // the pages are the buffer
    file.open(path, std::ios::binary | std::ios::ate);
    if (!file)
        return PeFileVersion();
    const std::streamoff size = file.tellg();
    if (size <= 0)
        return PeFileVersion();
    return readPeFileVersion(ByteView(file, static_cast<std::size_t>(size)));
}

} // namespace VexaPlatform
