#include "TestEnvironment.h"

#include "MessageBox.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryFile>

#include <atomic>
#include <cstdlib>
#include <unistd.h>

// Every heap allocation of the process goes through these while the test runs, so
// that a Show... call can be checked to allocate nothing at all.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* pointer, size_t size);
}

namespace {
std::atomic<bool> s_counting{false};
std::atomic<long> s_allocations{0};

void countAllocation()
{
    if (s_counting.load(std::memory_order_relaxed))
        s_allocations.fetch_add(1, std::memory_order_relaxed);
}
} // namespace

extern "C" {
void* malloc(size_t size)
{
    countAllocation();
    return __libc_malloc(size);
}
void* calloc(size_t count, size_t size)
{
    countAllocation();
    return __libc_calloc(count, size);
}
void* realloc(void* pointer, size_t size)
{
    countAllocation();
    return __libc_realloc(pointer, size);
}
}

namespace {

// What the calls wrote to the standard error stream, and how many allocations they made.
struct Shown
{
    QString text;
    long allocations;
};

template <class Call>
Shown captureStandardError(Call call)
{
    QTemporaryFile capture;
    if (!capture.open())
        return {"capture failed", -1};
    fflush(stderr);
    const int saved = dup(STDERR_FILENO);
    dup2(capture.handle(), STDERR_FILENO);
    s_allocations = 0;
    s_counting = true;
    call();
    s_counting = false;
    const long allocations = s_allocations;
    dup2(saved, STDERR_FILENO);
    close(saved);
    capture.seek(0);
    return {QString::fromUtf8(capture.readAll()), allocations};
}

} // namespace

using Vexa::CErrStrings;

class TestErrStrings : public QObject
{
    Q_OBJECT
private slots:
    void showWritesPreparedTextsWithoutAllocating_data();
    void showWritesPreparedTextsWithoutAllocating();
    void driveOfTheTemporaryFolder_data();
    void driveOfTheTemporaryFolder();
    void copyKeepsTheTexts();
};

void TestErrStrings::showWritesPreparedTextsWithoutAllocating_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QString>("expected");

    QTest::newRow("small free space") << 0 << "Error: Windows small space message on drive ";
    QTest::newRow("out of memory") << 1 << "Error: Out of memory. Program will be closed.\n";
    QTest::newRow("out of memory in host")
        << 2
        << "Error: Vexa Rectivo 3 has run out of memory. The application may now become unstable. Please close "
           "Vexa Rectivo 3 and Photoshop, quit all other programs running, and try again.\n";
    QTest::newRow("unhandled exception") << 3 << "Error: Unhandled exception. Program will be closed.\n";
}

void TestErrStrings::showWritesPreparedTextsWithoutAllocating()
{
    QFETCH(int, which);
    QFETCH(QString, expected);

    const CErrStrings strings;
    // A window is active, so the owner is looked up too.
    QWidget window;
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));

    const Shown shown = captureStandardError([&strings, which]() {
        switch (which) {
        case 0: strings.ShowSmallFreeSpaceDialog(); break;
        case 1: strings.ShowOutOfMemoryDialog(); break;
        case 2: strings.ShowOutOfMemoryInPhotoshopDialog(); break;
        default: strings.ShowUnhandledExceptionDialog(); break;
        }
    });
    QCOMPARE(shown.allocations, 0L);
    QVERIFY2(shown.text.startsWith(expected), qPrintable(shown.text));

    // The hook does see allocations: a string made in the window is counted.
    const Shown counted = captureStandardError([]() { QString made = QString::number(123456789); });
    QVERIFY(counted.allocations > 0);
}

void TestErrStrings::driveOfTheTemporaryFolder_data()
{
    QTest::addColumn<QByteArray>("temporaryFolder");
    QTest::addColumn<QString>("drive");

    // The folder must exist to be taken. Cut at the first ':' only.
    const QString root = UtilsDllTest::IsolatedEnvironment::root();
    QDir(root).mkpath("D:Temp/E:inner");
    QTest::newRow("drive letter") << QFile::encodeName(root + "/D:Temp/E:inner") << root + "/D:\\";
    // Without a ':' the whole path stays, then ":\" follows.
    QTest::newRow("no drive") << QFile::encodeName(root) << root + ":\\";
}

void TestErrStrings::driveOfTheTemporaryFolder()
{
    QFETCH(QByteArray, temporaryFolder);
    QFETCH(QString, drive);

    const QByteArray saved = qgetenv("TMPDIR");
    qputenv("TMPDIR", temporaryFolder);
    CErrStrings strings;
    qputenv("TMPDIR", saved);
    const Shown shown = captureStandardError([&strings]() { strings.ShowSmallFreeSpaceDialog(); });
    QCOMPARE(shown.text, "Error: Windows small space message on drive " + drive + "\n");

    // Retranslate recomputes from the present folder.
    strings.Retranslate();
    QVERIFY(!captureStandardError([&strings]() { strings.ShowSmallFreeSpaceDialog(); }).text.contains(drive));
}

void TestErrStrings::copyKeepsTheTexts()
{
    CErrStrings source;
    CErrStrings copy(source);
    CErrStrings assigned;
    assigned = source;
    const QString expected = "Error: Out of memory. Program will be closed.\n";
    QCOMPARE(captureStandardError([&copy]() { copy.ShowOutOfMemoryDialog(); }).text, expected);
    QCOMPARE(captureStandardError([&assigned]() { assigned.ShowOutOfMemoryDialog(); }).text, expected);
}

UTILSDLL_TEST_MAIN_WITH(TestErrStrings, QApplication)
#include "tst_errstrings.moc"
