#pragma once

#include "UtilsDllGlobal.h"

#include <QString>
#include <QStringList>

#include <string>

namespace VEXA_NAMESPACE {

// Packs the files, each under its bare file name, into a new zip archive.
UTILSDLL_EXPORT bool CompressFiles(const QStringList& files, const QString& archive);

// Unpacks archive into directory, creating the directory first. Reports nothing: a
// caller that needs the outcome uses the plain export below. An archive holding any
// entry that would land outside directory (or a symbolic link) is not unpacked.
UTILSDLL_EXPORT void DecompressFiles(const QString& archive, const QString& directory);

} // namespace VEXA_NAMESPACE

// Plain export for callers in other languages or runtimes: unpacks every entry it
// can and answers whether all of them came out. An entry that would land outside
// directory, a symbolic link entry and a directory entry count as failed entries;
// the walk goes on after a failed entry.
extern "C" UTILSDLL_EXPORT bool DecompressFiles(const std::wstring& archive, const std::wstring& directory);
