#include "ArchiveHelpers.h"
#include "FileTestHelpers.h"
#include "TestEnvironment.h"

#include <quazip.h>
#include <quazipfile.h>
#include <quazipnewinfo.h>

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

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
};

bool makeArchive(const QString& path, const QList<Entry>& entries)
{
    QuaZip zip(path);
    bool written = zip.open(QuaZip::mdCreate);
    for (const Entry& entry : entries) {
        QuaZipNewInfo info(entry.name);
        info.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
        if (entry.symlink)
            info.externalAttr = kUnixSymlinkAttributes;
        QuaZipFile file(&zip);
        written = written && file.open(QIODevice::WriteOnly, info, nullptr, 0, entry.stored ? 0 : Z_DEFLATED,
                                       entry.stored ? 0 : Z_DEFAULT_COMPRESSION)
            && file.write(entry.data) == entry.data.size();
        file.close();
        written = written && file.getZipError() == ZIP_OK;
    }
    zip.close();
    return written && zip.getZipError() == ZIP_OK;
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

} // namespace

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

        QTest::newRow("parent after folder") << "sub/../../escaped.txt" << false;
        QTest::newRow("backslash deep parent") << "sub\\..\\..\\escaped.txt" << false;
        QTest::newRow("absolute") << "@BASE@/escaped.txt" << false;
        QTest::newRow("backslash absolute") << "\\escaped.txt" << false;
        QTest::newRow("drive letter, relative") << "c:escaped.txt" << false;
        QTest::newRow("symbolic link") << "link" << true;
    }

    void hostileEntriesStayInside()
    {
        QFETCH(QString, hostileName);
        QFETCH(bool, symlink);
        hostileName.replace("@BASE@", m_base->path());
        // A link entry's data is its target.
        const QByteArray hostileData = symlink ? QFile::encodeName(m_base->path()) : QByteArray("escaped");
        Entry hostile{hostileName, hostileData, symlink};
        QVERIFY(makeArchive(m_archive, {{"before.txt", "b"}, hostile, {"after.txt", "a"}}));

        QVERIFY(!plainDecompress(m_archive, m_target));
        QCOMPARE(treeBelow(m_base->path()), QStringList() << "target" << "target/after.txt" << "target/before.txt");

        // The namespace function unpacks nothing of an archive with such an entry.
        const QString second = m_base->filePath("second");
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
        QByteArray bytes = readFile(m_archive);
        const int at = stored ? bytes.indexOf(payload.mid(1000, 64)) : bytes.indexOf("broken.bin") + 2010;
        QVERIFY(at > 0);
        for (int i = 32; i < 48; ++i)
            bytes[at + i] = char(bytes[at + i] ^ 0x5A);
        QVERIFY(writeFile(m_archive, bytes));

        QVERIFY(!plainDecompress(m_archive, m_target));
        QVERIFY(!QFile::exists(m_target + "/broken.bin"));
        QCOMPARE(readFile(m_target + "/first.txt"), QByteArray("1"));
        QCOMPARE(readFile(m_target + "/last.txt"), QByteArray("3"));
    }

private:
    QScopedPointer<QTemporaryDir> m_base;
    QString m_target;
    QString m_archive;
};

UTILSDLL_TEST_MAIN(TestArchiveHelpers)
#include "tst_archivehelpers.moc"
