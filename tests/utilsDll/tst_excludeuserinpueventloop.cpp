#include "ExcludeUserInpuEventLoop.h"

#include "DelayedCall.h"
#include "EventRecorder.h"
#include "TestEnvironment.h"

#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

#include <set>
#include <thread>

using UtilsDllTest::EventRecorder;

namespace {

const std::set<int> kSwallowedTypes = {2,   3,   4,   6,   7,   8,   9,   10,  19,  51,  60,  61,  62,  63,
                                       117, 155, 156, 157, 158, 159, 164, 165, 166, 167, 174, 175, 176};

QStringList s_warnings;
void collectWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtWarningMsg)
        s_warnings << text;
}

} // namespace

class TestExcludeUserInpuEventLoop : public QObject
{
    Q_OBJECT
private slots:
    void filterSwallowsExactlyTheTable_data();
    void filterSwallowsExactlyTheTable();
    void filterInstallsOnlyOnItsThread();
    void endingCodes();
    void timeouts();
    void closeSwallowedUnlessUnfiltered();
};

void TestExcludeUserInpuEventLoop::filterSwallowsExactlyTheTable_data()
{
    QTest::addColumn<int>("type");
    // Every built-in type up to the last of the table, and a few beyond it.
    for (int type = QEvent::None + 1; type <= 200; ++type)
        QTest::addRow("%d", type) << type;
    for (int type : {int(QEvent::User), 5000, int(QEvent::MaxUser)})
        QTest::addRow("%d", type) << type;
}

void TestExcludeUserInpuEventLoop::filterSwallowsExactlyTheTable()
{
    QFETCH(int, type);
    const bool swallowed = kSwallowedTypes.count(type) == 1;
    EventRecorder recorder;
    new CExcludeUserInpuEventsFilter(&recorder);
    recorder.received.clear(); // the child event of the filter's arrival

    QEvent event(static_cast<QEvent::Type>(type));
    event.accept();
    QCoreApplication::sendEvent(&recorder, &event);
    QCOMPARE(recorder.received.contains(type), !swallowed);
    // A swallowed event is also left unaccepted.
    QCOMPARE(event.isAccepted(), !swallowed);
}

void TestExcludeUserInpuEventLoop::filterInstallsOnlyOnItsThread()
{
    EventRecorder mainThreadObject;
    auto* filter = new CExcludeUserInpuEventsFilter(&mainThreadObject);
    QCOMPARE(filter->parent(), &mainThreadObject);
    delete filter; // removes itself
    delete new CExcludeUserInpuEventsFilter(nullptr); // inert

    s_warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(&collectWarning);
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
    qInstallMessageHandler(previous);
    QVERIFY(!applicationFiltered && !otherFiltered && warningsForApplication.isEmpty());
    QCOMPARE(s_warnings, QStringList{"Logic error: can't install event filter in different thread"});
}

void TestExcludeUserInpuEventLoop::endingCodes()
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

void TestExcludeUserInpuEventLoop::timeouts()
{
    CExcludeUserInpuEventLoop loop;
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(loop.exec(60), 0);
    QVERIFY2(clock.elapsed() >= 50, qPrintable(QString::number(clock.elapsed())));
    // Nothing stays filtered on the application once the loop has ended.
    QVERIFY(QCoreApplication::instance()->findChildren<CExcludeUserInpuEventsFilter*>().isEmpty());

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

void TestExcludeUserInpuEventLoop::closeSwallowedUnlessUnfiltered()
{
    EventRecorder window;
    CExcludeUserInpuEventLoop loop(&window);
    bool accepted = true;
    QList<int> seenDuringLoop;
    QTimer::singleShot(5, &loop, [&] {
        window.received.clear(); // the child event of the loop's filter
        for (QEvent::Type type : {QEvent::Close, QEvent::Leave}) {
            QEvent event(type);
            event.accept();
            QCoreApplication::sendEvent(&window, &event);
            accepted = accepted && event.isAccepted();
        }
        seenDuringLoop = window.received;
        loop.quit();
    });
    QCOMPARE(loop.exec(), 0);
    QVERIFY(!accepted);
    QCOMPARE(seenDuringLoop, QList<int>{QEvent::Leave});

    // With no filtered object, the loop only holds back input through its flags:
    // events delivered by other means pass.
    CExcludeUserInpuEventLoop unfiltered(nullptr);
    window.received.clear();
    QTimer::singleShot(5, &unfiltered, [&] {
        QEvent close(QEvent::Close);
        QCoreApplication::sendEvent(&window, &close);
        unfiltered.quit();
    });
    QCOMPARE(unfiltered.exec(), 0);
    QCOMPARE(window.received, QList<int>{QEvent::Close});
}

UTILSDLL_TEST_MAIN(TestExcludeUserInpuEventLoop)
#include "tst_excludeuserinpueventloop.moc"
