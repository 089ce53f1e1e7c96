#include "../KnownFolders_p.h"
#include "XdgBaseDirs_p.h"

#include <QDir>
#include <QStandardPaths>

namespace VexaPlatform {

namespace {

QString baseFolder(KnownFolder folder)
{
    return folder == KnownFolder::ProgramData ? firstXdgConfigDir() : xdgDataHome();
}

} // namespace

std::wstring knownFolderSubPath(KnownFolder folder, const std::wstring& first, const std::wstring& second)
{
    const QString base = baseFolder(folder);
    if (base.isEmpty())
        return std::wstring();
    return (base + '/' + QString::fromStdWString(first) + '/' + QString::fromStdWString(second))
        .toStdWString();
}

std::wstring commonPicturesFolder()
{
    // The desktop has no machine-wide pictures folder; the user's own stands in.
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    if (pictures.isEmpty())
        return std::wstring();
    QDir().mkpath(pictures);
    return pictures.toStdWString();
}

} // namespace VexaPlatform
