#include "../FileManagement.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

#include <cerrno>
#include <fcntl.h>
#include <stdio.h>
#include <sys/syscall.h>
#include <unistd.h>

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

// renameat2 with RENAME_NOREPLACE is atomic; where the file system lacks it, a hard
// link plus unlink gives the same "never replace" guarantee. Across file systems a
// file is copied (QFile::copy never replaces either) and the original removed, as
// the Windows move does.
bool renameNoReplace(const QString& from, const QString& to)
{
    const QByteArray fromName = QFile::encodeName(from);
    const QByteArray toName = QFile::encodeName(to);
    int error = ENOSYS;
#ifdef SYS_renameat2
    constexpr unsigned int kRenameNoReplace = 1;
    if (::syscall(SYS_renameat2, AT_FDCWD, fromName.constData(), AT_FDCWD, toName.constData(), kRenameNoReplace) == 0)
        return true;
    error = errno;
#endif
    if (error == EINVAL || error == ENOSYS) {
        if (::link(fromName.constData(), toName.constData()) != 0)
            return false;
        ::unlink(fromName.constData());
        return true;
    }
    if (error == EXDEV && QFileInfo(from).isFile() && QFile::copy(from, to))
        return QFile::remove(from);
    return false;
}

} // namespace

bool moveToTrash(const std::wstring& path)
{
    return QFile::moveToTrash(QString::fromStdWString(path));
}

bool renameWithoutOverwrite(const std::wstring& oldName, const std::wstring& newName)
{
    return renameNoReplace(QString::fromStdWString(oldName), QString::fromStdWString(newName));
}

bool showItemsInFileManager(const std::wstring& folder, const std::vector<std::wstring>& items)
{
    const QString folderPath = QString::fromStdWString(folder);
    if (!QFileInfo(folderPath).isDir())
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
        QDesktopServices::openUrl(QUrl::fromLocalFile(QDir(folderPath).absolutePath()));
    return true;
}

} // namespace VexaPlatform
