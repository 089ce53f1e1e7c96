#pragma once

#include "UtilsDllGlobal.h"

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace VEXA_NAMESPACE {

// Result of moveFileToTrash.
enum ErrorCodes
{
    FileOperationSucceeded = 0,
    FileOperationRefused = 1, // reserved for callers; nothing here returns it
    FileOperationFailed = 2,  // missing file, or the shell refused
};

// What isEqualFileOrDirNames compares; every comparison ignores case.
enum FileCompareCondition
{
    FullPath = 0,        // cleaned file path
    PathAndBaseName = 1, // cleaned folder directly followed by the complete base name
    FileName = 2,        // file name with its extension
    BaseName = 3,        // complete base name: everything before the last dot
};

UTILSDLL_EXPORT ErrorCodes moveFileToTrash(const QString& path);
// Never overwrites: an existing newName makes it fail.
UTILSDLL_EXPORT bool renameFile(const QString& oldName, const QString& newName);
// Opens a file manager window on folder with files selected. COM, where the platform
// needs it, is the caller's to initialise.
UTILSDLL_EXPORT void selectFilesInShell(const QString& folder, const QStringList& files);
// A lookup key (native separators, lower case), not a path to show.
UTILSDLL_EXPORT QString normalizedFilePath(const QString& path);
// Whether a name the user typed can be used as a file name, or as a path when isPath.
UTILSDLL_EXPORT bool validateFileName(const QString& name, bool isPath);
UTILSDLL_EXPORT bool isEqualFileOrDirNames(const QFileInfo& first, const QFileInfo& second,
                                           FileCompareCondition condition);
// Removes the files below directory, keeping the folder tree; see the .cpp for why an
// empty folder answers false.
UTILSDLL_EXPORT bool removeDirectoryContent(const QDir& directory);
UTILSDLL_EXPORT qint64 availableDiskSpace(const QString& path);
UTILSDLL_EXPORT double roundWithPrecision(double value, int precision);

} // namespace VEXA_NAMESPACE
