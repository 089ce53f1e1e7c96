#pragma once

// Linux side of renaming without replacing an existing target, apart from the rest of
// the file management seam so that tests can take the way that file systems without
// RENAME_NOREPLACE (NFS, some FUSE) take, on any file system.

#include <QString>

namespace VexaPlatform {

// renameat2 with RENAME_NOREPLACE where the file system has it, else
// renameWithoutReplaceFlag. Across file systems a file is copied and the original
// removed, as MoveFileW does; a folder is not moved there. True on success.
bool renameNoReplace(const QString& from, const QString& to);

// The same without the flag, for file systems that lack it.
bool renameWithoutReplaceFlag(const QString& from, const QString& to);

} // namespace VexaPlatform
