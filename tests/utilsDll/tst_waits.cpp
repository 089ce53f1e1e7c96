// Wait primitives and the input-excluding event loop, whose filter the non-blocking
// waits install.
#include "WaitPrimitives.h"

#include "DelayedCall.h"
#include "ExcludeUserInpuEventLoop.h"
#include "TestEnvironment.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <set>
#include <thread>

namespace {

// Takes every event itself and remembers its type, without handing it to QObject:
// plain QEvents of any type, even those QObject would interpret, are safe to send.
class EventRecorder : public QObject
{
public:
    QList<int> received;

protected:
    bool event(QEvent* event) override
    {
        received << event->type();
        return true;
    }
};

// Counts how often it is asked, and turns true from a given question on.
class CountingPredicate : public ICustomWaitPredicate
{
public:
    explicit CountingPredicate(int trueFromQuestion) : m_trueFrom(trueFromQuestion) {}
    bool isSatisfied() const override { return ++questions >= m_trueFrom; }
    mutable int questions = 0;

private:
    int m_trueFrom;
};

bool applicationHasFilter()
{
    return !QCoreApplication::instance()->findChildren<CExcludeUserInpuEventsFilter*>().isEmpty();
}

// Warnings from any thread, while a WarningCollector lives.
QStringList s_warnings;
struct WarningCollector
{
    WarningCollector()
    {
        s_warnings.clear();
        m_previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (type == QtWarningMsg)
                s_warnings << text;
        });
    }
    ~WarningCollector() { qInstallMessageHandler(m_previous); }
    QtMessageHandler m_previous;
};

} // namespace

class TestWaits : public QObject
{
    Q_OBJECT
private slots:
    void satisfiedPredicateReturnsAtOnce()
    {
        for (int mode : {0, 1, 2}) { // blocking, non-blocking, non-blocking with exclusion
            EventRecorder recorder;
            QCoreApplication::postEvent(&recorder, new QEvent(QEvent::User));
            for (int trueFrom : {1, 3}) {
                CountingPredicate predicate(trueFrom);
                mode == 0 ? waitBlocking(predicate) : waitNonBlocking(predicate, mode == 2);
                QCOMPARE(predicate.questions, trueFrom);
                // Held at once: not a single event was processed, and no filter is left behind.
                if (trueFrom == 1)
                    QVERIFY2(recorder.received.isEmpty() && !applicationHasFilter(), qPrintable(QString::number(mode)));
            }
        }
    }

    void blockingWaitForExactValue()
    {
        // The value passes through 5 and 2 before reaching 3: equality, never "at least".
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
        // Without exclusion every event is delivered during the wait, user input included.
        QAtomicInt value(0);
        EventRecorder recorder;
        std::thread setter([&value] {
            QThread::msleep(60);
            value.storeRelaxed(1);
        });
        QCoreApplication::postEvent(&recorder, new QEvent(QEvent::KeyPress));
        waitNonBlockingAtomicIntValue(value, 1, false);
        setter.join();
        QCOMPARE(recorder.received, QList<int>{QEvent::KeyPress});

        // With it, the application's filter (its table is pinned below) holds the key back.
        recorder.received.clear();
        bool filteredDuringWait = false;
        QTimer::singleShot(5, &recorder, [&] {
            filteredDuringWait = applicationHasFilter();
            QEvent key(QEvent::KeyPress);
            QCoreApplication::sendEvent(&recorder, &key);
            value.storeRelaxed(2);
        });
        waitNonBlockingAtomicIntValue(value, 2, true);
        QVERIFY(filteredDuringWait && !applicationHasFilter());
        QVERIFY(recorder.received.isEmpty());
    }

    void waitsOnWorkerThreads()
    {
        // A worker with an event loop pumps its own queue; one without spins. That neither
        // filters the application from there is the filter's rule, pinned below.
        QAtomicInt value(0);
        std::atomic<bool> queuedCallRan{false};
        std::atomic<int> returned{0};
        std::thread eventThread([&] {
            QObject local;
            QEventLoop givesThisThreadADispatcher;
            QMetaObject::invokeMethod(&local, [&] { queuedCallRan = true; }, Qt::QueuedConnection);
            waitNonBlockingAtomicIntValue(value, 1, true);
            ++returned;
        });
        std::thread spinner([&] {
            waitNonBlockingAtomicIntValue(value, 1, true);
            ++returned;
        });
        const bool ranInsideTheWait = QTest::qWaitFor([&] { return queuedCallRan.load(); }, 5000);
        const int returnedEarly = returned;
        value.storeRelaxed(1);
        eventThread.join();
        spinner.join();
        QVERIFY(ranInsideTheWait);
        QCOMPARE(returnedEarly, 0);
        QCOMPARE(returned.load(), 2);
    }

    void filterSwallowsExactlyTheTable()
    {
        const std::set<int> swallowedTypes = {2,   3,   4,   6,   7,   8,   9,   10,  19,  51,  60,  61,  62,  63,
                                              117, 155, 156, 157, 158, 159, 164, 165, 166, 167, 174, 175, 176};
        EventRecorder recorder;
        new CExcludeUserInpuEventsFilter(&recorder);
        // Every built-in type up to the last of the table, and a few beyond it.
        QList<int> types;
        for (int type = QEvent::None + 1; type <= 200; ++type)
            types << type;
        types << QEvent::User << 5000 << QEvent::MaxUser;
        for (int type : types) {
            const bool swallowed = swallowedTypes.count(type) == 1;
            recorder.received.clear();
            QEvent event(static_cast<QEvent::Type>(type));
            event.accept();
            QCoreApplication::sendEvent(&recorder, &event);
            QVERIFY2(recorder.received.contains(type) != swallowed, qPrintable(QString::number(type)));
            QVERIFY2(event.isAccepted() != swallowed, qPrintable(QString::number(type))); // swallowed: also unaccepted
        }
    }

    void filterInstallsOnlyOnItsThread()
    {
        EventRecorder mainThreadObject;
        auto* filter = new CExcludeUserInpuEventsFilter(&mainThreadObject);
        QCOMPARE(filter->parent(), &mainThreadObject);
        delete filter; // removes itself
        delete new CExcludeUserInpuEventsFilter(nullptr); // inert

        WarningCollector warnings;
        bool applicationFiltered = true;
        QStringList warningsForApplication;
        bool otherFiltered = true;
        std::thread worker([&] {
            {
                // The application object: the expected case of a wait on a worker, silent.
                CExcludeUserInpuEventsFilter forApplication(QCoreApplication::instance());
                applicationFiltered = forApplication.parent() != nullptr;
                warningsForApplication = s_warnings;
            }
            CExcludeUserInpuEventsFilter forOther(&mainThreadObject);
            otherFiltered = forOther.parent() != nullptr;
        });
        worker.join();
        QVERIFY(!applicationFiltered && !otherFiltered && warningsForApplication.isEmpty());
        QCOMPARE(s_warnings, QStringList{"Logic error: can't install event filter in different thread"});
    }

    void loopEndingCodes()
    {
        CExcludeUserInpuEventLoop loop;
        // On an idle loop these do nothing, and the next exec is not affected.
        loop.quit();
        loop.failedQuit();
        loop.exit(7);

        QTimer::singleShot(10, &loop, &CExcludeUserInpuEventLoop::failedQuit);
        QCOMPARE(loop.exec(), 1);
        QTimer::singleShot(10, &loop, &CExcludeUserInpuEventLoop::quit);
        QCOMPARE(loop.exec(), 0);

        int nested = 0;
        QTimer::singleShot(10, &loop, [&] {
            nested = loop.exec(5);
            QVERIFY(loop.isRunning());
            loop.exit(3);
        });
        QCOMPARE(loop.exec(), 3);
        QCOMPARE(nested, -1);

        // exit is a slot, so another thread can reach it through a queued call.
        std::thread worker([&loop] { QMetaObject::invokeMethod(&loop, "exit", Qt::QueuedConnection, Q_ARG(int, 9)); });
        QCOMPARE(loop.exec(), 9);
        worker.join();
    }

    void loopTimeouts()
    {
        CExcludeUserInpuEventLoop loop;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(loop.exec(60), 0);
        QVERIFY2(clock.elapsed() >= 50, qPrintable(QString::number(clock.elapsed())));
        QVERIFY(!applicationHasFilter()); // nothing stays filtered once the loop has ended

        // A negative timeout starts no timer: only the caller's own quit ends the loop.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("negative intervals"));
        QTimer::singleShot(80, &loop, &CExcludeUserInpuEventLoop::failedQuit);
        clock.restart();
        QCOMPARE(loop.exec(-10), 1);
        QVERIFY(clock.elapsed() >= 70);

        // An early end leaves the timeout armed, and exec(0) arms nothing to replace it:
        // the left-over quit ends the next run.
        QTimer::singleShot(10, &loop, &CExcludeUserInpuEventLoop::failedQuit);
        QCOMPARE(loop.exec(150), 1);
        QVERIFY(CDelayedCall::isActive(&loop, "quit"));
        QCOMPARE(loop.exec(0), 0);
    }

    void loopSwallowsCloseUnlessUnfiltered()
    {
        // With no filtered object, the loop only holds back input through its flags:
        // events delivered by other means pass. Which types are held is the filter's table.
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
};

UTILSDLL_TEST_MAIN(TestWaits)
#include "tst_waits.moc"
