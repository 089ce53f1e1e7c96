#pragma once

#include "UtilsDllGlobal.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QObject>
#include <QPointer>

// Swallows a fixed set of input-like events (clicks, keys, focus, Enter, Close, drag
// and drop, shortcuts, graphics-scene and non-client clicks) sent to one object. The
// pointer stays tracked on purpose: moves, Leave, wheel, hover and tablet events pass.
// It installs itself only on an object of the current thread, and becomes its child.
class UTILSDLL_EXPORT CExcludeUserInpuEventsFilter : public QObject
{
    Q_OBJECT
public:
    explicit CExcludeUserInpuEventsFilter(QObject* object);
    ~CExcludeUserInpuEventsFilter() override;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

// A nested event loop that keeps the user out while the program waits: it runs with
// QEventLoop::ExcludeUserInputEvents and a CExcludeUserInpuEventsFilter on the
// filtered object. exec answers 0 after quit or the timeout, 1 after failedQuit, the
// code given to exit, and -1 when the loop already runs. The filtered object must
// outlive exec, since the filter is its child.
class UTILSDLL_EXPORT CExcludeUserInpuEventLoop : public QObject
{
    Q_OBJECT
public:
    explicit CExcludeUserInpuEventLoop(QObject* filteredObject = QCoreApplication::instance(),
                                       QObject* parent = nullptr);

    bool isRunning() const;

public Q_SLOTS:
    // A non-zero timeout arms a delayed quit, which nothing discards: it may end a
    // later exec(0) of the same loop object.
    int exec(int nQuitTimeout = 0);
    void quit();
    void failedQuit();
    void exit(int returnCode = 0);

private:
    QPointer<QObject> m_filteredObject;
    QEventLoop m_loop;
};
