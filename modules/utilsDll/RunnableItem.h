#pragma once

#include "UtilsDllGlobal.h"
#include "WaitPrimitives.h"

#include <QAtomicInt>
#include <QObject>
#include <QReadWriteLock>
#include <QRunnable>

/// \file
/// \brief Stoppable work items for thread pools.

/// \brief The mechanics of a stoppable work item over a runnable base \p T.
///
/// A counter of open executable sections, a stop flag behind a recursive lock, and
/// waits for start and finish. Its state is the pair of counter and flag only, so
/// "never ran" and "ran and finished" look alike. Instantiated and exported for
/// QRunnable only. The queries and waits may be called from any thread.
///
/// \tparam T the runnable base, QRunnable.
template <class T>
class UTILSDLL_EXPORT CRunnableItem : public T
{
public:
    /// No section open, the stop flag clear.
    CRunnableItem();
    /// Waits until no section is open; it does not stop the item. A subclass whose
    /// execute touches its own members must stop and wait in its own destructor.
    ~CRunnableItem() override;

    /// Whether the work should stop: the stop flag, then an interruption request on the
    /// asking thread, then a closing application.
    virtual bool stopRequired() const;

    /// Whether a section is open now.
    bool isStarted() const;
    /// Whether no section is open now; also true for an item that never ran.
    bool isFinished() const;

    /// \brief Waits, spinning, until a section is open.
    ///
    /// The start waits look only at the present counter: a section that opened and
    /// closed between two looks is missed, and the wait never ends.
    void waitStartBlocking() const;
    /// Waits, handling events, until a section is open; see waitStartBlocking() and
    /// waitNonBlocking() for \p excludeUserInput.
    void waitStartNonBlocking(bool excludeUserInput) const;
    /// Waits, spinning, until no section is open.
    void waitFinishBlocking() const;
    /// Waits, handling events, until no section is open; see waitNonBlocking() for
    /// \p excludeUserInput.
    void waitFinishNonBlocking(bool excludeUserInput) const;
    /// waitStartBlocking(), then waitFinishBlocking().
    void waitExecuteBlocking() const;
    /// waitStartNonBlocking(), then waitFinishNonBlocking().
    void waitExecuteNonBlocking(bool excludeUserInput) const;

protected:
    /// The number of open sections.
    int entriesCounter() const;
    /// The stop flag alone, without the other reasons of stopRequired().
    bool stopFlag() const;
    /// Sets the stop flag; clearing it readies the item for another round.
    void setStopFlag(bool stop);
    /// Opens an executable section. Named so on purpose: subclasses in the other
    /// modules call them by these names.
    void enterExcecutableSection();
    /// Closes the section that enterExcecutableSection() opened.
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

/// \brief A runnable item with signals, for a QThreadPool.
///
/// Subclasses implement execute() and poll stopRequired() in it; stop() only requests,
/// it waits for nothing. An item stopped before run() never runs and never emits
/// finished(). With the switch off the item emits nothing, and only the state queries
/// and the waits tell its course. QRunnable's auto-deletion applies as usual; with it
/// turned off the creator owns the item. started() and finished() are emitted on the
/// pool thread.
class UTILSDLL_EXPORT CQRunnableItem : public QObject, public CRunnableItem<QRunnable>
{
    Q_OBJECT
public Q_SLOTS:
    /// Emits started(), opens a section, calls execute(), closes the section (also on an
    /// exception) and emits finished(); does nothing when a stop is already required.
    void run() override;
    /// Requests a stop, unless one is already required: calls doBeforeStopped(), sets
    /// the stop flag, then emits wantsToStop() and calls doStopped(). Waits for nothing.
    void stop();

Q_SIGNALS:
    /// The work has begun, on the pool thread.
    void started();
    /// stop() was asked for, on the thread that called it.
    void wantsToStop();
    /// The work has ended: \p bOk is what execute() answered, \p bStopped whether a
    /// stop was required, asked after execute() has returned and the section has closed.
    void finished(bool bOk = true, bool bStopped = false);

protected:
    /// With \p bEmitSignals false the item emits none of its signals.
    explicit CQRunnableItem(bool bEmitSignals = true, QObject* parent = nullptr);

    /// Whether the item emits its signals.
    bool emitSignals() const;

    /// The work; its result is the \p bOk of finished().
    virtual bool execute() = 0;
    /// Runs on the thread that calls stop(), before wantsToStop(), and only for the
    /// first effective stop. Does nothing by default.
    virtual void doBeforeStopped();
    /// Runs on the thread that calls stop(), after wantsToStop(), and only for the
    /// first effective stop. Does nothing by default.
    virtual void doStopped();

private:
    const bool m_emitSignals;
};
