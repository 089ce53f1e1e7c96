#include "../FileManagement_p.h"
#include "RenameNoReplace_p.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>

namespace VexaPlatform {

namespace {

// A file manager that does not answer quickly is treated as absent.
constexpr int kFileManagerTimeoutMs = 3000;

bool askFileManagerToShow(const QStringList& uris)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << uris << QString();
    const QDBusMessage reply = bus.call(call, QDBus::Block, kFileManagerTimeoutMs);
    return reply.type() == QDBusMessage::ReplyMessage;
}

} // namespace

bool moveToTrash(const std::wstring& path)
{
    // When Qt cannot make the trash folder (on a fresh account the data home does not
    // exist yet), it takes the empty path for the current folder and moves the file
    // there, answering success. So the trash is made here first, private as Qt makes
    // it, and a trash that cannot be made leaves the file where it is.
    const QString dataHome = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!QDir::isAbsolutePath(dataHome))
        return false;
    const QString trash = dataHome + QStringLiteral("/Trash");
    if (!QFileInfo(trash).isDir()) {
        if (!QDir().mkpath(trash))
            return false;
        QFile::setPermissions(trash, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
    return QFile::moveToTrash(QString::fromStdWString(path));
}

bool renameWithoutOverwrite(const std::wstring& oldName, const std::wstring& newName)
{
    return renameNoReplace(QString::fromStdWString(oldName), QString::fromStdWString(newName));
}

bool showItemsInFileManager(const std::wstring& folder, const std::vector<std::wstring>& items)
{
    // The shell resolves a file as well as a folder; the file manager then opens the
    // file's folder.
    const QFileInfo folderInfo(QString::fromStdWString(folder));
    if (!folderInfo.exists())
        return false;

    QStringList uris;
    for (const std::wstring& item : items) {
        if (!item.empty())
            uris << QUrl::fromLocalFile(QFileInfo(QString::fromStdWString(item)).absoluteFilePath()).toString();
    }
    if (uris.isEmpty())
        return true;

    // Without a file manager service the folder is at least opened.
    if (!askFileManagerToShow(uris))
        QDesktopServices::openUrl(QUrl::fromLocalFile(folderInfo.isDir() ? folderInfo.absoluteFilePath()
                                                                         : folderInfo.absolutePath()));
    return true;
}

} // namespace VexaPlatform
