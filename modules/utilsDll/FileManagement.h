#pragma once

#include "UtilsDllGlobal.h"

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <QtGlobal>

/// \file
/// \brief File services: trash, rename without overwrite, file name checks and
/// comparisons.

namespace VEXA_NAMESPACE {

/// Result of moveFileToTrash().
enum ErrorCodes
{
    FileOperationSucceeded = 0, ///< The file is in the trash.
    FileOperationRefused = 1,   ///< Reserved for callers; nothing here returns it.
    FileOperationFailed = 2,    ///< A missing file, or the shell refused.
};

/// What isEqualFileOrDirNames() compares; every comparison ignores case.
enum FileCompareCondition
{
    FullPath = 0,        ///< The cleaned file path.
    PathAndBaseName = 1, ///< The cleaned folder directly followed by the complete base name.
    FileName = 2,        ///< The file name with its extension.
    BaseName = 3,        ///< The complete base name: everything before the last dot.
};

/// Moves the file or folder \p path to the user's trash, the path given to the shell
/// as it stands.
UTILSDLL_EXPORT ErrorCodes moveFileToTrash(const QString& path);
/// Renames \p oldName to \p newName, also across file systems. Never overwrites: an
/// existing \p newName makes it fail.
UTILSDLL_EXPORT bool renameFile(const QString& oldName, const QString& newName);
/// Opens a file manager window on \p folder with \p files selected. COM, where the
/// platform needs it, is the caller's to initialise.
UTILSDLL_EXPORT void selectFilesInShell(const QString& folder, const QStringList& files);
/// A lookup key for \p path (cleaned, native separators, lower case), not a path to show.
UTILSDLL_EXPORT QString normalizedFilePath(const QString& path);
/// \brief Whether a name the user typed can be used as a file name, or as a path when
/// \p isPath.
///
/// Refuses, as Windows would, an empty or overlong name, forbidden characters,
/// reserved device names such as "CON", and also two dots anywhere, "a..b" included.
UTILSDLL_EXPORT bool validateFileName(const QString& name, bool isPath);
/// Whether \p first and \p second name the same thing by \p condition, ignoring case.
UTILSDLL_EXPORT bool isEqualFileOrDirNames(const QFileInfo& first, const QFileInfo& second,
                                           FileCompareCondition condition);
/// \brief Removes the files below \p directory, keeping the folder tree.
///
/// Symbolic links are removed, never followed. Kept as the product always had it: an
/// empty folder answers false, and a false answer ends the whole walk, so a tree with
/// an empty subfolder is only partly emptied. False too for a missing folder.
UTILSDLL_EXPORT bool removeDirectoryContent(const QDir& directory);
/// The bytes available to the user on the volume of \p path.
UTILSDLL_EXPORT qint64 availableDiskSpace(const QString& path);
/// \brief \p value rounded to \p precision decimals.
///
/// A \p precision of 0 or less rounds to a whole number; a value that already has
/// no more decimals comes back unchanged.
UTILSDLL_EXPORT double roundWithPrecision(double value, int precision);

} // namespace VEXA_NAMESPACE
