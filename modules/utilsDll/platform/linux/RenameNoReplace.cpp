#include "RenameNoReplace_p.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace VexaPlatform {

namespace {

// As MoveFileW does across volumes: a file is copied (QFile::copy never replaces) and
// the original removed; a folder is not moved. When the original cannot be removed,
// the move has not happened: the copy is taken back, so that the file does not stand
// twice, and the answer is false.
bool moveFileAcrossFileSystems(const QString& from, const QString& to)
{
    if (!QFileInfo(from).isFile() || !QFile::copy(from, to))
        return false;
    if (QFile::remove(from))
        return true;
    QFile::remove(to);
    return false;
}

// Where nothing renames without replacing: an empty placeholder, which only this call
// can have made, takes the name first, and the rename then replaces that placeholder.
// rename() replaces a file, or a folder only when it is empty, so a name that someone
// else took in between is never lost.
bool renameOntoPlaceholder(const QByteArray& from, const QByteArray& to, bool folder)
{
    if (folder) {
        if (::mkdir(to.constData(), 0700) != 0)
            return false;
    } else {
        const int placeholder = ::open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (placeholder < 0)
            return false;
        ::close(placeholder);
    }
    if (::rename(from.constData(), to.constData()) == 0)
        return true;
    if (folder)
        ::rmdir(to.constData());
    else
        ::unlink(to.constData());
    return false;
}

} // namespace

bool renameWithoutReplaceFlag(const QString& from, const QString& to)
{
    const QByteArray fromName = QFile::encodeName(from);
    const QByteArray toName = QFile::encodeName(to);
    struct stat status;
    if (::lstat(fromName.constData(), &status) != 0)
        return false;
    // Folders cannot be hard-linked.
    if (S_ISDIR(status.st_mode))
        return renameOntoPlaceholder(fromName, toName, true);
    // A hard link fails on an existing name, in one step; then the old name goes.
    if (::link(fromName.constData(), toName.constData()) == 0) {
        if (::unlink(fromName.constData()) == 0)
            return true;
        ::unlink(toName.constData());
        return false;
    }
    const int error = errno;
    if (error == EXDEV)
        return moveFileAcrossFileSystems(from, to);
    // File systems without hard links (FAT, some FUSE).
    if (error == EPERM || error == EOPNOTSUPP || error == ENOSYS)
        return renameOntoPlaceholder(fromName, toName, false);
    return false;
}

bool renameNoReplace(const QString& from, const QString& to)
{
    int error = ENOSYS;
#ifdef SYS_renameat2
    constexpr unsigned int kRenameNoReplace = 1;
    if (::syscall(SYS_renameat2, AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD,
                  QFile::encodeName(to).constData(), kRenameNoReplace) == 0)
        return true;
    error = errno;
#endif
    if (error == EINVAL || error == ENOSYS)
        return renameWithoutReplaceFlag(from, to);
    if (error == EXDEV)
        return moveFileAcrossFileSystems(from, to);
    return false;
}

} // namespace VexaPlatform
