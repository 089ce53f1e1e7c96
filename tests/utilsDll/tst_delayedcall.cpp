#include "DelayedCall.h"

#include "TestEnvironment.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <atomic>

namespace {

// Records every call it gets, with the arguments as one printable text.
class CallTarget : public QObject
{
    Q_OBJECT
public:
    static std::atomic<int> s_allCalls; // of every target, living or deleted
    QStringList calls;
    bool activeInside = false;
    int reArmCount = 0;
    QElapsedTimer clock;
    qint64 lastCallAt = -1;

    Q_INVOKABLE void ping() { record("ping"); }
    Q_INVOKABLE void pong() { record("pong"); }
    Q_INVOKABLE void withInt(int value) { record(QString("int %1").arg(value)); }
    Q_INVOKABLE void withText(const QString& text, double number) { record(QString("text %1 %2").arg(text).arg(number)); }
    Q_INVOKABLE void withList(const QStringList& list, const QByteArray& bytes, bool flag)
    {
        record(QString("list %1 %2 %3").arg(list.join('+'), QString::fromLatin1(bytes)).arg(flag));
    }
    Q_INVOKABLE void withNine(int a, int b, int c, int d, int e, int f, int g, int h, const QString& i)
    {
        record(QString("nine %1").arg(a + b + c + d + e + f + g + h) + i);
    }
    Q_INVOKABLE void checkSingleShotActivity()
    {
        activeInside = CDelayedCall::isActive(this, "checkSingleShotActivity");
        record("single");
    }
    Q_INVOKABLE void checkRepeatingActivity()
    {
        activeInside = CDelayedCall::isActive(this, "checkRepeatingActivity");
        record("repeat");
        if (calls.size() == 3)
            CDelayedCall::discard(this, "checkRepeatingActivity");
    }
    Q_INVOKABLE void reArm()
    {
        record("rearm");
        if (++reArmCount < 3)
            CDelayedCall::invoke(5, this, "reArm");
    }

private:
    void record(const QString& call)
    {
        ++s_allCalls;
        calls << call;
        lastCallAt = clock.isValid() ? clock.elapsed() : -1;
    }
};

std::atomic<int> CallTarget::s_allCalls{0};

// Runs the current thread's event loop for about ms milliseconds.
void spin(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

class TestDelayedCall : public QObject
{
    Q_OBJECT
private slots:
    void repeatedRequestRestartsTheDelay();
    void argumentsOfSeveralTypes_data();
    void argumentsOfSeveralTypes();
    void laterArgumentsReplaceEarlierOnes();
    void methodsOfOneTargetAreIndependent();
    void zeroDelayFiresOnNextLoopPass();
    void negativeDelayCancelsEarlierRequest();
    void discardOneOrAll();
    void activityInsideTheCall();
    void reArmFromInsideTheCall();
    void nullTargetOrMethodIsIgnored();
    void deletedTargetIsNotCalled();
    void threadsKeepTheirOwnCalls();
};

void TestDelayedCall::repeatedRequestRestartsTheDelay()
{
    CallTarget target;
    target.clock.start();
    CDelayedCall::invoke(80, &target, "ping");
    spin(40);
    CDelayedCall::invoke(80, &target, "ping");
    QTRY_COMPARE_WITH_TIMEOUT(target.calls.size(), 1, 2000);
    // The delay ran afresh from the second request, at about 40 ms.
    QVERIFY2(target.lastCallAt >= 110, qPrintable(QString::number(target.lastCallAt)));
    spin(120);
    QCOMPARE(target.calls, QStringList{"ping"});
}

void TestDelayedCall::argumentsOfSeveralTypes_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("expected");

    QTest::newRow("int") << "withInt" << QVariantList{42} << "int 42";
    QTest::newRow("text and double") << "withText" << QVariantList{QString("a b"), 2.5} << "text a b 2.5";
    QTest::newRow("list, bytes, bool") << "withList"
                                       << QVariantList{QStringList{"x", "y"}, QByteArray("raw"), true}
                                       << "list x+y raw 1";
    QTest::newRow("nine") << "withNine" << QVariantList{1, 2, 3, 4, 5, 6, 7, 8, QString("!")} << "nine 36!";
    // Parameter types must match the QVariant type names exactly: a double for an int
    // finds no method, and nothing is called.
    QTest::newRow("type mismatch") << "withInt" << QVariantList{1.5} << "";
}

void TestDelayedCall::argumentsOfSeveralTypes()
{
    QFETCH(QString, method);
    QFETCH(QVariantList, arguments);
    QFETCH(QString, expected);

    const QByteArray name = method.toLatin1();
    CallTarget target;
    const QVariantList& a = arguments;
    switch (arguments.size()) {
    case 1: CDelayedCall::invokeWithArgs(0, &target, name.constData(), a[0]); break;
    case 2: CDelayedCall::invokeWithArgs(0, &target, name.constData(), a[0], a[1]); break;
    case 3: CDelayedCall::invokeWithArgs(0, &target, name.constData(), a[0], a[1], a[2]); break;
    case 9:
        CDelayedCall::invokeWithArgs(0, &target, name.constData(), a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7],
                                     a[8]);
        break;
    default: QFAIL("no overload chosen for this row");
    }
    if (expected.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("QMetaObject::invokeMethod: No such method .*withInt"));
    spin(20);
    QCOMPARE(target.calls, expected.isEmpty() ? QStringList() : QStringList{expected});
}

void TestDelayedCall::laterArgumentsReplaceEarlierOnes()
{
    CallTarget target;
    CDelayedCall::invokeWithArgs(10, &target, "withInt", QVariant(1));
    CDelayedCall::invokeWithArgs(10, &target, "withInt", QVariant(2));
    QTRY_COMPARE(target.calls.size(), 1);
    spin(30);
    QCOMPARE(target.calls, QStringList{"int 2"});
}

void TestDelayedCall::methodsOfOneTargetAreIndependent()
{
    CallTarget target;
    CDelayedCall::invoke(10, &target, "ping");
    CDelayedCall::invoke(30, &target, "pong");
    // Equal text at another address is the same key: this replaces the first request.
    const QByteArray pingCopy("ping");
    CDelayedCall::invoke(20, &target, pingCopy.constData());
    QTRY_COMPARE(target.calls.size(), 2);
    spin(40);
    QCOMPARE(target.calls, (QStringList{"ping", "pong"}));
}

void TestDelayedCall::zeroDelayFiresOnNextLoopPass()
{
    CallTarget target;
    CDelayedCall::invoke(0, &target, "ping");
    QVERIFY(target.calls.isEmpty());
    QVERIFY(CDelayedCall::isActive(&target, "ping"));
    QTRY_COMPARE(target.calls, QStringList{"ping"});
    QVERIFY(!CDelayedCall::isActive(&target, "ping"));
}

void TestDelayedCall::negativeDelayCancelsEarlierRequest()
{
    CallTarget target;
    CDelayedCall::invoke(10, &target, "ping");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("negative intervals"));
    CDelayedCall::invoke(-5, &target, "ping");
    QVERIFY(!CDelayedCall::isActive(&target, "ping"));
    spin(40);
    QVERIFY(target.calls.isEmpty());
}

void TestDelayedCall::discardOneOrAll()
{
    CallTarget target;
    CallTarget other;
    CDelayedCall::invoke(10, &target, "ping");
    CDelayedCall::invoke(10, &target, "pong");
    CDelayedCall::invoke(10, &other, "ping");

    CDelayedCall::discard(&target, "ping");
    QVERIFY(!CDelayedCall::isActive(&target, "ping"));
    QVERIFY(CDelayedCall::isActive(&target, "pong"));
    spin(40);
    QCOMPARE(target.calls, QStringList{"pong"});
    QCOMPARE(other.calls, QStringList{"ping"});

    target.calls.clear();
    other.calls.clear();
    CDelayedCall::invoke(10, &target, "ping");
    CDelayedCall::invoke(10, &target, "pong");
    CDelayedCall::invoke(10, &other, "ping");
    CDelayedCall::discard(&target, nullptr);
    QVERIFY(!CDelayedCall::isActive(&target, "pong"));
    QVERIFY(CDelayedCall::isActive(&other, "ping"));
    spin(40);
    QVERIFY(target.calls.isEmpty());
    QCOMPARE(other.calls, QStringList{"ping"});
}

void TestDelayedCall::activityInsideTheCall()
{
    CallTarget single;
    CDelayedCall::invoke(0, &single, "checkSingleShotActivity", true);
    QTRY_COMPARE(single.calls.size(), 1);
    QVERIFY(!single.activeInside);

    // A repeating call keeps firing, with its record in place, until discarded.
    CallTarget repeating;
    CDelayedCall::invoke(5, &repeating, "checkRepeatingActivity", false);
    QTRY_COMPARE(repeating.calls.size(), 3);
    QVERIFY(repeating.activeInside);
    QVERIFY(!CDelayedCall::isActive(&repeating, "checkRepeatingActivity"));
    spin(30);
    QCOMPARE(repeating.calls.size(), 3);
}

void TestDelayedCall::reArmFromInsideTheCall()
{
    CallTarget target;
    CDelayedCall::invoke(5, &target, "reArm");
    QTRY_COMPARE(target.calls.size(), 3);
    spin(30);
    QCOMPARE(target.calls, (QStringList{"rearm", "rearm", "rearm"}));
    QVERIFY(!CDelayedCall::isActive(&target, "reArm"));
}

void TestDelayedCall::nullTargetOrMethodIsIgnored()
{
    CallTarget target;
    CDelayedCall::invoke(0, nullptr, "ping");
    CDelayedCall::invoke(0, &target, nullptr);
    CDelayedCall::invokeWithArgs(0, &target, nullptr, QVariant(1));
    CDelayedCall::discard(nullptr, nullptr);
    QVERIFY(!CDelayedCall::isActive(nullptr, "ping"));
    QVERIFY(!CDelayedCall::isActive(&target, nullptr));
    spin(10);
    QVERIFY(target.calls.isEmpty());

    // A thread that never armed a call has no invoker, and the queries stay harmless.
    bool activeThere = true;
    QThread* thread = QThread::create([&] {
        CDelayedCall::discard(&target, nullptr);
        activeThere = CDelayedCall::isActive(&target, "ping");
    });
    thread->start();
    QVERIFY(thread->wait(5000));
    delete thread;
    QVERIFY(!activeThere);
}

void TestDelayedCall::deletedTargetIsNotCalled()
{
    auto* single = new CallTarget;
    auto* repeating = new CallTarget;
    CDelayedCall::invoke(10, single, "ping");
    CDelayedCall::invoke(5, repeating, "ping", false);
    const int callsBefore = CallTarget::s_allCalls;
    delete single;
    delete repeating;
    // The left-over repeating timer keeps waking and calls nothing.
    spin(40);
    QCOMPARE(CallTarget::s_allCalls.load(), callsBefore);
    // A new object at a freed address is a fresh key: the stale index entry is skipped.
    CallTarget fresh;
    QVERIFY(!CDelayedCall::isActive(&fresh, "ping"));
    CDelayedCall::invoke(0, &fresh, "ping");
    QTRY_COMPARE(fresh.calls, QStringList{"ping"});
}

void TestDelayedCall::threadsKeepTheirOwnCalls()
{
    const int threadCount = 4;
    QList<QThread*> threads;
    std::atomic<int> callsSeen{0};
    std::atomic<int> foreignActive{0};
    std::atomic<int> armed{0};
    CallTarget shared; // lives on the main thread; armed from every worker

    for (int i = 0; i < threadCount; ++i) {
        threads << QThread::create([&, i] {
            CallTarget local;
            // Each thread arms the same key on the shared target; only its own invoker sees it.
            CDelayedCall::invokeWithArgs(30 + i, &shared, "withInt", QVariant(i));
            CDelayedCall::invoke(5, &local, "ping");
            CDelayedCall::invoke(5, &local, "ping"); // replaced, so one call
            ++armed;
            QEventLoop loop;
            QTimer::singleShot(90, &loop, &QEventLoop::quit);
            loop.exec();
            callsSeen += local.calls.size();
        });
    }
    for (QThread* thread : threads)
        thread->start();
    // Every worker has armed the shared target's key; this thread knows nothing of it.
    while (armed < threadCount)
        QThread::yieldCurrentThread();
    foreignActive += CDelayedCall::isActive(&shared, "withInt") ? 1 : 0;
    for (QThread* thread : threads) {
        QVERIFY(thread->wait(5000));
        delete thread;
    }
    QCOMPARE(foreignActive.load(), 0);
    QCOMPARE(callsSeen.load(), threadCount);
    // The shared target lives here, so each worker's call was queued to this thread.
    QTRY_COMPARE(shared.calls.size(), threadCount);
    QStringList sorted = shared.calls;
    sorted.sort();
    QCOMPARE(sorted, (QStringList{"int 0", "int 1", "int 2", "int 3"}));
}

UTILSDLL_TEST_MAIN(TestDelayedCall)
#include "tst_delayedcall.moc"
