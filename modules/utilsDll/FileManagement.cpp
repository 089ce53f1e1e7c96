#include "FileManagement.h"

#include "Log.h"
#include "platform/FileManagement_p.h"

#include <QStorageInfo>

#include <cmath>
#include <vector>

namespace VEXA_NAMESPACE {

namespace {

constexpr int kMaxPathLength = 32767;
constexpr int kMaxPathPartLength = 261;

// Support tools match these line numbers in the assertion reports of
// selectFilesInShell, so they stay fixed whatever this file looks like.
constexpr int kSelectedFileReportLine = 81;
constexpr int kShellSelectionReportLine = 92;

// Windows' reserved device names. They are compared by hand, in any case, rather than
// with a shared QRegExp: validateFileName runs on any thread, and QRegExp keeps its
// match state in the object, so concurrent matches on one pattern corrupt memory.
const char* const kReservedNames[] = {"CON",  "PRN",  "AUX",  "NUL",  "COM1", "COM2", "COM3", "COM4",
                                      "COM5", "COM6", "COM7", "COM8", "COM9", "LPT1", "LPT2", "LPT3",
                                      "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9"};

// The whole text is a reserved name: "CON.txt", "COM0" and "CON1" are not.
bool isReservedName(QStringView text)
{
    for (const char* name : kReservedNames) {
        if (text.compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

// The part after the last forward slash or backslash is a reserved name; a text with
// no separator has no such part. Names hold no separator, so the last one decides.
bool hasReservedLastPart(const QString& text)
{
    const int separator = qMax(text.lastIndexOf(QLatin1Char('/')), text.lastIndexOf(QLatin1Char('\\')));
    return separator >= 0 && isReservedName(QStringView(text).mid(separator + 1));
}

QString nativeCleanPath(const QString& name)
{
    return QDir::toNativeSeparators(QDir::cleanPath(name));
}

bool hasOverlongPart(const QString& text)
{
    const QStringList parts = nativeCleanPath(text).split(QDir::separator(), Qt::SkipEmptyParts,
                                                          Qt::CaseSensitive);
    for (const QString& part : parts) {
        if (part.size() >= kMaxPathPartLength)
            return true;
    }
    return false;
}

bool hasForbiddenCharacter(const QString& text, bool isPath)
{
    // The colon and the separators are allowed only in a path.
    static const QString pathForbidden = QStringLiteral("<>\"|?*");
    static const QString nameForbidden = QStringLiteral("<>:\"|?*/\\");
    const QString& forbidden = isPath ? pathForbidden : nameForbidden;
    for (const QChar character : text) {
        if (forbidden.contains(character))
            return true;
    }
    return false;
}

QString comparedText(const QFileInfo& info, FileCompareCondition condition)
{
    switch (condition) {
    case FullPath:
        return QDir::cleanPath(info.filePath());
    case PathAndBaseName:
        return QDir::cleanPath(info.path()) + info.completeBaseName();
    case FileName:
        return info.fileName();
    case BaseName:
        return info.completeBaseName();
    }
    return QString();
}

std::vector<std::wstring> existingItems(const QStringList& files)
{
    std::vector<std::wstring> items;
    items.reserve(static_cast<size_t>(files.size()));
    for (const QString& file : files) {
        if (QFileInfo(file).exists())
            items.push_back(QDir::toNativeSeparators(file).toStdWString());
    }
    return items;
}

} // namespace

ErrorCodes moveFileToTrash(const QString& path)
{
    if (!QFileInfo(path).exists())
        return FileOperationFailed;
    // The path goes to the shell as it stands, separators unchanged.
    return VexaPlatform::moveToTrash(path.toStdWString()) ? FileOperationSucceeded : FileOperationFailed;
}

bool renameFile(const QString& oldName, const QString& newName)
{
    return VexaPlatform::renameWithoutOverwrite(nativeCleanPath(oldName).toStdWString(),
                                                nativeCleanPath(newName).toStdWString());
}

void selectFilesInShell(const QString& folder, const QStringList& files)
{
    if (!QFileInfo(folder).exists() || files.isEmpty())
        return;
    if (!folder.isEmpty()) {
        const std::vector<std::wstring> items = existingItems(files);
        const bool folderResolved =
            VexaPlatform::showItemsInFileManager(QDir::toNativeSeparators(folder).toStdWString(), items);
        // One report per existing file, and one per call, are intended: tools that
        // read the log count them.
        if (folderResolved) {
            for (size_t i = 0; i < items.size(); ++i)
                reportAssert(__FILE__, kSelectedFileReportLine);
        }
    }
    reportAssert(__FILE__, kShellSelectionReportLine);
}

QString normalizedFilePath(const QString& path)
{
    return QDir::toNativeSeparators(path).toLower();
}

bool validateFileName(const QString& name, bool isPath)
{
    const QString text = nativeCleanPath(name);
    if (text.isEmpty() || text.size() >= kMaxPathLength)
        return false;
    if (hasOverlongPart(text))
        return false;
    if (hasForbiddenCharacter(text, isPath))
        return false;
    // Deliberately also refuses two dots inside a name such as "a..b".
    if (text.contains(QLatin1String(".."), Qt::CaseSensitive))
        return false;
    if (isReservedName(text))
        return false;
    if (!isPath)
        return true;
    return !hasReservedLastPart(text);
}

bool isEqualFileOrDirNames(const QFileInfo& first, const QFileInfo& second, FileCompareCondition condition)
{
    return QString::compare(comparedText(first, condition), comparedText(second, condition),
                            Qt::CaseInsensitive) == 0;
}

bool removeDirectoryContent(const QDir& directory)
{
    if (!directory.exists())
        return false;

    // Kept as the product always had it: folders are emptied but not removed, and an
    // empty folder answers false, which ends the whole walk (folders come first).
    // QDir::System lists symbolic links, including broken ones; they are removed as
    // files, never followed.
    const QFileInfoList entries = directory.entryInfoList(
        QDir::Files | QDir::Hidden | QDir::System | QDir::AllDirs | QDir::NoDot | QDir::NoDotDot,
        QDir::DirsFirst);
    bool result = false;
    for (const QFileInfo& entry : entries) {
        const QString path = entry.absoluteFilePath();
        if (entry.isDir() && !entry.isSymLink())
            result = removeDirectoryContent(QDir(path));
        else
            result = QFile::remove(path);
        if (!result)
            break;
    }
    return result;
}

qint64 availableDiskSpace(const QString& path)
{
    return QStorageInfo(path).bytesAvailable();
}

double roundWithPrecision(double value, int precision)
{
    // The value deliberately comes back as a whole number here.
    if (precision <= 0 || value == 0.0)
        return static_cast<double>(qRound(value));

    const double scale = precision == 2 ? 100.0 : std::pow(10.0, precision);
    double whole = 0.0;
    const double fraction = std::modf(scale * value, &whole);
    if (std::fabs(fraction) <= 1e-12)
        return value;

    // Only the fraction goes through qRound, so the whole part may exceed int.
    const double rounded = (qRound(fraction) + whole) / scale;
    if (qFuzzyCompare(value, rounded))
        return value;
    return rounded;
}

} // namespace VEXA_NAMESPACE
