#pragma once

#include "UtilsDllGlobal.h"

#include <QString>
#include <QStringList>

#include <string>

/// \file
/// \brief Zip archives: packing files and unpacking archives safely.

namespace VEXA_NAMESPACE {

/// \brief Packs \p files, each under its bare file name, into a new zip archive
/// \p archive; answers whether it was written.
///
/// The archive is written beside the path and renamed over it only once complete: when
/// the call fails (a missing file, a full disk), whatever stood at that path is left as
/// it was.
UTILSDLL_EXPORT bool CompressFiles(const QStringList& files, const QString& archive);

/// \brief Unpacks \p archive into \p directory, creating the directory first.
///
/// All or nothing: every entry is written in full beside its target before any is moved
/// in, so a failure (a damaged entry, a full disk, an entry named like a folder) leaves
/// every file already in \p directory byte for byte as it was and adds none. Reports
/// nothing: a caller that needs the outcome uses the plain export of the same name at
/// global scope. An archive holding any entry that would land outside \p directory on
/// this system, or a symbolic link, is not unpacked.
UTILSDLL_EXPORT void DecompressFiles(const QString& archive, const QString& directory);

} // namespace VEXA_NAMESPACE

/// \brief Plain export for callers in other languages or runtimes: unpacks
/// \p archive into \p directory entry by entry.
///
/// Unpacks every entry it can and answers whether all of them came out. An entry
/// replaces an existing file only with its complete content, so the file at a failed
/// entry's name stays as it was. An entry that would land outside \p directory on this
/// system, a symbolic link entry and a directory entry count as failed entries; the
/// walk goes on after a failed entry.
extern "C" UTILSDLL_EXPORT bool DecompressFiles(const std::wstring& archive, const std::wstring& directory);
