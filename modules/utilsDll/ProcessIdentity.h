#pragma once

#include "UtilsDllGlobal.h"

#include <QString>
#include <QtGlobal>

namespace UtilsDll {

// A binary's file version. All zero with an empty text means unknown.
struct BinaryVersion
{
    QString text; // always empty here; kept for callers that fill it themselves
    qint32 major = 0;
    qint32 minor = 0;
    qint32 revision = 0;
    qint32 build = 0;
};

// The file name of the current process's executable, with its extension.
UTILSDLL_EXPORT QString currentProcessName();

// The file version of the executable of the first running process whose executable
// file name equals processName, ignoring case; the extension is part of the name.
// Walks every process: ask once, not in a loop.
UTILSDLL_EXPORT BinaryVersion binaryFileVersionByProcessName(const QString& processName);

} // namespace UtilsDll
