#include "../FileManagement.h"
#include "RenameNoReplace.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
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
