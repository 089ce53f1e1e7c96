#include "OperationCompletionWaiter.h"

#include "TestEnvironment.h"
#include "TestLogger.h"

#include <QThread>
#include <QTimer>

#include <thread>

using Vexa::COperationCompletionWaiter;
using Vexa::COperationCompletionWaiterWithResult;

namespace {

class Operation : public QObject
{
    Q_OBJECT
public:
    void finishNow(bool ok) { emit done(ok), emit finished(); }
signals:
    void done(bool ok);
    void finished();
    void progress(int percent);
};

// The waiter's own file, as the assertion reports name it.
QString waiterReport(int line)
{
    return QString("ASSERT in %1 %2").arg(QString::fromLocal8Bit(WAITER_SOURCE), QString::number(line));
}

} // namespace

class TestOperationCompletionWaiter : public QObject
{
    Q_OBJECT
private slots:
    void signalBeforeWaitReturnsAtOnce()
    {
        Operation operation;
        COperationCompletionWaiter waiter(&operation, SIGNAL(finished()));
        COperationCompletionWaiterWithResult resultWaiter(&operation, SIGNAL(done(bool)));
        bool nestedLoopRan = false;
        QTimer::singleShot(0, &operation, [&] { nestedLoopRan = true; });
        operation.finishNow(true); // emitted within the call that starts the operation
        emit operation.done(false); // a later signal overwrites the result
        waiter.startWaiting();
        resultWaiter.startWaiting();
        resultWaiter.startWaiting(); // again after completion: still at once
        QVERIFY(!nestedLoopRan);
        QVERIFY(!resultWaiter.isOperationSuccess());
    }

    // A false result is read in the test above; here the success that ends a real wait.
    void signalFromWorkerEndsTheWait()
    {
        UtilsDllTest::ScopedTestLogger logger;
        Operation operation;
        COperationCompletionWaiterWithResult waiter(&operation, SIGNAL(done(bool)));
        COperationCompletionWaiter plainWaiter(&operation, SIGNAL(finished()));
        bool eventsDelivered = false;
        QTimer::singleShot(5, &operation, [&] { eventsDelivered = true; });
        // Emitted on the worker after the wait has begun; queued to this thread.
        std::thread worker([&operation] {
            QThread::msleep(40);
            operation.finishNow(true);
        });
        waiter.startWaiting();
        plainWaiter.startWaiting();
        worker.join();
        QVERIFY(eventsDelivered); // all events run during the wait
        QVERIFY(waiter.isOperationSuccess());
        QVERIFY(logger->linesAt('E').isEmpty());
    }

    void misuseIsReported()
    {
        UtilsDllTest::ScopedTestLogger logger;
        Operation operation;
        // A premature question: reported, and answered false.
        COperationCompletionWaiterWithResult early(&operation, SIGNAL(done(bool)));
        QVERIFY(!early.isOperationSuccess());
        QCOMPARE(logger->linesAt('E'), QStringList{waiterReport(52)});

        // Null sender or signal: reported and passed over, with Qt's own warning.
        logger->clear();
        for (int i = 0; i < 4; ++i)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("QObject::connect.*"));
        COperationCompletionWaiter noSender(nullptr, SIGNAL(finished())), noSignal(&operation, nullptr);
        COperationCompletionWaiterWithResult noResultSender(nullptr, SIGNAL(done(bool))), noResultSignal(&operation, nullptr);
        QCOMPARE(logger->linesAt('E'),
                 (QStringList{waiterReport(16), waiterReport(17), waiterReport(43), waiterReport(44)}));

        // A signal without the bool does not connect: when it comes, nothing completes.
        logger->clear();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("QObject::connect: Incompatible sender/receiver arguments"));
        COperationCompletionWaiterWithResult wrongSignal(&operation, SIGNAL(progress(int)));
        emit operation.progress(100);
        QVERIFY(!wrongSignal.isOperationSuccess());
        QCOMPARE(logger->linesAt('E'), QStringList{waiterReport(52)});
    }
};

UTILSDLL_TEST_MAIN(TestOperationCompletionWaiter)
#include "tst_operationcompletionwaiter.moc"
