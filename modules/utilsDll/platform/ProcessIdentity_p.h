#pragma once

// Internal platform seam: who is running, and the file version of an executable.
// Wide strings in and out and no Qt types, so the Windows side stays plain Win32.

#include <cstdint>
#include <functional>
#include <string>

namespace VexaPlatform {

// The file name of the current process's executable, extension included; empty on
// failure.
std::wstring currentProcessBaseName();

// A path to the executable of the first running process, in the system's order, whose
// executable file name satisfies matches: the module's full path on Windows, the
// process's link to its running image (/proc/<pid>/exe) on Linux, where the file
// under the program's name may have been replaced since it started. Processes that cannot be
// inspected (those of other users, usually) are passed over. Empty if none matches,
// or if the path of the first match cannot be had.
std::wstring processImagePath(const std::function<bool(const std::wstring& baseName)>& matches);

struct FixedFileVersion
{
    bool found = false;
    std::uint32_t fileVersionMS = 0; // major << 16 | minor
    std::uint32_t fileVersionLS = 0; // revision << 16 | build
};

// The file version from the version resource of the executable at path.
FixedFileVersion executableFileVersion(const std::wstring& path);

} // namespace VexaPlatform
