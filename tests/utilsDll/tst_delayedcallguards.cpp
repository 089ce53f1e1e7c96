// The two guards of the delayed-call dispatch can't be reached through the public
// operations, which refuse a null method and take at most nine arguments. This test
// compiles the engine's own file to drive its private invoker directly, so the
// reports carry that file's path and line numbers.
#include "DelayedCall.cpp"

#include "TestEnvironment.h"
#include "TestLogger.h"

namespace {

class CountingTarget : public QObject
{
    Q_OBJECT
public:
    int calls = 0;
    Q_INVOKABLE void ping() { ++calls; }
};

QString engineReport(int line)
{
    return QString("ASSERT in %1 %2").arg(QString::fromLocal8Bit(DELAYED_CALL_SOURCE), QString::number(line));
}

} // namespace

class TestDelayedCallGuards : public QObject
{
    Q_OBJECT
private slots:
    void guardsAtFiringAreReported()
    {
        UtilsDllTest::ScopedTestLogger logger;
        CountingTarget target;
        CDelayedInvoker invoker;
        invoker.arm(0, &target, nullptr, {}, true);
        QTRY_COMPARE(logger->linesAt('E'), QStringList{engineReport(216)});

        logger->clear();
        QList<QVariant> ten;
        for (int i = 0; i < 10; ++i)
            ten << QVariant(i);
        invoker.arm(0, &target, "ping", ten, true);
        QTRY_COMPARE(logger->linesAt('E'), QStringList{engineReport(258)});
        QCOMPARE(target.calls, 0);
        // Nine values pass the guard; the call then fails only for want of a matching method.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No such method"));
        invoker.arm(0, &target, "ping", ten.mid(0, 9), true);
        QTest::qWait(20);
        QCOMPARE(logger->linesAt('E').size(), 1);
    }
};

UTILSDLL_TEST_MAIN(TestDelayedCallGuards)
#include "tst_delayedcallguards.moc"
