#pragma once

#include "UtilsDllGlobal.h"

#include <QString>
#include <QtGlobal>

/// \file
/// \brief The running program's name and the file version of a running program.

/// \brief Process identity, in a namespace of its own.
namespace UtilsDll {

/// A binary's file version. All zero with an empty text means unknown.
struct BinaryVersion
{
    QString text;     ///< Always empty here; kept for callers that fill it themselves.
    qint32 major = 0;    ///< The first part of the version.
    qint32 minor = 0;    ///< The second part.
    qint32 revision = 0; ///< The third part.
    qint32 build = 0;    ///< The fourth part.
};

/// The file name of the current process's executable, with its extension.
UTILSDLL_EXPORT QString currentProcessName();

/// \brief The file version of the running program named \p processName.
///
/// The executable of the first running process whose executable file name equals
/// \p processName, ignoring case; the extension is part of the name. Unknown (all
/// zero) when no process matches or its file carries no version. Walks every process:
/// ask once, not in a loop.
UTILSDLL_EXPORT BinaryVersion binaryFileVersionByProcessName(const QString& processName);

} // namespace UtilsDll
