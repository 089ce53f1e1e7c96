#pragma once

// Internal platform seam: the system folders that storage locations rest on.
// Wide strings in and out and no Qt types, so the Windows side stays plain Win32.

#include <string>

namespace VexaPlatform {

enum class KnownFolder
{
    LocalAppData, // per-user application data
    ProgramData,  // machine-wide application data
};

// folder + separator + first + separator + second, with the platform's separator;
// an empty string when the system folder cannot be had.
std::wstring knownFolderSubPath(KnownFolder folder, const std::wstring& first, const std::wstring& second);

// The public pictures folder, created if missing; empty when it cannot be had.
std::wstring commonPicturesFolder();

} // namespace VexaPlatform
