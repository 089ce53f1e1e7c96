#include "ProcessIdentity.h"
#include "BoundedCall.h"
#include "FileTestHelpers.h"
#include "TestEnvironment.h"

#include "PeSamples.h"
#include "PeVersionReader_p.h"
#include "platform/ProcessIdentity_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>

using namespace VexaPlatform;
using UtilsDllTest::readFile;

namespace {

QString sample(const char* name)
{
    return qEnvironmentVariable("PE_SAMPLES_DIR") + '/' + QLatin1String(name);
}

PeFileVersion versionOf(const QByteArray& image)
{
    return readPeFileVersion(reinterpret_cast<const std::uint8_t*>(image.constData()), size_t(image.size()));
}

// Writes `bytes` bytes of `value` at `offset`, little-endian.
void put(QByteArray& image, int offset, quint64 value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        image[offset + i] = char((value >> (8 * i)) & 0xFF);
}

// A minimal PE32 (32-bit) image with one resource section, built here since the
// cross compiler at hand only makes 64-bit images: MZ header, PE header, optional
// header with the resource directory, one section ".rsrc" at file offset 0x200 and
// RVA 0x1000 holding the root table, the type 16 and name 1 tables, the data entry
// and at 0x58 a VS_VERSIONINFO of 92 bytes whose fixed info carries the version.
QByteArray buildPe32(quint32 fileVersionMS, quint32 fileVersionLS)
{
    QByteArray image(0x400, '\0');
    const int pe = 0x40, optional = pe + 24, section = optional + 224, raw = 0x200, block = raw + 0x58;
    const quint32 fields[][3] = {{0, 2, 0x5A4D}, {0x3C, 4, pe}, {pe, 4, 0x4550}, {pe + 4, 2, 0x14C}, {pe + 6, 2, 1},
        {pe + 20, 2, 224}, {optional, 2, 0x10B}, {optional + 92, 4, 16}, {optional + 112, 4, 0x1000},
        {optional + 116, 4, 0x200}, {section, 4, 0x7273722E}, {section + 4, 1, 0x63}, {section + 8, 4, 0x200},
        {section + 12, 4, 0x1000}, {section + 16, 4, 0x200}, {section + 20, 4, raw},
        {raw + 14, 2, 1}, {raw + 16, 4, 16}, {raw + 20, 4, 0x80000018u}, {raw + 0x18 + 14, 2, 1}, {raw + 0x18 + 16, 4, 1},
        {raw + 0x18 + 20, 4, 0x80000030u}, {raw + 0x30 + 14, 2, 1}, {raw + 0x30 + 16, 4, 0x409}, {raw + 0x30 + 20, 4, 0x48},
        {raw + 0x48, 4, 0x1058}, {raw + 0x4C, 4, 92}, {block, 2, 92}, {block + 2, 2, 52}, {block + 40, 4, 0xFEEF04BD},
        {block + 48, 4, fileVersionMS}, {block + 52, 4, fileVersionLS}};
    for (const auto& [offset, bytes, value] : fields)
        put(image, int(offset), value, int(bytes));
    const char16_t key[] = u"VS_VERSION_INFO";
    for (int i = 0; i < 16; ++i)
        put(image, block + 6 + 2 * i, key[i], 2);
    return image;
}

// Bytes this process has read through read calls so far, from /proc/self/io (Linux).
[[maybe_unused]] qint64 bytesReadSoFar()
{
    QFile io("/proc/self/io");
    if (!io.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray text = io.readAll();
    const int at = text.indexOf("rchar: ");
    return at < 0 ? -1 : text.mid(at + 7, text.indexOf('\n', at) - at - 7).toLongLong();
}

} // namespace

class TestProcessIdentity : public QObject
{
    Q_OBJECT
private slots:
    void processNamesAndUnknownVersions()
    {
        QCOMPARE(UtilsDll::currentProcessName(), QFileInfo(QCoreApplication::applicationFilePath()).fileName());
        const auto isUnknown = [](const UtilsDll::BinaryVersion& v) {
            return v.text.isEmpty() && v.major == 0 && v.minor == 0 && v.revision == 0 && v.build == 0;
        };
        QVERIFY(isUnknown(UtilsDll::binaryFileVersionByProcessName(QString())));
        QVERIFY(isUnknown(UtilsDll::binaryFileVersionByProcessName("no-such-process.exe")));
        // Found, but a native executable has no version resource.
        QVERIFY(isUnknown(UtilsDll::binaryFileVersionByProcessName(UtilsDll::currentProcessName())));

        // A copy of a program that waits, under a Windows-like name, stands for the host; the
        // name is this process's own, since other test runs on the machine may hold a host of their own.
#ifdef Q_OS_WIN
        const QString standIn = QStringLiteral(HOST_STAND_IN), seconds30 = "30000";
#else
        const QString standIn = "/bin/sleep", seconds30 = "30";
#endif
        QTemporaryDir folder;
        const QString name = QStringLiteral("host-%1.exe").arg(QCoreApplication::applicationPid());
        const QString host = folder.filePath(name);
        QVERIFY(QFile::copy(standIn, host));
        QProcess process;
        process.start(host, QStringList() << seconds30);
        QVERIFY(process.waitForStarted());
        const auto stop = qScopeGuard([&process] { process.kill(); process.waitForFinished(); });

        const auto find = [](const QString& name) {
            return QString::fromStdWString(processImagePath([&name](const std::wstring& baseName) {
                return QString::compare(QString::fromStdWString(baseName), name, Qt::CaseInsensitive) == 0;
            }));
        };
#ifdef Q_OS_WIN
        QCOMPARE(find(name.toUpper()), QDir::toNativeSeparators(host));
#else
        QCOMPARE(find(name.toUpper()), QString("/proc/%1/exe").arg(process.processId()));
#endif
        QCOMPARE(find(name.chopped(4)), QString()); // the whole name, extension included

        // An upgrade while the program runs replaces its file; the name stays the same.
        const QString program = folder.filePath("process_probe");
        QVERIFY(QFile::copy(PROCESS_PROBE, program));
        QProcess probe;
        probe.setWorkingDirectory(QFileInfo(PROCESS_PROBE).path()); // where Windows finds its DLLs
        probe.start(program, {"name"});
        QVERIFY(probe.waitForStarted());
#ifdef Q_OS_WIN
        QVERIFY(QFile::rename(program, program + ".old")); // a running program's file moves, but stays
#else
        QVERIFY(QFile::remove(program));
#endif
        QVERIFY(QFile::copy(PROCESS_PROBE, program));
        probe.write("\n");
        probe.closeWriteChannel();
        QVERIFY(probe.waitForFinished(60000));
        QCOMPARE(probe.readAllStandardOutput().trimmed(), QByteArray("process_probe"));
    }

    // The file under a running program's name replaced after it started: the version is
    // read from the running image, never from what now has the name, however large, and
    // a FIFO there is not opened (it blocked the call for good).
    void versionOfAProgramWhoseFileWasReplaced_data()
    {
        QTest::addColumn<bool>("byFifo");
        QTest::newRow("by a FIFO") << true;
        QTest::newRow("by a large file") << false;
    }

    void versionOfAProgramWhoseFileWasReplaced()
    {
#ifdef Q_OS_WIN
        QSKIP("the file of a running program cannot be removed");
#else
        QFETCH(bool, byFifo);
        QTemporaryDir folder;
        const QString name = QStringLiteral("replaced-%1.exe").arg(QCoreApplication::applicationPid());
        const QString program = folder.filePath(name);
        QVERIFY(QFile::copy(PROCESS_PROBE, program));
        QProcess probe;
        probe.start(program, {"name"});
        QVERIFY(probe.waitForStarted());
        const auto stop = qScopeGuard([&probe] { probe.kill(); probe.waitForFinished(); });
        QVERIFY(QFile::remove(program));
        if (byFifo) {
            QVERIFY(UtilsDllTest::makeFifo(program));
        } else { // a Windows executable's first bytes, then 400 MiB of zeros that cost no disk
            QFile large(program);
            QVERIFY(large.open(QIODevice::WriteOnly) && large.write("MZ") == 2 && large.resize(qint64(400) << 20));
        }

        const qint64 readBefore = bytesReadSoFar();
        UtilsDll::BinaryVersion version;
        QVERIFY2(UtilsDllTest::returnsWithoutBlocking(program, [&] {
                     version = UtilsDll::binaryFileVersionByProcessName(name.toUpper());
                 }),
                 "the call waited on the FIFO");
        const qint64 read = bytesReadSoFar() - readBefore;
        QVERIFY2(readBefore >= 0 && read < 256 * 1024, qPrintable(QString::number(read)));
        // The running image is a native program, which has no version resource.
        QVERIFY(version.major == 0 && version.minor == 0 && version.revision == 0 && version.build == 0);
#endif
    }

    // The committed samples through the file reader; then every cut of the versioned one
    // is refused, or keeps the headers and the resource and answers the true version.
    void readsVersionFromPeSamples()
    {
        for (const PeSamples::Sample& s : PeSamples::kSamples) {
            const FixedFileVersion version = executableFileVersion(sample(s.file).toStdWString());
            QVERIFY2(version.found == s.found && version.fileVersionMS == s.fileVersionMS
                         && version.fileVersionLS == s.fileVersionLS, s.file);
        }
        const QByteArray image = readFile(sample("versioned.exe"));
        int refused = 0;
        for (int size = 0; size < image.size(); ++size) {
            const PeFileVersion version = versionOf(image.left(size));
            if (version.found)
                QCOMPARE(version.fileVersionMS, (3u << 16) | 2u);
            else
                ++refused;
        }
        QVERIFY(refused > image.size() / 2);
        QVERIFY(!readPeFileVersion(nullptr, 100).found);
    }

    // Each row overwrites `bytes` bytes at `at` (little-endian) in the built PE32 image, or
    // with `bytes` -1 cuts the image at `at`.
    void readsPe32UnlessMalformed_data()
    {
        QTest::addColumn<int>("at");
        QTest::addColumn<int>("bytes");
        QTest::addColumn<quint64>("value");
        const int pe = 0x40, optional = 0x40 + 24, raw = 0x200;
        QTest::newRow("intact") << 0 << 0 << quint64(0);
        QTest::newRow("cut where the version block ends") << raw + 0x58 + 92 << -1 << quint64(1);
        QTest::newRow("cut a byte earlier") << raw + 0x58 + 91 << -1 << quint64(0);
        QTest::newRow("no MZ") << 0 << 2 << quint64(0x4D5A);
        QTest::newRow("PE offset past the end") << 0x3C << 4 << quint64(0xFFFFFFF0u);
        QTest::newRow("no PE signature") << pe << 4 << quint64(0x00004551);
        QTest::newRow("unknown optional header") << optional << 2 << quint64(0x107);
        QTest::newRow("huge section count") << pe + 6 << 2 << quint64(0xFFFF);
        QTest::newRow("resource directory outside every section") << optional + 96 + 16 << 4 << quint64(0x7FFFFFF0u);
        // A count of 0xFFFF, and the first entry no longer the one looked for.
        QTest::newRow("resource table entry count huge") << raw + 14 << 6 << quint64(0x3FFFF);
        QTest::newRow("resource subdirectory loops to itself") << raw + 0x18 + 20 << 4 << quint64(0x80000018u);
        QTest::newRow("version block outside the file") << raw + 0x48 << 4 << quint64(0x1058 + 0x10000);
        QTest::newRow("fixed info signature wrong") << raw + 0x58 + 40 << 4 << quint64(0xFEEF04BC);
        QTest::newRow("value length too short") << raw + 0x58 + 2 << 2 << quint64(51);
    }

    void readsPe32UnlessMalformed()
    {
        QFETCH(int, at);
        QFETCH(int, bytes);
        QFETCH(quint64, value);
        QByteArray image = buildPe32(0x00050006, 0x00070008);
        if (bytes < 0)
            image.truncate(at);
        else
            put(image, at, value, bytes);
        const PeFileVersion version = versionOf(image);
        QCOMPARE(version.found, bytes == 0 || value == 1);
        if (version.found)
            QCOMPARE(qMakePair(version.fileVersionMS, version.fileVersionLS), qMakePair(0x00050006u, 0x00070008u));
    }
};

UTILSDLL_TEST_MAIN(TestProcessIdentity)
#include "tst_processidentity.moc"
