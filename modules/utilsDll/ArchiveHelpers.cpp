#include "ArchiveHelpers.h"

#include <JlCompress.h>
#include <quazip.h>
#include <quazipfile.h>
#include <quazipfileinfo.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr qint64 kCopyBlockSize = 4096;

// The deepest existing ancestor of path, resolved through every symbolic link, with
// the part that does not exist yet appended unchanged. Two paths compared this way
// cannot escape each other through a link already on disk.
QString resolvedPath(const QString& path)
{
    QString existing = QDir::cleanPath(QDir(path).absolutePath());
    QString pending;
    while (!QFileInfo::exists(existing)) {
        const int cut = existing.lastIndexOf(QLatin1Char('/'));
        if (cut <= 0)
            return QDir::cleanPath(path);
        pending.prepend(existing.mid(cut));
        existing.truncate(cut);
    }
    return QFileInfo(existing).canonicalFilePath() + pending;
}

bool isInside(const QString& root, const QString& path)
{
    return path == root || path.startsWith(root.endsWith(QLatin1Char('/')) ? root : root + QLatin1Char('/'));
}

// Entry names come from the archive and are hostile until shown otherwise: both
// separators count, since an archive made on one system is unpacked on another.
bool isSafeEntryName(const QString& name)
{
    if (name.isEmpty())
        return false;
    QString unified = name;
    unified.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (unified.startsWith(QLatin1Char('/')))
        return false;
    if (unified.size() >= 2 && unified.at(1) == QLatin1Char(':') && unified.at(0).isLetter())
        return false;
    const QStringList parts = unified.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    return !parts.contains(QStringLiteral(".."));
}

class ExtractionGuard
{
public:
    explicit ExtractionGuard(const QString& directory)
        : m_root(resolvedPath(directory))
    {
    }

    // Whether the current entry of zip may be written at target.
    bool allows(QuaZip& zip, const QString& name, const QString& target) const
    {
        if (!isSafeEntryName(name))
            return false;
        QuaZipFileInfo64 info;
        if (!zip.getCurrentFileInfo(&info) || info.isSymbolicLink())
            return false;
        // A link already at the target would be followed by the write.
        if (QFileInfo(target).isSymLink())
            return false;
        return isInside(m_root, resolvedPath(target));
    }

private:
    QString m_root;
};

bool copyEntry(QuaZipFile& entry, QFile& target)
{
    char buffer[kCopyBlockSize];
    while (!entry.atEnd()) {
        const qint64 read = entry.read(buffer, kCopyBlockSize);
        if (read < 1)
            return false;
        if (target.write(buffer, read) != read)
            return false;
    }
    return true;
}

// Removes what was written so that no partial file stays behind.
bool discardTarget(QFile& target)
{
    target.close();
    target.remove();
    return false;
}

// Extracts one entry: the one named, or the archive's current one for an empty name.
bool extractEntry(QuaZip* zip, const QString& entryName, const QString& target)
{
    if (!zip || zip->getMode() != QuaZip::mdUnzip)
        return false;
    if (!entryName.isEmpty())
        zip->setCurrentFile(entryName);

    QuaZipFile entry(zip);
    if (!entry.open(QIODevice::ReadOnly) || entry.getZipError() != UNZ_OK)
        return false;
    if (!QDir().mkpath(QFileInfo(target).absolutePath()))
        return false;
    QuaZipFileInfo64 info;
    if (!entry.getFileInfo(&info))
        return false;

    const QFile::Permissions permissions = info.getPermissions();
    if (target.endsWith(QLatin1Char('/')) && QFileInfo(target).isDir() && permissions != 0)
        QFile::setPermissions(target, permissions);

    // A directory entry fails here on purpose, although its folder now exists.
    QFile output(target);
    if (!output.open(QIODevice::WriteOnly))
        return false;

    if (!copyEntry(entry, output) || entry.getZipError() != UNZ_OK)
        return discardTarget(output);
    output.close();
    entry.close();
    if (entry.getZipError() != UNZ_OK) // a checksum mismatch shows up only at close
        return discardTarget(output);

    return permissions == 0 || QFile::setPermissions(target, permissions);
}

bool hasOnlySafeEntries(const QString& archive, const QString& directory)
{
    QuaZip zip(archive);
    if (!zip.open(QuaZip::mdUnzip))
        return true; // nothing will be written; the extraction reports its own failure
    const ExtractionGuard guard(directory);
    const QDir target(directory);
    bool safe = true;
    for (bool more = zip.goToFirstFile(); more && safe; more = zip.goToNextFile()) {
        const QString name = zip.getCurrentFileName();
        safe = guard.allows(zip, name, target.absoluteFilePath(name));
    }
    zip.close();
    return safe;
}

} // namespace

namespace VEXA_NAMESPACE {

bool CompressFiles(const QStringList& files, const QString& archive)
{
    return JlCompress::compressFiles(archive, files);
}

void DecompressFiles(const QString& archive, const QString& directory)
{
    QDir target(directory);
    if (!target.exists())
        target.mkpath(directory);
    if (hasOnlySafeEntries(archive, directory))
        JlCompress::extractDir(archive, directory);
}

} // namespace VEXA_NAMESPACE

bool DecompressFiles(const std::wstring& archive, const std::wstring& directory)
{
    QuaZip zip(QString::fromStdWString(archive));
    if (!zip.open(QuaZip::mdUnzip))
        return false;
    const QDir target(QString::fromStdWString(directory));
    if (!zip.goToFirstFile()) {
        zip.close();
        return false;
    }

    const ExtractionGuard guard(target.path());
    bool result = true;
    do {
        const QString name = zip.getCurrentFileName();
        const QString targetPath = target.absoluteFilePath(name);
        if (!guard.allows(zip, name, targetPath) || !extractEntry(&zip, QString(), targetPath))
            result = false;
    } while (zip.goToNextFile());

    zip.close();
    return result;
}
