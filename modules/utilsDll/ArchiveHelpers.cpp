#include "ArchiveHelpers.h"

#include <JlCompress.h>
#include <quazip.h>
#include <quazipfile.h>
#include <quazipfileinfo.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include <vector>

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

#ifdef Q_OS_WIN
constexpr bool kWindowsPathRules = true;
#else
constexpr bool kWindowsPathRules = false;
#endif

// Entry names come from the archive and are hostile until shown otherwise. Only what
// leads out of the target here is refused: on Windows a backslash separates folders
// and "c:name" lies on another drive; elsewhere both are ordinary file name characters.
bool isSafeEntryName(const QString& name)
{
    if (name.isEmpty())
        return false;
    QString unified = name;
    if (kWindowsPathRules)
        unified.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (unified.startsWith(QLatin1Char('/')))
        return false;
    if (kWindowsPathRules && unified.size() >= 2 && unified.at(1) == QLatin1Char(':') && unified.at(0).isLetter())
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

// Copies the open entry into output and checks it, its checksum included.
bool copyEntry(QuaZipFile& entry, QIODevice& output)
{
    char buffer[kCopyBlockSize];
    while (!entry.atEnd()) {
        const qint64 read = entry.read(buffer, kCopyBlockSize);
        if (read < 1)
            return false;
        if (output.write(buffer, read) != read)
            return false;
    }
    if (entry.getZipError() != UNZ_OK)
        return false;
    entry.close();
    if (entry.getZipError() != UNZ_OK) // a checksum mismatch shows up only at close
        return false;
    return true;
}

// Opens the archive's current entry and makes the folder that will hold target.
bool openEntry(QuaZipFile& entry, QuaZipFileInfo64& info, const QString& target)
{
    return entry.open(QIODevice::ReadOnly) && entry.getZipError() == UNZ_OK
        && QDir().mkpath(QFileInfo(target).absolutePath()) && entry.getFileInfo(&info);
}

// A name beside path that nothing uses yet.
QString unusedNameBeside(const QString& path)
{
    QString name;
    do
        name = path + QStringLiteral(".%1.part").arg(QUuid::createUuid().toString(QUuid::Id128).left(12));
    while (QFileInfo::exists(name) || QFileInfo(name).isSymLink());
    return name;
}

// Extracts the archive's current entry on its own. An existing file is replaced only
// by the entry's complete content: QSaveFile writes beside it and renames over it.
bool extractEntry(QuaZip& zip, const QString& target)
{
    QuaZipFile entry(&zip);
    QuaZipFileInfo64 info;
    if (!openEntry(entry, info, target))
        return false;

    const QFile::Permissions permissions = info.getPermissions();
    if (target.endsWith(QLatin1Char('/')) && QFileInfo(target).isDir() && permissions != 0)
        QFile::setPermissions(target, permissions);

    // A directory entry fails here on purpose, although its folder now exists.
    QSaveFile output(target);
    if (!output.open(QIODevice::WriteOnly) || !copyEntry(entry, output) || !output.commit())
        return false; // an uncommitted QSaveFile removes what it wrote
    return permissions == 0 || QFile::setPermissions(target, permissions);
}

// All-or-nothing extraction: every entry is written in full beside its target first,
// and only when all of them came out are they moved in. Until then no file of the
// user's is touched; if a move fails, the moves already made are undone.
class StagedExtraction
{
public:
    StagedExtraction() = default;
    StagedExtraction(const StagedExtraction&) = delete;
    StagedExtraction& operator=(const StagedExtraction&) = delete;

    ~StagedExtraction()
    {
        for (const StagedFile& file : m_files)
            if (!file.moved)
                QFile::remove(file.staged);
    }

    bool stage(QuaZip& zip, const QString& target)
    {
        QuaZipFile entry(&zip);
        QuaZipFileInfo64 info;
        if (!openEntry(entry, info, target))
            return false;
        QFile::Permissions permissions = info.getPermissions();
        if (target.endsWith(QLatin1Char('/'))) {
            if (!QDir().mkpath(target))
                return false;
            if (permissions != 0)
                QFile::setPermissions(target, permissions);
            return true;
        }

        const QFileInfo existing(target);
        if (existing.exists() && !existing.isFile())
            return false;
        // Like a file opened over the old one: with no permissions of its own, a
        // replacement keeps the old file's.
        if (permissions == 0 && existing.exists())
            permissions = existing.permissions();

        QFile output(unusedNameBeside(target));
        if (!output.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            return false;
        m_files.push_back({output.fileName(), target, QString(), false});
        if (!copyEntry(entry, output) || !output.flush())
            return false;
        output.close();
        return output.error() == QFileDevice::NoError
            && (permissions == 0 || QFile::setPermissions(output.fileName(), permissions));
    }

    bool moveIn()
    {
        for (size_t i = 0; i < m_files.size(); ++i) {
            StagedFile& file = m_files[i];
            if (QFileInfo::exists(file.target)) {
                const QString backup = unusedNameBeside(file.target);
                if (!QFile::rename(file.target, backup))
                    return undo(i);
                file.backup = backup;
            }
            file.moved = QFile::rename(file.staged, file.target);
            if (!file.moved)
                return undo(i + 1);
        }
        for (const StagedFile& file : m_files)
            if (!file.backup.isEmpty())
                QFile::remove(file.backup);
        return true;
    }

private:
    struct StagedFile
    {
        QString staged;
        QString target;
        QString backup; // the file that was at target, moved aside
        bool moved;
    };

    // Puts back what stood at each target before the first count moves, latest first.
    bool undo(size_t count)
    {
        while (count-- > 0) {
            StagedFile& file = m_files[count];
            if (file.moved && QFile::remove(file.target))
                file.moved = false;
            if (!file.backup.isEmpty() && !QFileInfo::exists(file.target))
                QFile::rename(file.backup, file.target);
        }
        return false;
    }

    std::vector<StagedFile> m_files;
};

// Whether every entry of the open archive may be written below directory. An archive
// whose listing cannot be read to its end counts as unsafe.
bool hasOnlySafeEntries(QuaZip& zip, const QString& directory)
{
    const ExtractionGuard guard(directory);
    const QDir target(directory);
    for (bool more = zip.goToFirstFile(); more; more = zip.goToNextFile()) {
        const QString name = zip.getCurrentFileName();
        if (!guard.allows(zip, name, target.absoluteFilePath(name)))
            return false;
    }
    return zip.getZipError() == UNZ_OK;
}

} // namespace

namespace VEXA_NAMESPACE {

bool CompressFiles(const QStringList& files, const QString& archive)
{
    // The new archive is written beside the old one and renamed over it only when it
    // is complete, so that a failure leaves whatever was at that path untouched.
    QSaveFile output(archive);
    if (!output.open(QIODevice::WriteOnly))
        return false;
    QuaZip zip(&output);
    zip.setAutoClose(false); // QSaveFile is committed below, never closed
    if (!zip.open(QuaZip::mdCreate))
        return false;
    bool written = true;
    for (const QString& file : files) {
        const QFileInfo info(file);
        written = written && info.exists() && JlCompress::compressFile(&zip, info.absoluteFilePath(), info.fileName());
    }
    zip.close();
    return written && zip.getZipError() == ZIP_OK && output.commit();
}

void DecompressFiles(const QString& archive, const QString& directory)
{
    QDir target(directory);
    if (!target.exists())
        target.mkpath(directory);

    // The archive is checked and extracted through one open file: opened again by name,
    // it could be another archive by then.
    QuaZip zip(archive);
    if (!zip.open(QuaZip::mdUnzip) || !hasOnlySafeEntries(zip, directory))
        return;
    const ExtractionGuard guard(directory);
    StagedExtraction extraction;
    for (bool more = zip.goToFirstFile(); more; more = zip.goToNextFile()) {
        const QString name = zip.getCurrentFileName();
        const QString targetPath = target.absoluteFilePath(name);
        if (!guard.allows(zip, name, targetPath) || !extraction.stage(zip, targetPath))
            return;
    }
    if (zip.getZipError() == UNZ_OK)
        extraction.moveIn();
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
        if (!guard.allows(zip, name, targetPath) || !extractEntry(zip, targetPath))
            result = false;
    } while (zip.goToNextFile());

    zip.close();
    return result;
}
