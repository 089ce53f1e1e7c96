#include "CNativeDialogs.h"
#include "DelayedCall.h"
#include "TestEnvironment.h"

#include <QElapsedTimer>
#include <QLibrary>

#include <atomic>
#include <thread>

namespace {

// Records every call with its arguments as one text.
class CallTarget : public QObject
{
    Q_OBJECT
public:
    static std::atomic<int> s_allCalls; // of every target, living or deleted
    QStringList calls;

    Q_INVOKABLE void ping() { record("ping"); }
    Q_INVOKABLE void pong() { record("pong"); }
    Q_INVOKABLE void withInt(int value) { record(QString("int %1").arg(value)); }
    Q_INVOKABLE void withTexts(const QString& text, const QStringList& list, double number)
    {
        record(QString("texts %1 %2 %3").arg(text, list.join('+')).arg(number));
    }
    Q_INVOKABLE void withNine(int a, int b, int c, int d, int e, int f, int g, QByteArray h, const QString& i)
    {
        record(QString("nine %1 ").arg(a + b + c + d + e + f + g) + h + i);
    }
private:
    void record(const QString& call) { ++s_allCalls; calls << call; }
};

std::atomic<int> CallTarget::s_allCalls{0};

// A class of this module on the library's template, as an embedding module writes one.
class CCounter : public Singleton<CCounter>
{
public:
    static int s_constructions;

private:
    friend class Singleton<CCounter>;
    CCounter() { ++s_constructions; }
};

int CCounter::s_constructions = 0;

} // namespace

class TestDelayedCall : public QObject
{
    Q_OBJECT
private slots:
    void lastRequestWins()
    {
        CallTarget target;
        QElapsedTimer clock;
        clock.start();
        CDelayedCall::invoke(80, &target, "ping");
        QTest::qWait(40);
        CDelayedCall::invoke(80, &target, "ping");
        QTRY_COMPARE(target.calls.size(), 1);
        QVERIFY2(clock.elapsed() >= 110, "the delay runs afresh from the second request");

        // The replacement takes the later arguments; another method is another key, and
        // equal text at another address is the same key.
        target.calls.clear();
        CDelayedCall::invokeWithArgs(10, &target, "withInt", QVariant(1));
        CDelayedCall::invokeWithArgs(10, &target, "withInt", QVariant(2));
        CDelayedCall::invoke(10, &target, "ping");
        // Far apart: Windows may fire coarse timers 10 ms apart in either order.
        CDelayedCall::invoke(80, &target, "pong");
        const QByteArray pingCopy("ping");
        CDelayedCall::invoke(30, &target, pingCopy.constData());
        QTest::qWait(130);
        QCOMPARE(target.calls, (QStringList{"int 2", "ping", "pong"}));
    }

    void argumentsDelaysAndBadInput()
    {
        CallTarget target;
        CDelayedCall::invokeWithArgs(0, &target, "withTexts", QString("a b"), QStringList{"x", "y"}, QVariant(2.5));
        CDelayedCall::invokeWithArgs(0, &target, "withNine", 1, 2, 3, 4, 5, 6, 7, QByteArray("raw"), QVariant("!"));
        // Parameter types must match the QVariant type names exactly: nothing is called.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No such method .*withInt"));
        CDelayedCall::invokeWithArgs(0, &target, "withInt", QVariant(1.5));
        QTest::qWait(20);
        target.calls.sort();
        QCOMPARE(target.calls, (QStringList{"nine 28 raw!", "texts a b x+y 2.5"}));
        target.calls.clear();

        // Delay 0: at the next pass of the event loop, never inside invoke.
        CDelayedCall::invoke(0, &target, "ping");
        QVERIFY(target.calls.isEmpty() && CDelayedCall::isActive(&target, "ping"));
        QVERIFY(!CDelayedCall::isActive(&target, "pong"));
        bool activeElsewhere = true; // each thread's calls are its own
        std::thread([&] { activeElsewhere = CDelayedCall::isActive(&target, "ping"); }).join();
        QVERIFY(!activeElsewhere);
        QTRY_COMPARE(target.calls, QStringList{"ping"});
        QVERIFY(!CDelayedCall::isActive(&target, "ping"));

        // A negative delay starts no timer, and the earlier request is gone too.
        CDelayedCall::invoke(10, &target, "pong");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("negative intervals"));
        CDelayedCall::invoke(-5, &target, "pong");
        QVERIFY(!CDelayedCall::isActive(&target, "pong"));

        CDelayedCall::invoke(0, nullptr, "ping");
        CDelayedCall::invoke(0, &target, nullptr);
        CDelayedCall::discard(nullptr, nullptr);
        QVERIFY(!CDelayedCall::isActive(nullptr, "ping") && !CDelayedCall::isActive(&target, nullptr));

        // A target deleted while pending is not called, nor by a repeating timer.
        auto* single = new CallTarget;
        auto* repeating = new CallTarget;
        CDelayedCall::invoke(10, single, "ping");
        CDelayedCall::invoke(5, repeating, "ping", false);
        const int callsBefore = CallTarget::s_allCalls;
        delete single;
        delete repeating;
        QTest::qWait(40);
        QCOMPARE(CallTarget::s_allCalls.load(), callsBefore);
        QCOMPARE(target.calls, QStringList{"ping"});
    }

    void discardAndRepeatingCalls()
    {
        for (const char* method : {"ping", static_cast<const char*>(nullptr)}) {
            CallTarget target, other;
            CDelayedCall::invoke(10, &target, "ping");
            CDelayedCall::invoke(10, &target, "pong");
            CDelayedCall::invoke(10, &other, "ping");
            CDelayedCall::discard(&target, method); // null: all of the target's calls
            QVERIFY(!CDelayedCall::isActive(&target, "ping"));
            QCOMPARE(CDelayedCall::isActive(&target, "pong"), method != nullptr);
            QTest::qWait(40);
            QCOMPARE(target.calls, method ? QStringList{"pong"} : QStringList());
            QCOMPARE(other.calls, QStringList{"ping"});
        }

        // A repeating call fires until discarded.
        CallTarget repeating;
        CDelayedCall::invoke(5, &repeating, "ping", false);
        QTRY_VERIFY(repeating.calls.size() >= 3);
        QVERIFY(CDelayedCall::isActive(&repeating, "ping"));
        CDelayedCall::discard(&repeating, "ping");
        const int calls = repeating.calls.size();
        QTest::qWait(30);
        QCOMPARE(repeating.calls.size(), calls);
    }

    // A module's own singleton needs only the public header. The library's exported
    // instantiations hand out the library's instance, not one of this module's own.
    void singletons()
    {
        QCOMPARE(&CCounter::instance(), &CCounter::instance());
        QCOMPARE(CCounter::s_constructions, 1);

        QLibrary library(QStringLiteral(UTILSDLL_LIBRARY_NAME), 3); // already loaded: found by name
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        const auto delayedCall = reinterpret_cast<CDelayedCall& (*)()>(library.resolve("_ZN9SingletonI12CDelayedCallE8instanceEv"));
        const auto nativeDialogs = reinterpret_cast<Vexa::CNativeDialogs& (*)()>(
            library.resolve("_ZN9SingletonIN4Vexa14CNativeDialogsEE8instanceEv"));
        QVERIFY(delayedCall && nativeDialogs);
        QCOMPARE(&CDelayedCall::instance(), &delayedCall());
        QCOMPARE(&Vexa::CNativeDialogs::instance(), &nativeDialogs());
    }
};

UTILSDLL_TEST_MAIN(TestDelayedCall)
#include "tst_delayedcall.moc"
