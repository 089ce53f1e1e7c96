#include "RunnableItem.h"

#include <QCoreApplication>
#include <QReadLocker>
#include <QThread>
#include <QWriteLocker>

template <class T>
CRunnableItem<T>::StartFinishPredicate::StartFinishPredicate(bool start, const QAtomicInt* entries)
    : start(start)
    , entries(entries)
{
}

template <class T>
bool CRunnableItem<T>::StartFinishPredicate::isSatisfied() const
{
    const int open = entries->loadRelaxed();
    return start ? open > 0 : open == 0;
}

template <class T>
CRunnableItem<T>::CRunnableItem()
    : m_entriesCounter(0)
    , m_stopFlag(false)
    , m_stopFlagLock(QReadWriteLock::Recursive)
{
}

template <class T>
CRunnableItem<T>::~CRunnableItem()
{
    waitConditionBlocking(false);
}

template <class T>
bool CRunnableItem<T>::stopRequired() const
{
    if (stopFlag())
        return true;
    // The asking thread, which need not be the one that executes the item.
    if (QThread::currentThread()->isInterruptionRequested())
        return true;
    return QCoreApplication::closingDown();
}

template <class T>
bool CRunnableItem<T>::isStarted() const
{
    return m_entriesCounter.loadRelaxed() > 0;
}

template <class T>
bool CRunnableItem<T>::isFinished() const
{
    return m_entriesCounter.loadRelaxed() == 0;
}

template <class T>
void CRunnableItem<T>::waitStartBlocking() const
{
    waitConditionBlocking(true);
}

template <class T>
void CRunnableItem<T>::waitStartNonBlocking(bool excludeUserInput) const
{
    waitConditionNonBlocking(true, excludeUserInput);
}

template <class T>
void CRunnableItem<T>::waitFinishBlocking() const
{
    waitConditionBlocking(false);
}

template <class T>
void CRunnableItem<T>::waitFinishNonBlocking(bool excludeUserInput) const
{
    waitConditionNonBlocking(false, excludeUserInput);
}

template <class T>
void CRunnableItem<T>::waitExecuteBlocking() const
{
    waitConditionBlocking(true);
    waitConditionBlocking(false);
}

template <class T>
void CRunnableItem<T>::waitExecuteNonBlocking(bool excludeUserInput) const
{
    waitConditionNonBlocking(true, excludeUserInput);
    waitConditionNonBlocking(false, excludeUserInput);
}

template <class T>
int CRunnableItem<T>::entriesCounter() const
{
    return m_entriesCounter.loadRelaxed();
}

template <class T>
bool CRunnableItem<T>::stopFlag() const
{
    QReadLocker lock(&m_stopFlagLock);
    return m_stopFlag;
}

template <class T>
void CRunnableItem<T>::setStopFlag(bool stop)
{
    QWriteLocker lock(&m_stopFlagLock);
    m_stopFlag = stop;
}

template <class T>
void CRunnableItem<T>::enterExcecutableSection()
{
    m_entriesCounter.fetchAndAddOrdered(1);
}

template <class T>
void CRunnableItem<T>::leaveExcecutableSection()
{
    m_entriesCounter.fetchAndAddOrdered(-1);
}

template <class T>
void CRunnableItem<T>::waitConditionBlocking(bool start) const
{
    waitBlocking(StartFinishPredicate(start, &m_entriesCounter));
}

template <class T>
void CRunnableItem<T>::waitConditionNonBlocking(bool start, bool excludeUserInput) const
{
    waitNonBlocking(StartFinishPredicate(start, &m_entriesCounter), excludeUserInput);
}

template class CRunnableItem<QRunnable>;

CQRunnableItem::CQRunnableItem(bool bEmitSignals, QObject* parent)
    : QObject(parent)
    , m_emitSignals(bEmitSignals)
{
}

bool CQRunnableItem::emitSignals() const
{
    return m_emitSignals;
}

void CQRunnableItem::run()
{
    if (stopRequired())
        return;
    // Read once up front: after the section closes, the owner may already be
    // destroying a silent item, so its tail must not touch the object.
    const bool emitting = m_emitSignals;
    // Before the counter rises: a direct slot of started still sees isStarted false.
    if (emitting)
        emit started();
    bool ok = false;
    {
        // Closes the section on every way out, an exception from execute included.
        struct SectionGuard
        {
            explicit SectionGuard(CQRunnableItem& item) : item(item) { item.enterExcecutableSection(); }
            ~SectionGuard() { item.leaveExcecutableSection(); }
            CQRunnableItem& item;
        } guard(*this);
        ok = execute();
    }
    if (emitting)
        emit finished(ok, stopRequired());
}

void CQRunnableItem::stop()
{
    if (stopRequired())
        return;
    doBeforeStopped();
    setStopFlag(true);
    // Only an override can still say no here; it has the last word.
    if (!stopRequired())
        return;
    if (m_emitSignals)
        emit wantsToStop();
    doStopped();
}

void CQRunnableItem::doBeforeStopped()
{
}

void CQRunnableItem::doStopped()
{
}
