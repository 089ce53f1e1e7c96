// Everything the library lets run on any thread, from eight threads at once. Every result
// is checked, not only that nothing crashed; the same test runs under ThreadSanitizer.
#include "AppBootstrap.h"
#include "DelayedCall.h"
#include "FileManagement.h"
#include "QtSoapArray.h"
#include "QtSoapMessage.h"
#include "QtSoapTypeFactory.h"
#include "RunnableItem.h"
#include "TestEnvironment.h"
#include "TestLogger.h"
#include "WaitPrimitives.h"
#include "storageLocation.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLoggingCategory>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <functional>
#include <iterator>
#include <memory>
#include <vector>

using namespace Vexa;

namespace {

const int kThreads = 8;
// Each thread stops at its count or when the phase has run this long, whichever comes
// first, so that a slow (instrumented) build stays well inside the test's timeout.
const qint64 kPhaseBudgetMs = 60000;

// Runs body(thread index) on kThreads threads, released together, and joins them.
void onAllThreads(const std::function<void(int)>& body)
{
    std::atomic<int> ready{0};
    std::vector<std::unique_ptr<QThread>> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back(QThread::create([&, i] {
            ++ready;
            while (ready.load() < kThreads)
                QThread::yieldCurrentThread();
            body(i);
        }));
        threads.back()->start();
    }
    for (auto& thread : threads)
        thread->wait();
}

struct NameCase { QString name; bool isPath, valid; };

// A slot that remembers how often and with what it was called.
class Target : public QObject
{
    Q_OBJECT
public:
    int calls = 0;
    int lastValue = -1;
public slots:
    void hit(int value) { ++calls; lastValue = value; }
    void other() { ++calls; }
};

// Adds up to its number, then counts itself done; or, when told to, works until stopped.
class SumItem : public CQRunnableItem
{
    Q_OBJECT
public:
    SumItem(int upTo, bool untilStopped, QAtomicInt& done)
        : CQRunnableItem(true), m_upTo(upTo), m_untilStopped(untilStopped), m_done(done)
    {
        setAutoDelete(false);
    }
    const int m_upTo;
    const bool m_untilStopped;
    QAtomicInt& m_done;
    std::atomic<qint64> sum{-1};
    QAtomicInt entered; // 1 from the start of execute on, for good

    bool execute() override
    {
        entered.storeRelease(1);
        qint64 total = 0;
        for (int i = 1; i <= m_upTo; ++i)
            total += i;
        while (m_untilStopped && !stopRequired())
            QThread::yieldCurrentThread();
        sum = total;
        m_done.fetchAndAddOrdered(1);
        return true;
    }
};

} // namespace

class TestConcurrency : public QObject
{
    Q_OBJECT
private slots:
    // Runs first, so that the delayed call engine is built by eight threads at once. Each
    // thread arms bursts of calls on its own targets, with its own event loop, and each
    // burst must end in one call with the last value; discarded calls never come.
    void delayedCallsOnManyThreads()
    {
        const int targetsPerThread = 100, burst = 5;
        std::atomic<int> wrong{0};
        onAllThreads([&](int) {
            std::vector<std::unique_ptr<Target>> targets;
            for (int t = 0; t < targetsPerThread; ++t) {
                targets.emplace_back(new Target);
                for (int value = 0; value < burst; ++value)
                    CDelayedCall::invokeWithArgs(1 + t % 5, targets.back().get(), "hit", QVariant(value));
                // Every third target's call is taken back, another method of it stays armed.
                CDelayedCall::invoke(2, targets.back().get(), "other");
                if (t % 3 == 0)
                    CDelayedCall::discard(targets.back().get(), "hit");
                if (CDelayedCall::isActive(targets.back().get(), "hit") == (t % 3 == 0))
                    ++wrong;
            }
            // Until nothing is pending: on a loaded Windows machine 5 ms timers can take 50.
            const auto pending = [&] {
                return std::any_of(targets.begin(), targets.end(), [](const auto& target) {
                    return CDelayedCall::isActive(target.get(), "hit") || CDelayedCall::isActive(target.get(), "other");
                });
            };
            for (int round = 0; round < 100 && (round == 0 || pending()); ++round) {
                QEventLoop loop;
                CDelayedCall::invoke(50, &loop, "quit");
                loop.exec();
            }
            for (int t = 0; t < targetsPerThread; ++t) {
                const Target& target = *targets[t];
                const bool discarded = t % 3 == 0;
                if (target.calls != (discarded ? 1 : 2) || target.lastValue != (discarded ? -1 : burst - 1)
                    || CDelayedCall::isActive(targets[t].get(), "hit"))
                    ++wrong;
            }
        });
        QCOMPARE(wrong.load(), 0);
    }

    // The cached locations' first calls, raced by eight threads: one text each, the
    // right one, each pack path logged once, and the folders made.
    void storageLocationsFirstCalls()
    {
        UtilsDllTest::ScopedTestLogger logger;
        using Location = QString (*)();
        const Location locations[] = {
            &CStorageLocation::diskCacheLocation, &CStorageLocation::cachedTokenFilePath,
            &CStorageLocation::packUserStoragePath, &CStorageLocation::favoritePresetPath,
            &CStorageLocation::cafDataPath, &CStorageLocation::crashFilesPath,
            &CStorageLocation::crashTempFilesPath, &CStorageLocation::loggerFilesPath,
            &CStorageLocation::miniatureBlurShapesPath, &CStorageLocation::framePackPath,
            &CStorageLocation::texturesPackPath, &CStorageLocation::defectsPackPath,
            &CStorageLocation::currentDataLocation};
        const int count = int(std::size(locations));
        std::vector<QStringList> seen(kThreads);
        std::vector<std::vector<const QString*>> references(kThreads);
        onAllThreads([&](int thread) {
            // Each thread starts at another location, so that every first call has company.
            QVector<QString> results(count);
            for (int i = 0; i < count; ++i)
                results[(i + thread) % count] = locations[(i + thread) % count]();
            seen[thread] = results.toList() << getQtPluginsDir(false);
            references[thread] = {&CStorageLocation::getSorelUserConfigFileLocation(),
                                  &CStorageLocation::getSorelGlobalConfigFileLocation()};
        });

        QStringList expected;
        for (Location location : locations)
            expected << location();
        expected << getQtPluginsDir(false);
        QCOMPARE(expected.at(0), CStorageLocation::currentDataLocation() + "DiskCache" + QDir::separator());
        QCOMPARE(expected.last(), QCoreApplication::applicationDirPath());
        for (int thread = 0; thread < kThreads; ++thread) {
            QCOMPARE(seen[thread], expected);
            QCOMPARE(references[thread], references[0]);
        }
        for (int i = 0; i < 8; ++i)
            QVERIFY2(QDir(expected.at(i)).exists(), qPrintable(expected.at(i)));
        for (const char* label : {"Miniature blur shapes data path", "Frames data path", "Textures data path",
                                  "Defects data path"})
            QCOMPARE(logger->linesAt('D').filter(QString(label) + " : ").size(), 1);

        // The folder comes back when deleted, however many threads ask for it at once.
        std::atomic<int> wrong{0};
        for (int round = 0; round < 20; ++round) {
            QDir(expected.at(0)).removeRecursively();
            onAllThreads([&](int) {
                if (CStorageLocation::diskCacheLocation() != expected.at(0))
                    ++wrong;
            });
            QVERIFY(QDir(expected.at(0)).exists());
        }
        QCOMPARE(wrong.load(), 0);
    }

    // The file name helpers and the size text, each from eight threads over one mix of
    // names: reserved, long, ordinary, names and paths.
    void fileNameHelpersAndSizes()
    {
        const QString longPart(261, 'x');
        const QList<NameCase> names = {
            {"photo.jpg", false, true},      {"con", false, false},          {"CON.txt", false, true},
            {"dir/con", true, false},        {"C:/nul", true, false},        {"dir/aux/file", true, true},
            {"a:b", true, true},             {"a:b", false, false},          {"../photo.jpg", true, false},
            {"dir/" + longPart, true, false}, {QString(260, 'y'), false, true}, {"a..b", false, false},
            {"LPT9", true, false},           {"COM0", false, true},          {"dir/a|b", true, false}};
        const QList<QPair<qint64, QString>> sizes = {
            {0, "0B"}, {1024, "1024B"}, {1025, "1.0KB"}, {1048576, "1024.0KB"}, {1048577, "1.0MB"},
            {5 * 1048576 + 524288, "5.5MB"}};
        const int callsPerThread = 40000;

        std::atomic<int> wrong{0};
        std::atomic<qint64> calls{0};
        QElapsedTimer clock;
        clock.start();
        onAllThreads([&](int thread) {
            int i = thread;
            for (; i < thread + callsPerThread && clock.elapsed() < kPhaseBudgetMs; ++i) {
                const NameCase& c = names.at(i % names.size());
                if (validateFileName(c.name, c.isPath) != c.valid)
                    ++wrong;
                const auto& size = sizes.at(i % sizes.size());
                if (fileSizeToString(size.first) != size.second)
                    ++wrong;
                if (normalizedFilePath("Dir/A" + QString::number(i % 10) + ".JPG")
                    != QDir::toNativeSeparators("dir/a" + QString::number(i % 10) + ".jpg"))
                    ++wrong;
                if (!isEqualFileOrDirNames(QFileInfo("a.tar.gz"), QFileInfo("A.TAR.jpg"), BaseName)
                    || isEqualFileOrDirNames(QFileInfo("a.jpg"), QFileInfo("b.jpg"), FileName))
                    ++wrong;
            }
            calls += i - thread;
        });
        qInfo("%d threads made %lld rounds of the four helpers in %lld ms", kThreads, calls.load(), clock.elapsed());
        QCOMPARE(wrong.load(), 0);
        QVERIFY(calls.load() >= kThreads);
    }

    // Items on a pool of eight threads, waited for by eight other threads through every
    // wait function at once. Half of the stoppable items are stopped by all waiters
    // together; items stopped before they ran never run.
    void runnableItemsAndWaits()
    {
        const int itemsPerRound = 64, rounds = 10;
        QThreadPool pool;
        pool.setMaxThreadCount(kThreads);
        std::atomic<int> wrong{0};
        QElapsedTimer clock;
        clock.start();
        int round = 0;
        for (; round < rounds && clock.elapsed() < kPhaseBudgetMs; ++round) {
            QAtomicInt done;
            std::atomic<int> finished{0}, stoppedFinishes{0};
            std::vector<std::unique_ptr<SumItem>> items;
            for (int i = 0; i < itemsPerRound; ++i) {
                items.emplace_back(new SumItem(1000 + i, i % 8 == 1, done));
                connect(items.back().get(), &CQRunnableItem::finished, items.back().get(),
                        [&](bool ok, bool stopped) { ++finished; stoppedFinishes += stopped; wrong += !ok; },
                        Qt::DirectConnection);
            }
            // Every eighth item is stopped before it is queued.
            for (int i = 0; i < itemsPerRound; i += 8)
                items[i]->stop();
            const int toRun = itemsPerRound - itemsPerRound / 8;
            for (auto& item : items)
                pool.start(item.get());

            onAllThreads([&](int thread) {
                // The eight threads stop the same items together, once these have begun.
                for (int i = 1; i < itemsPerRound; i += 8) {
                    waitBlockingAtomicIntValue(items[i]->entered, 1);
                    items[i]->stop();
                }
                const std::function<void()> waits[] = {
                    [&] { waitBlockingAtomicIntValue(done, toRun); },
                    [&] { waitNonBlockingAtomicIntValue(done, toRun, thread % 8 == 1); },
                    [&] { waitBlocking(CAtomicIntWaitPredicate(done, toRun)); },
                    [&] { waitNonBlocking(CAtomicIntWaitPredicate(done, toRun), true); }};
                waits[thread % 4]();
                if (done.loadAcquire() != toRun)
                    ++wrong;
                for (int i = thread; i < itemsPerRound; i += kThreads)
                    items[i]->waitFinishBlocking();
            });
            pool.waitForDone();

            for (int i = 0; i < itemsPerRound; ++i) {
                const qint64 upTo = 1000 + i;
                if (items[i]->sum.load() != (i % 8 == 0 ? -1 : upTo * (upTo + 1) / 2) || !items[i]->isFinished())
                    ++wrong;
            }
            if (finished.load() != toRun || stoppedFinishes.load() != itemsPerRound / 8)
                ++wrong;
        }
        qInfo("%d rounds of %d items in %lld ms", round, itemsPerRound, clock.elapsed());
        QCOMPARE(wrong.load(), 0);
    }

    // The first SOAP messages of the process, built, serialised and parsed back on eight
    // threads at once, with faulty replies whose factory error text each thread must
    // read as its own. A write through a "not found" reference is refused.
    void soapMessagesOnManyThreads()
    {
        const QString faulty = "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'><e:Body>"
                               "<%1><bad type='array'>x</bad></%1></e:Body></e:Envelope>";
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false); // a line per faulty reply
        std::atomic<int> wrong{0};
        QElapsedTimer clock;
        clock.start();
        onAllThreads([&](int thread) {
            const QString method = "m" + QString::number(thread);
            QtSoapStruct tree;
            QtSoapArray array;
            tree[QStringLiteral("missing")].setName(QtSoapQName(method));
            array.at(thread).setId(method);
            for (int i = 0; i < 400 && clock.elapsed() < kPhaseBudgetMs; ++i) {
                QtSoapMessage request, reply, bad;
                request.setMethod(method, "urn:t");
                request.addMethodArgument("n", "", i);
                const QString xml = request.toXmlString(0);
                if (!xml.startsWith("<SOAP-ENV:Envelope") || !xml.contains("xsi:type=\"xsd:int\"")
                    || !reply.setContent(xml.toUtf8()) || reply.method().name().name() != method
                    || reply.returnValue().toInt() != i)
                    ++wrong;
                if (i % 4 == 0
                    && (bad.setContent(faulty.arg(method).toUtf8())
                        || QtSoapTypeFactory::instance().errorString()
                               != "In the struct element Body, child #0, " + method + ", was not recognized as a SOAP type."))
                    ++wrong;
            }
            if (!tree[QStringLiteral("other")].name().name().isEmpty() || !array.at(thread + 1).id().isEmpty())
                ++wrong;
        });
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, true);
        QCOMPARE(wrong.load(), 0);
    }
};

UTILSDLL_TEST_MAIN(TestConcurrency)
#include "tst_concurrency.moc"
