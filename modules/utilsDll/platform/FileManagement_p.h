#pragma once

// Internal platform seam: the shell operations behind the file management functions.
// Wide strings in and out and no Qt types, so the Windows side stays plain Win32.

#include <string>
#include <vector>

namespace VexaPlatform {

// Sends one existing file or folder to the desktop's trash without any dialog.
// True when the system reports success.
bool moveToTrash(const std::wstring& path);

// Renames or moves a file; never replaces an existing target. True on success.
bool renameWithoutOverwrite(const std::wstring& oldName, const std::wstring& newName);

// Opens a file manager window on folder with the given items selected. The items
// are paths that exist; folder may name an existing file too, which resolves like a
// folder. False when the folder itself could not be resolved, in which case nothing
// else was attempted; true otherwise, whatever the file manager did.
bool showItemsInFileManager(const std::wstring& folder, const std::vector<std::wstring>& items);

} // namespace VexaPlatform
