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

// Sets value on a thread of its own after a pause.
std::thread startSetter(QAtomicInt& value, int newValue, int pauseMs)
{
    return std::thread([&value, newValue, pauseMs] {
        QThread::msleep(pauseMs);
        value.storeRelaxed(newValue);
    });
}

} // namespace

class TestWaitPrimitives : public QObject
{
    Q_OBJECT
private slots:
    void satisfiedPredicateReturnsAtOnce_data();
    void satisfiedPredicateReturnsAtOnce();
    void blockingWaitForExactValue();
    void nonBlockingWaits();
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
    QVERIFY(recorder.received.isEmpty() && !applicationHasFilter());

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

    // The GUI thread waiting for a worker.
    std::thread setter = startSetter(value, 7, 20);
    waitBlockingAtomicIntValue(value, 7);
    setter.join();
}

void TestWaitPrimitives::nonBlockingWaits()
{
    // Without exclusion every event is delivered during the wait, user input included.
    QAtomicInt value(0);
    EventRecorder recorder;
    std::thread setter = startSetter(value, 1, 60);
    QCoreApplication::postEvent(&recorder, new QEvent(QEvent::KeyPress));
    waitNonBlockingAtomicIntValue(value, 1, false);
    setter.join();
    QCOMPARE(recorder.received, QList<int>{QEvent::KeyPress});

    // With it, the application's filter swallows the key but lets the pointer through.
    recorder.received.clear();
    bool filteredDuringWait = false;
    QTimer::singleShot(5, &recorder, [&] {
        filteredDuringWait = applicationHasFilter();
        // Sent through the application: its filter sees them first.
        for (QEvent::Type type : {QEvent::KeyPress, QEvent::MouseMove, QEvent::Wheel}) {
            QEvent event(type);
            QCoreApplication::sendEvent(&recorder, &event);
        }
        value.storeRelaxed(2);
    });
    waitNonBlockingAtomicIntValue(value, 2, true);
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
    QVERIFY(ranInsideTheWait && !applicationFiltered && !returnedEarly);
    QVERIFY(waitReturned && spinnerReturned);
    QCOMPARE(s_warnings.load(), 0);
}

UTILSDLL_TEST_MAIN(TestWaitPrimitives)
#include "tst_waitprimitives.moc"
