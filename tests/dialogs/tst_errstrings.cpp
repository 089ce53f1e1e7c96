#include "TestEnvironment.h"

#include "MessageBox.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryFile>
#include <QTranslator>

#include <atomic>
#include <cstdlib>
#include <unistd.h>

// Every heap allocation goes through these, so that a Show... call, made when memory has
// run out, can be checked to allocate nothing at all.
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
void* malloc(size_t size) { return countAllocation(), __libc_malloc(size); }
void* calloc(size_t count, size_t size) { return countAllocation(), __libc_calloc(count, size); }
void* realloc(void* pointer, size_t size) { return countAllocation(), __libc_realloc(pointer, size); }
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
    void showWritesPreparedTextsWithoutAllocating()
    {
        using Show = void (CErrStrings::*)() const;
        const QList<QPair<Show, QString>> shows = {
            {&CErrStrings::ShowSmallFreeSpaceDialog, "Error: Windows small space message on drive "},
            {&CErrStrings::ShowOutOfMemoryDialog, "Error: Out of memory. Program will be closed.\n"},
            {&CErrStrings::ShowOutOfMemoryInPhotoshopDialog,
             "Error: Vexa Rectivo 3 has run out of memory. The application may now become unstable. Please close "
             "Vexa Rectivo 3 and Photoshop, quit all other programs running, and try again.\n"},
            {&CErrStrings::ShowUnhandledExceptionDialog, "Error: Unhandled exception. Program will be closed.\n"}};

        const CErrStrings strings;
        // A window is active, so the owner is looked up too.
        QWidget window;
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (const auto& show : shows) {
            const Shown shown = captureStandardError([&strings, &show]() { (strings.*show.first)(); });
            QCOMPARE(shown.allocations, 0L);
            QVERIFY2(shown.text.startsWith(show.second), qPrintable(shown.text));
        }
        // The hook does see allocations: a string made in the window is counted.
        QVERIFY(captureStandardError([]() { QString made = QString::number(123456789); }).allocations > 0);
    }

    void driveOfTheTemporaryFolder_data()
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

    void driveOfTheTemporaryFolder()
    {
        QFETCH(QByteArray, temporaryFolder);
        QFETCH(QString, drive);

        const QByteArray saved = qgetenv("TMPDIR");
        qputenv("TMPDIR", temporaryFolder);
        CErrStrings strings;
        qputenv("TMPDIR", saved);
        const auto smallSpaceOf = [](const CErrStrings& shown) {
            return captureStandardError([&shown]() { shown.ShowSmallFreeSpaceDialog(); }).text;
        };
        const QString expected = "Error: Windows small space message on drive " + drive + "\n";
        QCOMPARE(smallSpaceOf(strings), expected);

        // Copies keep the prepared texts; Retranslate recomputes from the present folder.
        const CErrStrings copy(strings);
        CErrStrings assigned;
        assigned = strings;
        strings.Retranslate();
        QCOMPARE(smallSpaceOf(copy), expected);
        QCOMPARE(smallSpaceOf(assigned), expected);
        QVERIFY(!smallSpaceOf(strings).contains(drive));
    }

    // The texts are looked up under the context QObject when made or retranslated, not when shown.
    void followRetranslateOnly()
    {
        const CErrStrings before;
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral(TEST_CATALOGUE)));
        QVERIFY(QCoreApplication::installTranslator(&translator));
        CErrStrings retranslated(before);
        const auto outOfMemoryOf = [](const CErrStrings& shown) {
            return captureStandardError([&shown]() { shown.ShowOutOfMemoryDialog(); }).text;
        };
        QCOMPARE(outOfMemoryOf(retranslated), QString("Error: Out of memory. Program will be closed.\n"));
        retranslated.Retranslate();
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(outOfMemoryOf(retranslated), QString("Test error: Test: out of memory\n"));
        QCOMPARE(outOfMemoryOf(before), QString("Error: Out of memory. Program will be closed.\n"));
    }
};

UTILSDLL_TEST_MAIN_WITH(TestErrStrings, QApplication)
#include "tst_errstrings.moc"
