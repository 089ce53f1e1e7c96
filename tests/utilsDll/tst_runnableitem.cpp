#include "RunnableItem.h"

#include "TestEnvironment.h"

#include <QSignalSpy>
#include <QThread>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <stdexcept>
#include <thread>

namespace {

// What an item shares with its test: all atomic and outside the item, so that a test
// may destroy the item while execute still runs.
struct WorkState
{
    std::atomic<bool> release{false}, throwInExecute{false}, pollingLeft{false}, executeLeft{false};
    std::atomic<int> slowTailMs{0}, executeCalls{0}, beforeStoppedCalls{0}, stoppedCalls{0};
};

// Works until released or stopped, polling stopRequired.
class PollingItem : public CQRunnableItem
{
    Q_OBJECT
public:
    explicit PollingItem(WorkState& state, bool emitting = true)
        : CQRunnableItem(emitting)
        , m_state(state)
    {
        setAutoDelete(false);
    }

    using CRunnableItem<QRunnable>::entriesCounter;
    using CRunnableItem<QRunnable>::setStopFlag;
    bool flag() const { return stopFlag(); }

protected:
    bool execute() override
    {
        WorkState& state = m_state;
        ++state.executeCalls;
        if (state.throwInExecute)
            throw std::runtime_error("work failed");
        bool stopped = false;
        while (!state.release && !(stopped = stopRequired()))
            QThread::msleep(1);
        state.pollingLeft = true;
        // The slow tail touches nothing of the item, which may be under destruction.
        QThread::msleep(state.slowTailMs);
        state.executeLeft = true;
        return !stopped;
    }
    void doBeforeStopped() override { ++m_state.beforeStoppedCalls; }
    void doStopped() override { ++m_state.stoppedCalls; }

private:
    WorkState& m_state;
};

// Says no to every stop, having the last word over the flag.
class StubbornItem : public PollingItem
{
    Q_OBJECT
public:
    using PollingItem::PollingItem;
    bool stopRequired() const override { return false; }
};

} // namespace

class TestRunnableItem : public QObject
{
    Q_OBJECT
private slots:
    void poolRunsItemsUntilStopped()
    {
        const int itemCount = 3;
        QThreadPool pool;
        pool.setMaxThreadCount(itemCount);
        WorkState states[itemCount];
        QList<PollingItem*> items;
        QList<QVariantList> finishedArguments[itemCount];
        for (int i = 0; i < itemCount; ++i) {
            items << new PollingItem(states[i]);
            // Emitted on a pool thread, and queued to this one.
            connect(items[i], &CQRunnableItem::finished, this,
                    [&finishedArguments, i](bool ok, bool stopped) { finishedArguments[i] << QVariantList{ok, stopped}; });
            pool.start(items[i]);
        }
        for (PollingItem* item : items) {
            item->waitStartBlocking();
            QVERIFY(item->isStarted() && !item->isFinished());
            item->stop();
        }
        std::thread watcher([&] { // another thread waits for the finish
            for (PollingItem* item : items)
                item->waitFinishBlocking();
        });
        watcher.join();
        QVERIFY(pool.waitForDone(5000));
        for (int i = 0; i < itemCount; ++i) {
            QTRY_COMPARE(finishedArguments[i], QList<QVariantList>{(QVariantList{false, true})});
            QVERIFY(states[i].stoppedCalls == 1 && items[i]->isFinished());
        }
        qDeleteAll(items);
    }

    void stopBeforeRun_data()
    {
        QTest::addColumn<bool>("emitting");
        QTest::newRow("with signals") << true;
        QTest::newRow("silent") << false;
    }
    void stopBeforeRun()
    {
        QFETCH(bool, emitting);
        WorkState state;
        PollingItem item(state, emitting);
        QSignalSpy started(&item, &CQRunnableItem::started);
        QSignalSpy wantsToStop(&item, &CQRunnableItem::wantsToStop);
        QSignalSpy finished(&item, &CQRunnableItem::finished);
        // Never run and finished look alike.
        QVERIFY(item.isFinished() && !item.isStarted() && !item.stopRequired());
        item.waitFinishBlocking();

        // A second stop changes nothing: hooks and signal once.
        item.stop();
        item.stop();
        QCOMPARE(state.beforeStoppedCalls.load(), 1);
        QCOMPARE(state.stoppedCalls.load(), 1);
        QCOMPARE(wantsToStop.count(), emitting ? 1 : 0);
        QVERIFY(item.stopRequired());

        // The later run does nothing at all: no section, no execute, no signal.
        item.run();
        QCOMPARE(state.executeCalls.load(), 0);
        QCOMPARE(started.count() + finished.count(), 0);

        // Clearing the flag readies the item again; a released run then goes all the way,
        // and finishing by itself calls no hook.
        item.setStopFlag(false);
        state.release = true;
        item.run();
        QCOMPARE(state.executeCalls.load(), 1);
        QCOMPARE(started.count(), emitting ? 1 : 0);
        QCOMPARE(finished.count(), emitting ? 1 : 0);
        if (emitting)
            QCOMPARE(finished.first(), (QVariantList{true, false}));
        QCOMPARE(state.stoppedCalls + state.beforeStoppedCalls, 2);

        // An override that answers no has the last word: flag set, no signal, one hook.
        WorkState stubbornState;
        StubbornItem stubborn(stubbornState, emitting);
        QSignalSpy stubbornWantsToStop(&stubborn, &CQRunnableItem::wantsToStop);
        stubborn.stop();
        QVERIFY(stubborn.flag() && stubbornWantsToStop.isEmpty());
        QCOMPARE(stubbornState.beforeStoppedCalls + stubbornState.stoppedCalls, 1);
    }

    void sectionAroundExecute()
    {
        WorkState state;
        state.release = true;
        PollingItem item(state);
        int countAtStarted = -1;
        int countAtFinished = -1;
        connect(&item, &CQRunnableItem::started, this, [&] { countAtStarted = item.entriesCounter(); }, Qt::DirectConnection);
        connect(&item, &CQRunnableItem::finished, this, [&] { countAtFinished = item.entriesCounter(); }, Qt::DirectConnection);
        // Invoked through the meta-object, run executes synchronously on this thread.
        QVERIFY(QMetaObject::invokeMethod(&item, "run"));
        QCOMPARE(countAtStarted, 0);
        QCOMPARE(countAtFinished, 0);

        // An exception from execute closes the section, passes through, and tells nobody.
        state.throwInExecute = true;
        countAtFinished = -1;
        QVERIFY_EXCEPTION_THROWN(item.run(), std::runtime_error);
        QVERIFY(item.isFinished());
        QCOMPARE(countAtFinished, -1);
    }

    void interruptedThreadSeesStopRequired()
    {
        WorkState state;
        state.release = true;
        PollingItem item(state);
        std::atomic<bool> seenOnInterrupted{false};
        QThread* thread = QThread::create([&] {
            QThread::currentThread()->requestInterruption();
            seenOnInterrupted = item.stopRequired();
            item.run(); // a no-op on an interrupted thread
            item.stop(); // and so is stop: no hooks
        });
        thread->start();
        QVERIFY(thread->wait(5000));
        delete thread;
        QVERIFY(seenOnInterrupted);
        QCOMPARE(state.executeCalls + state.beforeStoppedCalls, 0);
        // The asking thread counts: here, on an uninterrupted thread, nothing is required.
        QVERIFY(!item.stopRequired() && !item.flag());
    }

    void destructorWaitsForExecute()
    {
        WorkState state;
        state.slowTailMs = 80;
        auto* item = new PollingItem(state, false);
        std::thread runner([item] { item->run(); });
        item->waitStartBlocking();
        item->stop();
        while (!state.pollingLeft)
            QThread::yieldCurrentThread();
        delete item; // spins until execute's slow tail has left the section
        QVERIFY(state.executeLeft);
        runner.join();
    }

    void waitsFromGuiThreadPumpEvents()
    {
        // The release comes from this thread's own timer: only a pumping wait sees it,
        // also with input excluded.
        WorkState state;
        PollingItem item(state);
        QThreadPool pool;
        for (bool excludeUserInput : {false, true}) {
            state.release = false;
            state.executeLeft = false;
            QTimer::singleShot(30, &item, [&] { state.release = true; });
            pool.start(&item);
            if (excludeUserInput) {
                item.waitStartNonBlocking(true);
                item.waitFinishNonBlocking(true);
            } else {
                item.waitExecuteNonBlocking(false);
            }
            QVERIFY(state.executeLeft);
            QVERIFY(pool.waitForDone(5000));
        }
    }
};

UTILSDLL_TEST_MAIN(TestRunnableItem)
#include "tst_runnableitem.moc"
