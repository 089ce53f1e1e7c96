#include "WaitPrimitives.h"

#include "ExcludeUserInpuEventLoop.h"
#include "EventRecorder.h"
#include "TestEnvironment.h"

#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <thread>

using UtilsDllTest::EventRecorder;

namespace {

// Counts how often it is asked, and turns true after a given number of questions.
class CountingPredicate : public ICustomWaitPredicate
{
public:
    explicit CountingPredicate(int trueFromQuestion) : m_trueFrom(trueFromQuestion) {}
    bool isSatisfied() const override { return ++m_questions >= m_trueFrom; }
    int questions() const { return m_questions; }

private:
    int m_trueFrom;
    mutable int m_questions = 0;
};

bool applicationHasFilter()
{
    return !QCoreApplication::instance()->findChildren<CExcludeUserInpuEventsFilter*>().isEmpty();
}

// Sets value to each of steps in turn on its own thread, pausing before each.
QThread* startSetter(QAtomicInt& value, QList<int> steps, int pauseMs)
{
    QThread* thread = QThread::create([&value, steps, pauseMs] {
        for (int step : steps) {
            QThread::msleep(pauseMs);
            value.storeRelaxed(step);
        }
    });
    thread->start();
    return thread;
}

} // namespace

class TestWaitPrimitives : public QObject
{
    Q_OBJECT
private slots:
    void satisfiedPredicateReturnsAtOnce_data();
    void satisfiedPredicateReturnsAtOnce();
    void blockingWaitForExactValue();
    void nonBlockingWaitDeliversEvents();
    void nonBlockingWaitWithExclusion();
    void waitsOnWorkerThreads();
};

void TestWaitPrimitives::satisfiedPredicateReturnsAtOnce_data()
{
    QTest::addColumn<bool>("blocking");
    QTest::addColumn<bool>("excludeUserInput");
    QTest::newRow("blocking") << true << false;
    QTest::newRow("non-blocking") << false << false;
    QTest::newRow("non-blocking, exclusion") << false << true;
}

void TestWaitPrimitives::satisfiedPredicateReturnsAtOnce()
{
    QFETCH(bool, blocking);
    QFETCH(bool, excludeUserInput);
    EventRecorder recorder;
    QCoreApplication::postEvent(&recorder, new QEvent(QEvent::User));
    CountingPredicate predicate(1);
    if (blocking)
        waitBlocking(predicate);
    else
        waitNonBlocking(predicate, excludeUserInput);
    QCOMPARE(predicate.questions(), 1);
    // Not a single event was processed, and no filter is left behind.
    QVERIFY(recorder.received.isEmpty());
    QVERIFY(!applicationHasFilter());
    QCoreApplication::sendPostedEvents(&recorder);
    QCOMPARE(recorder.received, QList<int>{QEvent::User});

    QAtomicInt value(4);
    if (blocking)
        waitBlockingAtomicIntValue(value, 4);
    else
        waitNonBlockingAtomicIntValue(value, 4, excludeUserInput);

    // A predicate that holds from its third question: the loop keeps asking.
    CountingPredicate third(3);
    if (blocking)
        waitBlocking(third);
    else
        waitNonBlocking(third, excludeUserInput);
    QCOMPARE(third.questions(), 3);
}

void TestWaitPrimitives::blockingWaitForExactValue()
{
    // The value passes through 5 and 2 before reaching 3: equality, never "at least".
    QAtomicInt value(0);
    std::atomic<bool> waiterDone{false};
    std::atomic<int> seenAtReturn{-1};
    QThread* waiter = QThread::create([&] {
        waitBlockingAtomicIntValue(value, 3);
        seenAtReturn = value.loadRelaxed();
        waiterDone = true;
    });
    waiter->start();
    value.storeRelaxed(5);
    QThread::msleep(30);
    QVERIFY(!waiterDone);
    value.storeRelaxed(2);
    QThread::msleep(30);
    QVERIFY(!waiterDone);
    value.storeRelaxed(3);
    QVERIFY(waiter->wait(5000));
    delete waiter;
    QCOMPARE(seenAtReturn.load(), 3);

    // The GUI thread waiting for a worker.
    QThread* setter = startSetter(value, {7}, 20);
    waitBlockingAtomicIntValue(value, 7);
    QVERIFY(setter->wait(5000));
    delete setter;
}

void TestWaitPrimitives::nonBlockingWaitDeliversEvents()
{
    QAtomicInt value(0);
    EventRecorder recorder;
    int timerFired = 0;
    QTimer::singleShot(5, &recorder, [&] { ++timerFired; });
    QThread* setter = startSetter(value, {1}, 60);
    QCoreApplication::postEvent(&recorder, new QEvent(QEvent::KeyPress));
    waitNonBlockingAtomicIntValue(value, 1, false);
    QVERIFY(setter->wait(5000));
    delete setter;
    QCOMPARE(timerFired, 1);
    QCOMPARE(recorder.received, QList<int>{QEvent::KeyPress});
}

void TestWaitPrimitives::nonBlockingWaitWithExclusion()
{
    QAtomicInt value(0);
    EventRecorder recorder;
    bool filteredDuringWait = false;
    QTimer::singleShot(5, &recorder, [&] {
        filteredDuringWait = applicationHasFilter();
        // Sent through the application: its filter sees them first.
        QEvent press(QEvent::KeyPress);
        QCoreApplication::sendEvent(&recorder, &press);
        QEvent move(QEvent::MouseMove);
        QCoreApplication::sendEvent(&recorder, &move);
        QEvent wheel(QEvent::Wheel);
        QCoreApplication::sendEvent(&recorder, &wheel);
        value.storeRelaxed(1);
    });
    waitNonBlockingAtomicIntValue(value, 1, true);
    QVERIFY(filteredDuringWait);
    QVERIFY(!applicationHasFilter());
    QCOMPARE(recorder.received, (QList<int>{QEvent::MouseMove, QEvent::Wheel}));
}

void TestWaitPrimitives::waitsOnWorkerThreads()
{
    // A worker with an event loop pumps its own queue; one without spins. Neither
    // installs a filter on the application nor warns.
    QAtomicInt value(0);
    static std::atomic<int> s_warnings;
    s_warnings = 0;
    const QtMessageHandler previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString&) {
        if (type == QtWarningMsg)
            ++s_warnings;
    });

    std::atomic<bool> queuedCallRan{false};
    std::atomic<bool> waitReturned{false};
    std::thread eventThread([&] {
        QObject local;
        QEventLoop givesThisThreadADispatcher;
        QMetaObject::invokeMethod(&local, [&] { queuedCallRan = true; }, Qt::QueuedConnection);
        waitNonBlockingAtomicIntValue(value, 1, true);
        waitReturned = true;
    });
    std::atomic<bool> spinnerReturned{false};
    std::thread spinner([&] {
        waitNonBlockingAtomicIntValue(value, 1, true);
        spinnerReturned = true;
    });

    // The queued call ran inside the worker's wait, and the application stays unfiltered.
    const bool ranInsideTheWait = QTest::qWaitFor([&] { return queuedCallRan.load(); }, 5000);
    const bool applicationFiltered = applicationHasFilter();
    const bool returnedEarly = waitReturned || spinnerReturned;
    value.storeRelaxed(1);
    eventThread.join();
    spinner.join();
    qInstallMessageHandler(previous);
    QVERIFY(ranInsideTheWait);
    QVERIFY(!applicationFiltered);
    QVERIFY(!returnedEarly);
    QVERIFY(waitReturned && spinnerReturned);
    QCOMPARE(s_warnings.load(), 0);
}

UTILSDLL_TEST_MAIN(TestWaitPrimitives)
#include "tst_waitprimitives.moc"
