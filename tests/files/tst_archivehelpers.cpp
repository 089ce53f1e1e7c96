#include "ArchiveHelpers.h"
#include "FileTestHelpers.h"
#include "TestEnvironment.h"

#include <quazip.h>
#include <quazipfile.h>
#include <quazipnewinfo.h>

#include <QDirIterator>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>

#ifdef Q_OS_LINUX
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#endif

using namespace VEXA_NAMESPACE;
using namespace UtilsDllTest;

namespace {

constexpr quint32 kUnixSymlinkAttributes = 0120777u << 16;

struct Entry
{
    QString name;
    QByteArray data;
    bool symlink = false;
    bool stored = false;
    bool damaged = false; // stored, with bytes of its data flipped: a checksum mismatch (data of 1064 bytes or more)
};

} // namespace

Q_DECLARE_METATYPE(QList<Entry>)

namespace {

// Flips bytes 32 to 47 after the first place where needle stands, plus offset.
bool damageArchive(const QString& path, const QByteArray& needle, int offset)
{
    QByteArray bytes = readFile(path);
    const int at = bytes.indexOf(needle) + offset;
    if (at < 0 || at + 48 > bytes.size())
        return false;
    for (int i = 32; i < 48; ++i)
        bytes[at + i] = char(bytes[at + i] ^ 0x5A);
    return writeFile(path, bytes);
}

bool makeArchive(const QString& path, const QList<Entry>& entries)
{
    QuaZip zip(path);
    bool written = zip.open(QuaZip::mdCreate);
    for (const Entry& entry : entries) {
        QuaZipNewInfo info(entry.name);
        // A folder without its execute bits could not be entered by anyone but root.
        const QFile::Permissions folder =
            entry.name.endsWith('/') ? QFile::ExeOwner | QFile::ExeGroup : QFile::Permissions();
        info.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | folder);
        if (entry.symlink)
            info.externalAttr = kUnixSymlinkAttributes;
        const bool stored = entry.stored || entry.damaged;
        QuaZipFile file(&zip);
        written = written && file.open(QIODevice::WriteOnly, info, nullptr, 0, stored ? 0 : Z_DEFLATED,
                                       stored ? 0 : Z_DEFAULT_COMPRESSION)
            && file.write(entry.data) == entry.data.size();
        file.close();
        written = written && file.getZipError() == ZIP_OK;
    }
    zip.close();
    written = written && zip.getZipError() == ZIP_OK;
    for (const Entry& entry : entries)
        if (entry.damaged)
            written = written && damageArchive(path, entry.data.mid(1000, 64), 0);
    return written;
}

// Every file, folder and link below root, relative to it.
QStringList treeBelow(const QString& root)
{
    QStringList entries;
    QDirIterator it(root, QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        entries << QDir(root).relativeFilePath(it.next());
    entries.sort();
    return entries;
}

// Pseudo-random bytes; with `letters`, from a small alphabet that deflates to about
// half, so that a deflated entry has a long stream.
QByteArray patternedData(int size, quint32 seed, bool letters = false)
{
    QByteArray data(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i) {
        seed = seed * 1664525u + 1013904223u;
        data[i] = letters ? char('a' + ((seed >> 24) % 16)) : char(seed >> 24);
    }
    return data;
}

bool plainDecompress(const QString& archive, const QString& directory)
{
    return ::DecompressFiles(archive.toStdWString(), directory.toStdWString());
}

// Every file below root with its content, folders as empty values: what a failure must
// leave alone byte for byte, and what shows any file left behind.
QMap<QString, QByteArray> contentBelow(const QString& root)
{
    QMap<QString, QByteArray> content;
    for (const QString& name : treeBelow(root))
        content.insert(name, QFileInfo(root + '/' + name).isDir() ? QByteArray() : readFile(root + '/' + name));
    return content;
}

// Mounts a file system of 1 MiB at folder; false when this process may not.
bool mountTinyFileSystem(const QString& folder)
{
#ifdef Q_OS_LINUX
    return ::geteuid() == 0 && ::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=1m") == 0;
#else
    Q_UNUSED(folder);
    return false;
#endif
}

void unmount(const QString& folder)
{
#ifdef Q_OS_LINUX
    ::umount2(QFile::encodeName(folder).constData(), MNT_DETACH);
#else
    Q_UNUSED(folder);
#endif
}

#ifdef Q_OS_LINUX
// Stands in for another process that renames an archive into place: when the library
// opens the watched archive a second time, the swap is renamed over it first.
std::atomic<int> s_watchedOpens{0};
QByteArray s_watchedArchive, s_swapArchive;
#endif

} // namespace

#ifdef Q_OS_LINUX
// Every open of the process passes here: the Qt library calls the executable's open64.
extern "C" __attribute__((visibility("default"))) int open64(const char* path, int flags, ...)
{
    mode_t mode = 0;
    if (flags & (O_CREAT | O_TMPFILE)) {
        va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    using Open = int (*)(const char*, int, ...);
    static const Open next = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "open64"));
    if (!s_watchedArchive.isEmpty() && s_watchedArchive == path && ++s_watchedOpens == 2)
        std::rename(s_swapArchive.constData(), path);
    return next(path, flags, mode);
}
#endif

class TestArchiveHelpers : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        // base/target is unpacked into; anything escaping would show up in base.
        m_base.reset(new QTemporaryDir);
        m_target = m_base->filePath("target");
        QVERIFY(QDir().mkpath(m_target));
        m_archive = QDir::temp().filePath(QStringLiteral("archive-%1.zip").arg(QTest::currentTestFunction()));
        QFile::remove(m_archive);
    }

    void compressAndDecompressRoundTrip()
    {
        QTemporaryDir sources;
        const QByteArray binary = patternedData(70000, 7), text = patternedData(70000, 8, true);
        QVERIFY(writeFile(sources.filePath("image.raw"), binary) && writeFile(sources.filePath("notes.txt"), text));
        QVERIFY(CompressFiles(QStringList() << sources.filePath("notes.txt") << sources.filePath("image.raw"), m_archive));
        VEXA_NAMESPACE::DecompressFiles(m_archive, m_target);
        QCOMPARE(treeBelow(m_target), QStringList() << "image.raw" << "notes.txt");
        QCOMPARE(readFile(m_target + "/notes.txt") + readFile(m_target + "/image.raw"), text + binary);

        // Over files already there: replaced, with nothing left beside them.
        QVERIFY(writeFile(m_target + "/notes.txt", "user's notes"));
        VEXA_NAMESPACE::DecompressFiles(m_archive, m_target);
        QCOMPARE(treeBelow(m_target), QStringList() << "image.raw" << "notes.txt");
        QCOMPARE(readFile(m_target + "/notes.txt"), text);

        QVERIFY(!CompressFiles(QStringList() << sources.filePath("missing.txt"), m_base->filePath("other.zip")));

        // The namespace function makes the target even when there is nothing to unpack.
        const QString target = m_base->filePath("new/deeper");
        VEXA_NAMESPACE::DecompressFiles(m_base->filePath("missing.zip"), target);
        QVERIFY(QFileInfo(target).isDir());
    }

    void plainDecompressReportsEachEntry()
    {
        QVERIFY(makeArchive(m_archive, {{"first.txt", "1"}, {"sub/", ""}, {"blocked.txt", "2"}, {"sub/last.txt", "3"}}));
        // A folder where the file should go makes that one entry fail.
        QVERIFY(QDir(m_target).mkdir("blocked.txt"));

        QVERIFY(!plainDecompress(m_archive, m_target));
        QCOMPARE(readFile(m_target + "/first.txt"), QByteArray("1"));
        QCOMPARE(readFile(m_target + "/sub/last.txt"), QByteArray("3"));
        QVERIFY2(QFileInfo(m_target + "/sub").isDir(), "a folder entry creates its folder and still fails");
#ifndef Q_OS_WIN // the entry's Unix permissions; Windows files have none of these bits
        QCOMPARE(QFile::permissions(m_target + "/first.txt") & (QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
                                                               | QFile::WriteGroup | QFile::ReadOther),
                 QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
#endif

        const QString clean = m_base->filePath("clean");
        QVERIFY(makeArchive(m_archive, {{"a.txt", "a"}, {"b/c.txt", "c"}}));
        QVERIFY(plainDecompress(m_archive, clean));
        QCOMPARE(treeBelow(clean), QStringList() << "a.txt" << "b" << "b/c.txt");

        // Archives that cannot be read at all.
        QVERIFY(!plainDecompress(m_base->filePath("missing.zip"), m_target));

        QVERIFY(makeArchive(m_archive, {}));
        QVERIFY(!plainDecompress(m_archive, m_target));
    }

    void hostileEntriesStayInside_data()
    {
        QTest::addColumn<QString>("hostileName");
        QTest::addColumn<bool>("symlink");
        QTest::addColumn<bool>("outsideHere"); // or a plain file name on this system

#ifdef Q_OS_WIN
        const bool windows = true;
#else
        const bool windows = false;
#endif
        QTest::newRow("parent after folder") << "sub/../../escaped.txt" << false << true;
        QTest::newRow("backslash deep parent") << "sub\\..\\..\\escaped.txt" << false << windows;
        QTest::newRow("absolute") << "@BASE@/escaped.txt" << false << true;
        QTest::newRow("backslash absolute") << "\\escaped.txt" << false << windows;
        QTest::newRow("drive letter, relative") << "c:escaped.txt" << false << windows;
        QTest::newRow("symbolic link") << "link" << true << true;
    }

    void hostileEntriesStayInside()
    {
        QFETCH(QString, hostileName);
        QFETCH(bool, symlink);
        QFETCH(bool, outsideHere);
        hostileName.replace("@BASE@", m_base->path());
        // A link entry's data is its target.
        const QByteArray hostileData = symlink ? QFile::encodeName(m_base->path()) : QByteArray("escaped");
        Entry hostile{hostileName, hostileData, symlink};
        QVERIFY(makeArchive(m_archive, {{"before.txt", "b"}, hostile, {"after.txt", "a"}}));
        const QString second = m_base->filePath("second");

        if (!outsideHere) {
            // Nothing to refuse: one more file in the target, under its literal name.
            QStringList expected = QStringList() << "after.txt" << "before.txt" << hostileName;
            expected.sort();
            QVERIFY(plainDecompress(m_archive, m_target));
            QCOMPARE(treeBelow(m_target), expected);
            QCOMPARE(readFile(m_target + '/' + hostileName), QByteArray("escaped"));
            VEXA_NAMESPACE::DecompressFiles(m_archive, second);
            QCOMPARE(treeBelow(second), expected);
            return;
        }

        QVERIFY(!plainDecompress(m_archive, m_target));
        QCOMPARE(treeBelow(m_base->path()), QStringList() << "target" << "target/after.txt" << "target/before.txt");

        // The namespace function unpacks nothing of an archive with such an entry.
        VEXA_NAMESPACE::DecompressFiles(m_archive, second);
        QCOMPARE(treeBelow(m_base->path()),
                 QStringList() << "second" << "target" << "target/after.txt" << "target/before.txt");
    }

    void existingLinkInTargetIsNotFollowed()
    {
        // Beside the target, and named like it: a prefix of a path is not its folder.
        const QString outside = m_target + "-outside";
        QVERIFY(QDir().mkpath(outside));
        QVERIFY(QFile::link(outside, m_target + "/linked"));
        QVERIFY(writeFile(outside + "/kept.txt", "original"));
        QVERIFY(QFile::link(outside + "/kept.txt", m_target + "/file-link.txt"));
        QVERIFY(makeArchive(m_archive, {{"linked/planted.txt", "x"}, {"file-link.txt", "overwritten"}, {"ok.txt", "ok"}}));

        QVERIFY(!plainDecompress(m_archive, m_target));
        QCOMPARE(treeBelow(outside), QStringList() << "kept.txt");
        QCOMPARE(readFile(outside + "/kept.txt"), QByteArray("original"));
        QCOMPARE(readFile(m_target + "/ok.txt"), QByteArray("ok"));

        const QString second = m_base->filePath("second");
        QVERIFY(QDir().mkpath(second));
        QVERIFY(QFile::link(outside, second + "/linked"));
        VEXA_NAMESPACE::DecompressFiles(m_archive, second);
        QCOMPARE(treeBelow(outside), QStringList() << "kept.txt");
    }

    void corruptEntryLeavesNoFile_data()
    {
        QTest::addColumn<bool>("stored");
        QTest::newRow("stored, checksum mismatch") << true;
        QTest::newRow("deflated, broken stream") << false;
    }

    void corruptEntryLeavesNoFile()
    {
        QFETCH(bool, stored);
        // The bytes to damage are found in what the archive holds: the stored data itself,
        // or a stretch of the deflated stream after the entry's local header.
        const QByteArray payload = patternedData(200000, 3, !stored);
        QVERIFY(makeArchive(m_archive, {{"first.txt", "1"}, {"broken.bin", payload, false, stored}, {"last.txt", "3"}}));
        QVERIFY(stored ? damageArchive(m_archive, payload.mid(1000, 64), 0) : damageArchive(m_archive, "broken.bin", 2010));

        QVERIFY(!plainDecompress(m_archive, m_target));
        QVERIFY(!QFile::exists(m_target + "/broken.bin"));
        QCOMPARE(readFile(m_target + "/first.txt"), QByteArray("1"));
        QCOMPARE(readFile(m_target + "/last.txt"), QByteArray("3"));
    }

    // Whatever makes an extraction fail part-way, the files that were in the target
    // stay byte for byte. The namespace function then changes nothing at all; the
    // plain one replaces a file only with the complete content of its entry.
    void failedExtractionKeepsUserFiles_data()
    {
        QTest::addColumn<QStringList>("userFiles"); // each holds "user's <name>"
        QTest::addColumn<QList<Entry>>("entries");
        QTest::addColumn<QString>("failing");
        QTest::addColumn<bool>("tinyFileSystem");

        const QByteArray payload = patternedData(200000, 5);
        QTest::newRow("checksum mismatch") << QStringList{"photo.jpg", "broken.bin"}
                                           << QList<Entry>{{"photo.jpg", "new photo"},
                                                           {"broken.bin", payload, false, true, true},
                                                           {"new.txt", "new"}}
                                           << "broken.bin" << false;
        QTest::newRow("entry named like a folder") << QStringList{"photo.jpg", "album/a.jpg"}
                                                   << QList<Entry>{{"photo.jpg", "new photo"},
                                                                   {"album", "not a folder"},
                                                                   {"new.txt", "new"}}
                                                   << "album" << false;
        // Nothing hostile: a 4 MiB photo onto a 1 MiB file system.
        QTest::newRow("file system full") << QStringList{"photo.jpg", "notes.txt"}
                                          << QList<Entry>{{"photo.jpg", patternedData(4 << 20, 6, true)},
                                                          {"new.txt", "new"}}
                                          << "photo.jpg" << true;
    }

    void failedExtractionKeepsUserFiles()
    {
        QFETCH(QStringList, userFiles);
        QFETCH(QList<Entry>, entries);
        QFETCH(QString, failing);
        QFETCH(bool, tinyFileSystem);
        QVERIFY(makeArchive(m_archive, entries));

        const QString root = m_base->filePath("fs");
        QVERIFY(QDir().mkpath(root));
        if (tinyFileSystem && !mountTinyFileSystem(root))
            QSKIP("cannot mount a 1 MiB tmpfs here (that needs root)");
        const auto unmountLater = qScopeGuard([&] {
            if (tinyFileSystem)
                unmount(root);
        });

        const auto fillWithUserFiles = [&](const QString& folder) {
            for (const QString& name : userFiles)
                if (!QDir().mkpath(QFileInfo(folder + '/' + name).absolutePath())
                    || !writeFile(folder + '/' + name, "user's " + name.toUtf8()))
                    return false;
            return true;
        };
        const QString namespaceTarget = root + "/namespace", plainTarget = root + "/plain";
        QVERIFY(fillWithUserFiles(namespaceTarget) && fillWithUserFiles(plainTarget));
        const QMap<QString, QByteArray> before = contentBelow(namespaceTarget);

        VEXA_NAMESPACE::DecompressFiles(m_archive, namespaceTarget);
        QCOMPARE(contentBelow(namespaceTarget), before);

        QMap<QString, QByteArray> expected = before;
        for (const Entry& entry : entries)
            if (entry.name != failing)
                expected.insert(entry.name, entry.data);
        QVERIFY(!plainDecompress(m_archive, plainTarget));
        QCOMPARE(contentBelow(plainTarget), expected);
    }

    void failedCompressionKeepsTheOldArchive_data()
    {
        QTest::addColumn<bool>("tinyFileSystem");
        QTest::newRow("missing file") << false;
        QTest::newRow("file system full") << true;
    }

    void failedCompressionKeepsTheOldArchive()
    {
        QFETCH(bool, tinyFileSystem);
        const QString root = m_base->filePath("fs"), archive = root + "/photos.zip";
        QVERIFY(QDir().mkpath(root));
        if (tinyFileSystem && !mountTinyFileSystem(root))
            QSKIP("cannot mount a 1 MiB tmpfs here (that needs root)");
        const auto unmountLater = qScopeGuard([&] {
            if (tinyFileSystem)
                unmount(root);
        });
        QTemporaryDir sources;
        const QString big = sources.filePath("big.raw");
        QVERIFY(writeFile(big, patternedData(4 << 20, 9))); // does not deflate
        QVERIFY(makeArchive(archive, {{"old.txt", "old"}}));
        const QMap<QString, QByteArray> before = contentBelow(root);

        QStringList files{big};
        if (!tinyFileSystem)
            files << sources.filePath("missing.txt");
        QVERIFY(!CompressFiles(files, archive));
        QCOMPARE(contentBelow(root), before);

        if (!tinyFileSystem) { // a complete archive does replace the old one
            QVERIFY(CompressFiles(QStringList() << big, archive));
            QVERIFY(plainDecompress(archive, m_target));
            QCOMPARE(treeBelow(m_target), QStringList() << "big.raw");
            QCOMPARE(treeBelow(root), QStringList() << "photos.zip");
        }
    }

    // Another process renames a hostile archive over the one being extracted, right after
    // the library first opened it: nothing of the swapped archive may land anywhere.
    void checkedArchiveIsTheExtractedOne()
    {
#ifndef Q_OS_LINUX
        QSKIP("the swap is made inside the library's open call, which only the Linux build intercepts");
#else
        const QString swap = QDir::temp().filePath("swap.zip");
        QVERIFY(makeArchive(m_archive, {{"benign.txt", "benign"}}));
        QVERIFY(makeArchive(swap, {{"link", QFile::encodeName(m_base->path()), true}, {"link/planted.txt", "planted"}}));
        s_watchedOpens = 0;
        s_watchedArchive = QFile::encodeName(m_archive);
        s_swapArchive = QFile::encodeName(swap);
        const auto stopWatching = qScopeGuard([] { s_watchedArchive.clear(); });

        VEXA_NAMESPACE::DecompressFiles(m_archive, m_target);
        QVERIFY2(s_watchedOpens >= 1, "the open hook never saw the archive");
        QCOMPARE(treeBelow(m_base->path()), QStringList() << "target" << "target/benign.txt");
        QCOMPARE(readFile(m_target + "/benign.txt"), QByteArray("benign"));
#endif
    }

private:
    QScopedPointer<QTemporaryDir> m_base;
    QString m_target;
    QString m_archive;
};

UTILSDLL_TEST_MAIN(TestArchiveHelpers)
#include "tst_archivehelpers.moc"
