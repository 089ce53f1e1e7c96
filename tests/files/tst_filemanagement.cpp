#include "FileManagement.h"
#ifndef Q_OS_WIN
#include "RenameNoReplace_p.h"
#endif
#include "FileTestHelpers.h"
#include "TestEnvironment.h"
#include "TestLogger.h"

using namespace VEXA_NAMESPACE;
using namespace UtilsDllTest;

class TestFileManagement : public QObject
{
    Q_OBJECT
private slots:
    void validateFileName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isPath");
        QTest::addColumn<bool>("valid");

        QTest::newRow("empty") << QString() << false << false;
        QTest::newRow("plain name") << "photo.jpg" << false << true;
        const QString shortParts = (QString(200, 'a') + '/').repeated(163); // 32763 characters
        QTest::newRow("32767 characters in short parts") << shortParts + "bbbb" << true << false;
        QTest::newRow("32766 characters in short parts") << shortParts + "bbb" << true << true;
        QTest::newRow("part of 260") << "dir/" + QString(260, 'x') << true << true;
        QTest::newRow("part of 261") << "dir/" + QString(261, 'x') << true << false;
        QTest::newRow("colon in path") << "a:b" << true << true;
        QTest::newRow("colon in name") << "a:b" << false << false;
        QTest::newRow("separator in name") << "dir/file" << false << false;
        for (const QChar forbidden : QStringLiteral("\"<>|?*"))
            QTest::addRow("%c in path", forbidden.toLatin1()) << QString("dir/a") + forbidden + "b.jpg" << true << false;
        QTest::newRow("dots inside a name") << "a..b" << false << false;
        QTest::newRow("leading parent") << "../photo.jpg" << true << false;
        QTest::newRow("resolved parent") << "dir/../photo.jpg" << true << true;
        QTest::newRow("reserved name, any case") << "con" << false << false;
        QTest::newRow("reserved name with extension") << "con.txt" << false << true;
        QTest::newRow("COM0 is not reserved") << "COM0" << false << true;
        QTest::newRow("reserved last part") << "dir/con" << true << false;
        QTest::newRow("reserved middle part") << "dir/aux/file" << true << true;
    }

    void validateFileName()
    {
        QFETCH(QString, name);
        QFETCH(bool, isPath);
        QFETCH(bool, valid);
        QCOMPARE(VEXA_NAMESPACE::validateFileName(name, isPath), valid);
    }

    void isEqualFileOrDirNames_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::addColumn<int>("condition");
        QTest::addColumn<bool>("equal");

        QTest::newRow("case ignored") << "dir/A.JPG" << "dir/a.jpg" << int(FullPath) << true;
        QTest::newRow("full path cleaned") << "dir/./sub/../a.jpg" << "dir/a.jpg" << int(FullPath) << true;
        QTest::newRow("path and base name ignore extension") << "dir/a.jpg" << "dir/a.tif" << int(PathAndBaseName) << true;
        QTest::newRow("path and base name meet with no separator") << "dir/ab.jpg" << "dira/b.jpg" << int(PathAndBaseName) << true;
        QTest::newRow("file name ignores folder") << "one/a.jpg" << "two/a.jpg" << int(FileName) << true;
        QTest::newRow("file name keeps extension") << "one/a.jpg" << "one/a.tif" << int(FileName) << false;
        QTest::newRow("base name stops at last dot") << "a.tar.gz" << "a.tar.jpg" << int(BaseName) << true;
        QTest::newRow("unknown condition answers true") << "a.jpg" << "b.png" << 7 << true;
    }

    void isEqualFileOrDirNames()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        QFETCH(int, condition);
        QFETCH(bool, equal);
        QCOMPARE(VEXA_NAMESPACE::isEqualFileOrDirNames(QFileInfo(first), QFileInfo(second), FileCompareCondition(condition)), equal);
    }

    void removeDirectoryContent()
    {
        QTemporaryDir root, outside;
        const QDir dir(root.path());
        QVERIFY(!VEXA_NAMESPACE::removeDirectoryContent(QDir(root.filePath("missing"))));
        QVERIFY2(!VEXA_NAMESPACE::removeDirectoryContent(dir), "an empty folder answers false");

        // Folders are emptied and kept, hidden files go too; links are removed, never followed.
        QVERIFY(dir.mkpath("sub/deeper") && writeFile(root.filePath("sub/deeper/a.txt")) && writeFile(root.filePath(".hidden")));
        QVERIFY(writeFile(outside.filePath("precious.txt")));
        QVERIFY(QFile::link(outside.path(), root.filePath("linkToFolder")));
        QVERIFY(QFile::link(outside.filePath("precious.txt"), root.filePath("linkToFile")));
        QVERIFY(QFile::link(root.filePath("nowhere"), root.filePath("brokenLink")));
        QVERIFY(VEXA_NAMESPACE::removeDirectoryContent(dir));
        QCOMPARE(readFile(outside.filePath("precious.txt")), QByteArray("data"));
        QCOMPARE(QDir(root.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
                 QStringList{"sub"});
        QCOMPARE(QDir(root.filePath("sub")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{"deeper"});

        // The now empty subfolder comes first and stops the walk: the file stays.
        QVERIFY(writeFile(root.filePath("kept.txt")));
        QVERIFY(!VEXA_NAMESPACE::removeDirectoryContent(dir));
        QVERIFY(QFile::exists(root.filePath("kept.txt")));
    }

    void renameNeverOverwritesAndTrash()
    {
        QTemporaryDir root;
        const QString path = root.filePath("photo.jpg");
        QCOMPARE(moveFileToTrash(path), FileOperationFailed);
        QVERIFY(writeFile(path, "pixels"));
        QCOMPARE(moveFileToTrash(path), FileOperationSucceeded);
#ifdef Q_OS_WIN
        QVERIFY(!QFile::exists(path)); // in the recycle bin, which only the shell lists
#else
        // The isolated test home has its own trash, so the file can be found there.
        const QString trash = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Trash/files";
        QDirIterator trashed(trash, QStringList() << "photo*.jpg", QDir::Files);
        QVERIFY2(trashed.hasNext() && !QFile::exists(path), qPrintable(trash));
        QCOMPARE(readFile(trashed.next()), QByteArray("pixels"));

        // On a fresh account the data home does not exist yet: the trash is made there,
        // and nothing lands in the current folder.
        const QByteArray dataHome = qgetenv("XDG_DATA_HOME");
        const QString previousFolder = QDir::currentPath();
        const auto restore = qScopeGuard([&] {
            qputenv("XDG_DATA_HOME", dataHome);
            QDir::setCurrent(previousFolder);
        });
        const QString freshHome = root.filePath("fresh/share");
        qputenv("XDG_DATA_HOME", QFile::encodeName(freshHome));
        QVERIFY(QDir::setCurrent(root.path()) && writeFile(root.filePath("first.jpg"), "first"));
        QCOMPARE(moveFileToTrash(root.filePath("first.jpg")), FileOperationSucceeded);
        QCOMPARE(readFile(freshHome + "/Trash/files/first.jpg"), QByteArray("first"));
        QVERIFY(!QFileInfo::exists(root.filePath("files")) && !QFileInfo::exists(root.filePath("first.jpg")));
#endif

        // The public call cleans both names; what exists is never replaced.
        const QString source = root.filePath("source.txt");
        QVERIFY(writeFile(source, "new") && writeFile(root.filePath("target.txt"), "old"));
        QVERIFY(!renameFile(source, root.filePath("target.txt")));
        QVERIFY(renameFile(source, root.filePath("sub/../renamed.txt")));
        QCOMPARE(readFile(root.filePath("renamed.txt")) + readFile(root.filePath("target.txt")), QByteArray("newold"));

#ifndef Q_OS_WIN
        // A copy to another file system whose original nobody, root included, may remove is
        // taken back: the move did not happen, and the file does not stand twice.
        const QString undeletable = QStringLiteral("/proc/self/comm");
        QVERIFY(!renameFile(undeletable, root.filePath("comm")));
        QVERIFY(QFile::exists(undeletable) && !QFile::exists(root.filePath("comm")));
#endif
    }

    // Both of Linux's ways of renaming, with RENAME_NOREPLACE and without it (NFS, some
    // FUSE), and Windows' own: folders rename too, and nothing that exists is ever replaced.
    void renameWithAndWithoutReplaceFlag_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("target"); // "free", or an existing "file" or "emptyFolder"
        QTest::addColumn<bool>("renamed");
        QTest::newRow("file to a free name") << "file" << "free" << true;
        QTest::newRow("file onto a file") << "file" << "file" << false;
        QTest::newRow("folder to a free name") << "folder" << "free" << true;
        QTest::newRow("folder onto an empty folder") << "folder" << "emptyFolder" << false;
        QTest::newRow("folder onto a file") << "folder" << "file" << false;
        QTest::newRow("missing source") << "missing" << "free" << false;
    }

    void renameWithAndWithoutReplaceFlag()
    {
        QFETCH(QString, source);
        QFETCH(QString, target);
        QFETCH(bool, renamed);
#ifdef Q_OS_WIN
        for (const auto rename : {&renameFile}) {
#else
        for (const auto rename : {&VexaPlatform::renameNoReplace, &VexaPlatform::renameWithoutReplaceFlag}) {
#endif
            QTemporaryDir root;
            QVERIFY(QDir(root.path()).mkpath("folder/inner") && QDir(root.path()).mkdir("emptyFolder"));
            QVERIFY(writeFile(root.filePath("folder/inner/a.txt"), "a") && writeFile(root.filePath("file"), "old"));
            const QString from = root.filePath(source == "file" ? "source.txt" : source);
            if (source == "file")
                QVERIFY(writeFile(from, "new"));
            const QString to = root.filePath(target);

            QCOMPARE(rename(from, to), renamed);
            QCOMPARE(QFileInfo::exists(from), !renamed && source != "missing");
            QCOMPARE(readFile(root.filePath("file")), QByteArray("old")); // never replaced
            QVERIFY(QDir(root.filePath("emptyFolder")).isEmpty());
            const QString moved = renamed ? to : from;
            if (source == "file")
                QCOMPARE(readFile(moved), QByteArray("new"));
            else if (source == "folder")
                QCOMPARE(readFile(moved + "/inner/a.txt"), QByteArray("a"));
        }
    }

    void selectFilesInShellReports()
    {
        QTemporaryDir root;
        QVERIFY(writeFile(root.filePath("a.jpg")) && writeFile(root.filePath("b.jpg")));
        UtilsDllTest::ScopedTestLogger logger;

        selectFilesInShell(root.filePath("missing"), QStringList() << root.filePath("a.jpg"));
        selectFilesInShell(root.path(), QStringList());
        QCOMPARE(logger->lines().size(), 0);

        // One report per existing file and one per call; the missing file gives none.
        selectFilesInShell(
            root.path(), QStringList() << root.filePath("a.jpg") << root.filePath("gone.jpg") << root.filePath("b.jpg"));
        const QStringList reports = logger->linesAt('E');
        QCOMPARE(reports.size(), 3);
        QVERIFY(reports.at(0).startsWith("ASSERT in ") && reports.at(0).endsWith(" 81"));
        QVERIFY(reports.at(1).endsWith(" 81") && reports.at(2).endsWith(" 92"));

        // A file in place of the folder resolves as the shell resolves it: the same reports.
        logger->clear();
        selectFilesInShell(root.filePath("a.jpg"), QStringList() << root.filePath("a.jpg") << root.filePath("b.jpg"));
        QCOMPARE(logger->linesAt('E').size(), 3);
        QVERIFY(logger->linesAt('E').at(1).endsWith(" 81"));
    }

    // QCOMPARE compares doubles by qFuzzyCompare, as the rounding's own last step does.
    void roundingAndSmallHelpers()
    {
        QCOMPARE(VEXA_NAMESPACE::roundWithPrecision(2.345, 0), 2.0);
        QCOMPARE(VEXA_NAMESPACE::roundWithPrecision(2.5, -3), 3.0); // a negative precision counts as 0
        QCOMPARE(VEXA_NAMESPACE::roundWithPrecision(1.235001, 2), 1.24);
        QCOMPARE(VEXA_NAMESPACE::roundWithPrecision(-1.23456, 3), -1.235);
        QCOMPARE(VEXA_NAMESPACE::roundWithPrecision(5e10 + 0.126, 2), 5e10 + 0.13); // beyond the int range
        QCOMPARE(normalizedFilePath("Dir/Sub/Photo.JPG"), QDir::toNativeSeparators("dir/sub/photo.jpg"));
        QVERIFY(availableDiskSpace(QDir::tempPath()) > 0);
    }
};

UTILSDLL_TEST_MAIN(TestFileManagement)
#include "tst_filemanagement.moc"
