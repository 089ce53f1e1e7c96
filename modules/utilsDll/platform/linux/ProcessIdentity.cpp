#include "../ProcessIdentity_p.h"
#include "PeVersionReader_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace VexaPlatform {

namespace {

// /proc/<pid>/exe names the executable; it cannot be read for processes of other
// users, which are then passed over as the system passes them over elsewhere.
QString executableOf(const QString& processFolder)
{
    QString executable = QFile::symLinkTarget(processFolder + QStringLiteral("/exe"));
    // The kernel marks a program whose file was removed or replaced while it runs (an
    // upgrade) with this suffix. The program's name is still the one without it.
    const QLatin1String deletedMark(" (deleted)");
    if (executable.endsWith(deletedMark) && !QFileInfo::exists(executable))
        executable.chop(deletedMark.size());
    return executable;
}

// Process ids in ascending order, the order in which the system lists them.
std::vector<qint64> processIds()
{
    std::vector<qint64> ids;
    const QStringList names = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        bool isNumber = false;
        const qint64 id = name.toLongLong(&isNumber);
        if (isNumber && id > 0)
            ids.push_back(id);
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

} // namespace

std::wstring currentProcessBaseName()
{
    return QFileInfo(executableOf(QStringLiteral("/proc/self"))).fileName().toStdWString();
}

std::wstring processImagePath(const std::function<bool(const std::wstring& baseName)>& matches)
{
    for (const qint64 id : processIds()) {
        const QString processFolder = QStringLiteral("/proc/%1").arg(id);
        const QString executable = executableOf(processFolder);
        if (executable.isEmpty())
            continue;
        // The running image itself, reached through the process: the file that now has
        // the program's name may be another one, or a pipe that blocks whoever opens it.
        if (matches(QFileInfo(executable).fileName().toStdWString()))
            return (processFolder + QStringLiteral("/exe")).toStdWString();
    }
    return std::wstring();
}

FixedFileVersion executableFileVersion(const std::wstring& path)
{
    // Native executables carry no version resource; Windows executables (run under
    // a compatibility layer, or merely found by path) do.
    const PeFileVersion peVersion = readPeFileVersionFromFile(QFile::encodeName(QString::fromStdWString(path)).toStdString());
    FixedFileVersion version;
    version.found = peVersion.found;
    version.fileVersionMS = peVersion.fileVersionMS;
    version.fileVersionLS = peVersion.fileVersionLS;
    return version;
}

} // namespace VexaPlatform
