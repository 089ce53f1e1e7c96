#pragma once

// Internal platform seam: the folder chooser that shows the files of one type while
// the user picks the folder. Wide strings and a native window id, no Qt types, so the
// Windows side stays plain Win32.

#include <cstdint>
#include <string>

namespace VexaPlatform {

// Shows a modal dialog over parentWindow (a native window id) starting in folder,
// listing the files that match patterns ("*.jpg;*.tif") under the type name
// typeName. Answers the folder being shown when the user confirms with the button
// labelled buttonText, and an empty string in every other case. GUI thread only, and
// not re-entrant.
std::wstring runSelectFolderDialog(std::uintptr_t parentWindow, const std::wstring& buttonText,
                                   const std::wstring& typeName, const std::wstring& patterns,
                                   const std::wstring& title, const std::wstring& folder);

} // namespace VexaPlatform
