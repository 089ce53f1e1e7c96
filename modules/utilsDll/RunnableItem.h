#pragma once

#include "UtilsDllGlobal.h"
#include "WaitPrimitives.h"

#include <QAtomicInt>
#include <QObject>
#include <QReadWriteLock>
#include <QRunnable>

// The mechanics of a stoppable work item over a runnable base: a counter of open
// executable sections, a stop flag behind a recursive lock, and waits for start and
// finish. Its state is the pair of counter and flag only, so "never ran" and "ran and
// finished" look alike. Instantiated and exported for QRunnable only.
template <class T>
class UTILSDLL_EXPORT CRunnableItem : public T
{
public:
    CRunnableItem();
    // Waits until no section is open; it does not stop the item. A subclass whose
    // execute touches its own members must stop and wait in its own destructor.
    ~CRunnableItem() override;

    // The stop flag, then an interruption request on the asking thread, then a
    // closing application.
    virtual bool stopRequired() const;

    bool isStarted() const;
    bool isFinished() const;

    // The start waits look only at the present counter: a section that opened and
    // closed between two looks is missed, and the wait never ends.
    void waitStartBlocking() const;
    void waitStartNonBlocking(bool excludeUserInput) const;
    void waitFinishBlocking() const;
    void waitFinishNonBlocking(bool excludeUserInput) const;
    void waitExecuteBlocking() const;
    void waitExecuteNonBlocking(bool excludeUserInput) const;

protected:
    int entriesCounter() const;
    bool stopFlag() const;
    // Clearing the flag readies the item for another round.
    void setStopFlag(bool stop);
    // Named so on purpose: subclasses in the other modules call them by these names.
    void enterExcecutableSection();
    void leaveExcecutableSection();

private:
    struct StartFinishPredicate : ICustomWaitPredicate
    {
        StartFinishPredicate(bool start, const QAtomicInt* entries);
        bool isSatisfied() const override;

        bool start;
        const QAtomicInt* entries;
    };

    void waitConditionBlocking(bool start) const;
    void waitConditionNonBlocking(bool start, bool excludeUserInput) const;

    QAtomicInt m_entriesCounter;
    bool m_stopFlag;
    mutable QReadWriteLock m_stopFlagLock;
};

extern template class CRunnableItem<QRunnable>;

// A runnable item with signals, for a QThreadPool. Subclasses implement execute and
// poll stopRequired in it; stop only requests, it waits for nothing. An item stopped
// before run never runs and never emits finished. With the switch off the item emits
// nothing, and only the state queries and the waits tell its course.
class UTILSDLL_EXPORT CQRunnableItem : public QObject, public CRunnableItem<QRunnable>
{
    Q_OBJECT
public Q_SLOTS:
    void run() override;
    void stop();

Q_SIGNALS:
    void started();
    void wantsToStop();
    // bStopped is asked after execute has returned and the section has closed.
    void finished(bool bOk = true, bool bStopped = false);

protected:
    explicit CQRunnableItem(bool bEmitSignals = true, QObject* parent = nullptr);

    bool emitSignals() const;

    // The work; its result is the bOk of finished.
    virtual bool execute() = 0;
    // Both run on the thread that calls stop, and only for the first effective stop.
    virtual void doBeforeStopped();
    virtual void doStopped();

private:
    const bool m_emitSignals;
};
