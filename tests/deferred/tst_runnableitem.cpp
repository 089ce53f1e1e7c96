#include "RunnableItem.h"
#include "TestEnvironment.h"

#include <QSignalSpy>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <stdexcept>
#include <thread>

namespace {

// Kept outside the item, so that a test may destroy the item while execute still runs.
struct WorkState
{
    std::atomic<bool> release{false}, throwInExecute{false}, pollingLeft{false}, executeLeft{false};
    std::atomic<int> slowTailMs{0}, executeCalls{0}, hookCalls{0};
};

// Works until released or stopped, polling stopRequired; stopped() says no to every stop.
class PollingItem : public CQRunnableItem
{
    Q_OBJECT
public:
    explicit PollingItem(WorkState& state, bool emitting = true, bool stubborn = false)
        : CQRunnableItem(emitting), m_state(state), m_stubborn(stubborn)
    {
        setAutoDelete(false);
    }
    using CRunnableItem<QRunnable>::setStopFlag;
    bool stopRequired() const override { return !m_stubborn && CQRunnableItem::stopRequired(); }

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
        QThread::msleep(state.slowTailMs); // touches nothing of the item, which may be going
        state.executeLeft = true;
        return !stopped;
    }
    void doBeforeStopped() override { ++m_state.hookCalls; }
    void doStopped() override { ++m_state.hookCalls; }

private:
    WorkState& m_state;
    bool m_stubborn;
};

} // namespace

class TestRunnableItem : public QObject
{
    Q_OBJECT
private slots:
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
        QVERIFY(item.isFinished() && !item.isStarted() && !item.stopRequired());
        item.stop();
        item.stop(); // changes nothing: hooks and signal once
        QCOMPARE(state.hookCalls.load(), 2);
        QCOMPARE(wantsToStop.count(), emitting ? 1 : 0);
        item.run(); // does nothing at all
        QCOMPARE(state.executeCalls + started.count() + finished.count(), 0);

        // Clearing the flag readies the item again; finishing by itself calls no hook.
        item.setStopFlag(false);
        state.release = true;
        item.run();
        QCOMPARE(state.executeCalls + state.hookCalls, 3);
        QCOMPARE(started.count(), emitting ? 1 : 0);
        QCOMPARE(finished.count(), emitting ? 1 : 0);
        if (emitting)
            QCOMPARE(finished.first(), (QVariantList{true, false}));

        // An exception from execute closes the section, passes through, and tells nobody.
        state.throwInExecute = true;
        QVERIFY_EXCEPTION_THROWN(item.run(), std::runtime_error);
        QVERIFY(item.isFinished());
        QCOMPARE(finished.count(), emitting ? 1 : 0);

        // An override that answers no has the last word: no signal, one hook.
        WorkState stubbornState;
        PollingItem stubborn(stubbornState, emitting, true);
        QSignalSpy stubbornWantsToStop(&stubborn, &CQRunnableItem::wantsToStop);
        stubborn.stop();
        QVERIFY(stubbornWantsToStop.isEmpty());
        QCOMPARE(stubbornState.hookCalls.load(), 1);
    }

    void destructorWaitsForExecute()
    {
        WorkState state;
        state.slowTailMs = 80;
        auto* item = new PollingItem(state, false);
        std::thread runner([item] { item->run(); });
        item->waitStartBlocking();
        QVERIFY(item->isStarted() && !item->isFinished());
        item->stop();
        while (!state.pollingLeft)
            QThread::yieldCurrentThread();
        delete item; // spins until execute's slow tail has left the section
        QVERIFY(state.executeLeft);
        runner.join();
    }

    void nonBlockingWaitsPumpEvents()
    {
        // The release comes from this thread's own timer: only a pumping wait sees it.
        WorkState state;
        PollingItem item(state);
        QTimer::singleShot(30, &item, [&] { state.release = true; });
        std::thread runner([&item] { item.run(); });
        item.waitStartNonBlocking(true);
        item.waitExecuteNonBlocking(false);
        QVERIFY(state.executeLeft);
        item.waitFinishNonBlocking(true);
        runner.join();
    }
};

UTILSDLL_TEST_MAIN(TestRunnableItem)
#include "tst_runnableitem.moc"
