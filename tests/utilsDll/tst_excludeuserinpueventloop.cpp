#include "ExcludeUserInpuEventLoop.h"

#include "DelayedCall.h"
#include "EventRecorder.h"
#include "TestEnvironment.h"

#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

#include <set>

using UtilsDllTest::EventRecorder;

namespace {

const std::set<int> kSwallowedTypes = {2,   3,   4,   6,   7,   8,   9,   10,  19,  51,  60,  61,  62,  63,
                                       117, 155, 156, 157, 158, 159, 164, 165, 166, 167, 174, 175, 176};

// Collects warnings while it lives.
class WarningCollector
{
public:
    WarningCollector() { s_warnings.clear(), m_previous = qInstallMessageHandler(&collect); }
    ~WarningCollector() { qInstallMessageHandler(m_previous); }
    static QStringList warnings() { return s_warnings; }

private:
    static void collect(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        if (type == QtWarningMsg)
            s_warnings << text;
    }
    static QStringList s_warnings;
    QtMessageHandler m_previous;
};
QStringList WarningCollector::s_warnings;

const char kCrossThreadWarning[] = "Logic error: can't install event filter in different thread";

} // namespace

class TestExcludeUserInpuEventLoop : public QObject
{
    Q_OBJECT
private slots:
    void filterSwallowsExactlyTheTable_data();
    void filterSwallowsExactlyTheTable();
    void filterSwallowsNoOtherType();
    void filterLeavesWithItsDestruction();
    void filterOnAnotherThreadsObject();
    void timeoutEndsTheLoopWithZero();
    void endingCodesAndIdleNoOps();
    void reEntryAnswersMinusOne();
    void leftOverTimeoutEndsALaterLoop();
    void negativeTimeoutWaitsForQuit();
    void closeIsSwallowedDuringTheLoop();
    void nullFilteredObjectFiltersNothing();
    void exitFromAnotherThread();
};

void TestExcludeUserInpuEventLoop::filterSwallowsExactlyTheTable_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("swallowed");
    for (int type : kSwallowedTypes)
        QTest::addRow("swallowed %d", type) << type << true;
    // Among those that pass on purpose: the pointer stays tracked.
    const QList<QEvent::Type> passing = {
        QEvent::MouseMove,        QEvent::Leave,          QEvent::Wheel,
        QEvent::ContextMenu,      QEvent::HoverEnter,     QEvent::HoverMove,
        QEvent::HoverLeave,       QEvent::TabletMove,     QEvent::TabletPress,
        QEvent::TabletRelease,    QEvent::GraphicsSceneWheel, QEvent::NonClientAreaMouseMove,
        QEvent::GraphicsSceneHoverMove, QEvent::Paint,    QEvent::Timer};
    for (QEvent::Type type : passing)
        QTest::addRow("passing %d", int(type)) << int(type) << false;
}

void TestExcludeUserInpuEventLoop::filterSwallowsExactlyTheTable()
{
    QFETCH(int, type);
    QFETCH(bool, swallowed);
    EventRecorder recorder;
    CExcludeUserInpuEventsFilter* filter = new CExcludeUserInpuEventsFilter(&recorder);
    QCOMPARE(filter->parent(), &recorder);

    QEvent event(static_cast<QEvent::Type>(type));
    event.accept();
    QCoreApplication::sendEvent(&recorder, &event);
    QCOMPARE(recorder.received.contains(type), !swallowed);
    // A swallowed event is also left unaccepted.
    if (swallowed)
        QVERIFY(!event.isAccepted());
}

void TestExcludeUserInpuEventLoop::filterSwallowsNoOtherType()
{
    EventRecorder recorder;
    new CExcludeUserInpuEventsFilter(&recorder);
    std::set<int> swallowed;
    for (int type = QEvent::None + 1; type <= QEvent::MaxUser; type += (type < 1000 ? 1 : 997)) {
        QEvent event(static_cast<QEvent::Type>(type));
        QCoreApplication::sendEvent(&recorder, &event);
        if (!recorder.received.contains(type))
            swallowed.insert(type);
        recorder.received.clear();
    }
    QCOMPARE(swallowed, kSwallowedTypes);
}

void TestExcludeUserInpuEventLoop::filterLeavesWithItsDestruction()
{
    EventRecorder recorder;
    auto* filter = new CExcludeUserInpuEventsFilter(&recorder);
    delete filter;
    recorder.received.clear(); // the child events of the filter's coming and going
    QEvent press(QEvent::KeyPress);
    QCoreApplication::sendEvent(&recorder, &press);
    QCOMPARE(recorder.received, QList<int>{QEvent::KeyPress});

    // Null object: inert, and nothing to remove from.
    delete new CExcludeUserInpuEventsFilter(nullptr);
}

void TestExcludeUserInpuEventLoop::filterOnAnotherThreadsObject()
{
    EventRecorder mainThreadObject;
    WarningCollector collector;
    bool applicationFiltered = true;
    QStringList warningsForApplication;
    bool otherFiltered = true;
    QThread* thread = QThread::create([&] {
        // The application object: the expected case of a wait on a worker, silent.
        {
            CExcludeUserInpuEventsFilter forApplication(QCoreApplication::instance());
            applicationFiltered = forApplication.parent() != nullptr;
            warningsForApplication = collector.warnings();
        }
        CExcludeUserInpuEventsFilter forOther(&mainThreadObject);
        otherFiltered = forOther.parent() != nullptr;
    });
    thread->start();
    QVERIFY(thread->wait(5000));
    delete thread;
    QVERIFY(!applicationFiltered);
    QVERIFY(warningsForApplication.isEmpty());
    QVERIFY(!otherFiltered);
    QCOMPARE(collector.warnings(), QStringList{kCrossThreadWarning});
    QEvent press(QEvent::KeyPress);
    QCoreApplication::sendEvent(&mainThreadObject, &press);
    QCOMPARE(mainThreadObject.received, QList<int>{QEvent::KeyPress});
}

void TestExcludeUserInpuEventLoop::timeoutEndsTheLoopWithZero()
{
    CExcludeUserInpuEventLoop loop;
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(loop.exec(60), 0);
    QVERIFY2(clock.elapsed() >= 50, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(!loop.isRunning());
    // Nothing stays filtered on the application once the loop has ended.
    QVERIFY(QCoreApplication::instance()->findChildren<CExcludeUserInpuEventsFilter*>().isEmpty());
}

void TestExcludeUserInpuEventLoop::endingCodesAndIdleNoOps()
{
    CExcludeUserInpuEventLoop loop;
    // On an idle loop these do nothing, and the next exec is not affected.
    loop.quit();
    loop.failedQuit();
    loop.exit(7);

    QTimer::singleShot(10, &loop, &CExcludeUserInpuEventLoop::failedQuit);
    QCOMPARE(loop.exec(), 1);
    QTimer::singleShot(10, &loop, [&loop] { loop.exit(7); });
    QCOMPARE(loop.exec(), 7);
    QTimer::singleShot(10, &loop, &CExcludeUserInpuEventLoop::quit);
    QCOMPARE(loop.exec(), 0);
}

void TestExcludeUserInpuEventLoop::reEntryAnswersMinusOne()
{
    CExcludeUserInpuEventLoop loop;
    int nested = 0;
    bool stillRunning = false;
    QTimer::singleShot(10, &loop, [&] {
        nested = loop.exec(5);
        stillRunning = loop.isRunning();
        loop.exit(3);
    });
    QCOMPARE(loop.exec(), 3);
    QCOMPARE(nested, -1);
    QVERIFY(stillRunning);
}

void TestExcludeUserInpuEventLoop::leftOverTimeoutEndsALaterLoop()
{
    CExcludeUserInpuEventLoop loop;
    QTimer::singleShot(10, &loop, &CExcludeUserInpuEventLoop::failedQuit);
    QCOMPARE(loop.exec(150), 1);
    QVERIFY(CDelayedCall::isActive(&loop, "quit"));
    // exec(0) arms nothing, so the quit left over from the first run ends this one.
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(loop.exec(0), 0);
    QVERIFY(clock.elapsed() < 1000);
}

void TestExcludeUserInpuEventLoop::negativeTimeoutWaitsForQuit()
{
    CExcludeUserInpuEventLoop loop;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("negative intervals"));
    QTimer::singleShot(80, &loop, &CExcludeUserInpuEventLoop::failedQuit);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(loop.exec(-10), 1);
    QVERIFY(clock.elapsed() >= 70);
}

void TestExcludeUserInpuEventLoop::closeIsSwallowedDuringTheLoop()
{
    EventRecorder window;
    CExcludeUserInpuEventLoop loop(&window);
    bool accepted = true;
    QList<int> seenDuringLoop;
    QTimer::singleShot(5, &loop, [&] {
        window.received.clear(); // the child event of the loop's filter
        QEvent close(QEvent::Close);
        close.accept();
        QCoreApplication::sendEvent(&window, &close);
        accepted = close.isAccepted();
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&window, &leave);
        seenDuringLoop = window.received;
        loop.quit();
    });
    QCOMPARE(loop.exec(), 0);
    QVERIFY(!accepted);
    QCOMPARE(seenDuringLoop, QList<int>{QEvent::Leave});
    // The filter went with the loop.
    QEvent close(QEvent::Close);
    QCoreApplication::sendEvent(&window, &close);
    QCOMPARE(window.received.last(), int(QEvent::Close));
}

void TestExcludeUserInpuEventLoop::nullFilteredObjectFiltersNothing()
{
    EventRecorder receiver;
    CExcludeUserInpuEventLoop loop(nullptr);
    QTimer::singleShot(5, &loop, [&] {
        QEvent press(QEvent::KeyPress);
        QCoreApplication::sendEvent(&receiver, &press);
        loop.quit();
    });
    QCOMPARE(loop.exec(), 0);
    QCOMPARE(receiver.received, QList<int>{QEvent::KeyPress});
}

void TestExcludeUserInpuEventLoop::exitFromAnotherThread()
{
    CExcludeUserInpuEventLoop loop;
    QThread* thread = QThread::create([&loop] {
        QThread::msleep(20);
        QMetaObject::invokeMethod(&loop, "exit", Qt::QueuedConnection, Q_ARG(int, 9));
    });
    thread->start();
    QCOMPARE(loop.exec(), 9);
    QVERIFY(thread->wait(5000));
    delete thread;
}

UTILSDLL_TEST_MAIN(TestExcludeUserInpuEventLoop)
#include "tst_excludeuserinpueventloop.moc"
