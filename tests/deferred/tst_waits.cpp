// The wait primitives, the input-excluding filter and loop, and the completion waiters.
#include "ExcludeUserInpuEventLoop.h"
#include "OperationCompletionWaiter.h"
#include "TestEnvironment.h"
#include "WaitPrimitives.h"

#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <set>
#include <thread>

using Vexa::COperationCompletionWaiter;
using Vexa::COperationCompletionWaiterWithResult;

namespace {

// Takes every event itself and remembers its type.
struct EventRecorder : QObject
{
    QList<int> received;
    bool event(QEvent* event) override { received << event->type(); return true; }
};

class Operation : public QObject
{
    Q_OBJECT
public:
    void finishNow(bool ok) { emit done(ok), emit finished(); }
signals:
    void done(bool ok);
    void finished();
};

bool applicationHasFilter()
{
    return !QCoreApplication::instance()->findChildren<CExcludeUserInpuEventsFilter*>().isEmpty();
}

} // namespace

class TestWaits : public QObject
{
    Q_OBJECT
private slots:
    void blockingWaitForExactValue()
    {
        // The value passes 5 and 2 before reaching 3: equality, never "at least".
        QAtomicInt value(0);
        std::atomic<bool> waiterDone{false};
        std::thread waiter([&] {
            waitBlockingAtomicIntValue(value, 3);
            waiterDone = true;
        });
        bool doneEarly = false;
        for (int passing : {5, 2}) {
            value.storeRelaxed(passing);
            QThread::msleep(30);
            doneEarly = doneEarly || waiterDone;
        }
        value.storeRelaxed(3);
        waiter.join();
        QVERIFY(!doneEarly);
    }

    void nonBlockingWaitsFilterOnlyWithExclusion()
    {
        for (bool exclude : {false, true}) {
            QAtomicInt value(0);
            EventRecorder recorder;
            bool filteredDuringWait = false;
            QTimer::singleShot(5, &recorder, [&] {
                filteredDuringWait = applicationHasFilter();
                QEvent key(QEvent::KeyPress);
                QCoreApplication::sendEvent(&recorder, &key);
                value.storeRelaxed(1);
            });
            waitNonBlockingAtomicIntValue(value, 1, exclude);
            QCOMPARE(filteredDuringWait, exclude);
            QCOMPARE(recorder.received, exclude ? QList<int>() : QList<int>{QEvent::KeyPress});
            QVERIFY(!applicationHasFilter());
        }
    }

    void filterSwallowsExactlyTheTable()
    {
        const std::set<int> swallowed = {2,   3,   4,   6,   7,   8,   9,   10,  19,  51,  60,  61,  62,  63,
                                         117, 155, 156, 157, 158, 159, 164, 165, 166, 167, 174, 175, 176};
        EventRecorder recorder;
        new CExcludeUserInpuEventsFilter(&recorder);
        QList<int> types{QEvent::User, 5000, QEvent::MaxUser};
        for (int type = QEvent::None + 1; type <= 200; ++type)
            types << type;
        for (int type : types) {
            recorder.received.clear();
            QEvent event(static_cast<QEvent::Type>(type));
            event.accept();
            QCoreApplication::sendEvent(&recorder, &event);
            const bool expected = swallowed.count(type) == 1; // swallowed events are also left unaccepted
            QVERIFY2(recorder.received.contains(type) != expected && event.isAccepted() != expected,
                     qPrintable(QString::number(type)));
        }
    }

    void filterInstallsOnlyOnItsThread()
    {
        EventRecorder mainThreadObject;
        delete new CExcludeUserInpuEventsFilter(nullptr); // inert

        // From a worker: the application object is passed over silently, any other
        // object with a warning.
        bool applicationFiltered = true, otherFiltered = true;
        QTest::ignoreMessage(QtWarningMsg, "Logic error: can't install event filter in different thread");
        std::thread worker([&] {
            applicationFiltered = CExcludeUserInpuEventsFilter(QCoreApplication::instance()).parent() != nullptr;
            otherFiltered = CExcludeUserInpuEventsFilter(&mainThreadObject).parent() != nullptr;
        });
        worker.join();
        QVERIFY(!applicationFiltered && !otherFiltered);
    }

    void loopEndingCodesAndTimeouts()
    {
        CExcludeUserInpuEventLoop loop;
        QTimer::singleShot(10, &loop, &CExcludeUserInpuEventLoop::failedQuit);
        QCOMPARE(loop.exec(), 1);
        int nested = 0;
        QTimer::singleShot(10, &loop, [&] {
            nested = loop.exec(5);
            loop.exit(3);
        });
        QCOMPARE(loop.exec(), 3);
        QCOMPARE(nested, -1);
        // exit is a slot, so another thread can reach it through a queued call.
        std::thread worker([&loop] { QMetaObject::invokeMethod(&loop, "exit", Qt::QueuedConnection, Q_ARG(int, 9)); });
        QCOMPARE(loop.exec(), 9);
        worker.join();

        QElapsedTimer clock;
        clock.start();
        QCOMPARE(loop.exec(60), 0);
        QVERIFY(clock.elapsed() >= 50 && !applicationHasFilter());
        // An early end leaves the timeout armed, and exec(0) arms nothing to replace it.
        QTimer::singleShot(10, &loop, &CExcludeUserInpuEventLoop::failedQuit);
        QCOMPARE(loop.exec(150), 1);
        QCOMPARE(loop.exec(0), 0);
    }

    void loopSwallowsCloseOnlyOfItsFilteredObject()
    {
        EventRecorder window;
        for (QObject* filtered : {static_cast<QObject*>(&window), static_cast<QObject*>(nullptr)}) {
            CExcludeUserInpuEventLoop loop(filtered);
            QList<int> seenDuringLoop;
            QTimer::singleShot(5, &loop, [&] {
                window.received.clear(); // the child event of the loop's filter
                for (QEvent::Type type : {QEvent::Close, QEvent::Leave}) {
                    QEvent event(type);
                    QCoreApplication::sendEvent(&window, &event);
                }
                seenDuringLoop = window.received;
                loop.quit();
            });
            QCOMPARE(loop.exec(), 0);
            QCOMPARE(seenDuringLoop, filtered ? QList<int>{QEvent::Leave} : (QList<int>{QEvent::Close, QEvent::Leave}));
        }
    }

    void completionWaiters()
    {
        // A signal before the wait: it returns at once, with the last result.
        Operation operation;
        COperationCompletionWaiter early(&operation, SIGNAL(finished()));
        COperationCompletionWaiterWithResult earlyResult(&operation, SIGNAL(done(bool)));
        bool nestedLoopRan = false;
        QTimer::singleShot(0, &operation, [&] { nestedLoopRan = true; });
        operation.finishNow(true);
        emit operation.done(false);
        early.startWaiting();
        earlyResult.startWaiting();
        QVERIFY(!nestedLoopRan && !earlyResult.isOperationSuccess());

        // A signal from a worker, queued here, ends a wait that delivers every event.
        COperationCompletionWaiterWithResult waiter(&operation, SIGNAL(done(bool)));
        std::thread worker([&operation] {
            QThread::msleep(40);
            operation.finishNow(true);
        });
        waiter.startWaiting();
        worker.join();
        QVERIFY(nestedLoopRan && waiter.isOperationSuccess());
    }
};

UTILSDLL_TEST_MAIN(TestWaits)
#include "tst_waits.moc"
