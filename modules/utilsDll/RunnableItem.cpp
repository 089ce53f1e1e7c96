#include "RunnableItem.h"

#include <QCoreApplication>
#include <QReadLocker>
#include <QThread>
#include <QWriteLocker>

#if defined(__SANITIZE_THREAD__)
#define UTILSDLL_TSAN_ANNOTATIONS 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define UTILSDLL_TSAN_ANNOTATIONS 1
#endif
#endif

#ifdef UTILSDLL_TSAN_ANNOTATIONS
extern "C" void __tsan_acquire(void* address);
extern "C" void __tsan_release(void* address);
#endif

namespace {

// Qt's locks are built without the thread sanitizer, which then cannot see the order
// that the stop flag's lock gives. These tell it exactly that, and do nothing else.
void lockAcquired(const void* lock)
{
#ifdef UTILSDLL_TSAN_ANNOTATIONS
    __tsan_acquire(const_cast<void*>(lock));
#else
    Q_UNUSED(lock)
#endif
}

void lockReleasing(const void* lock)
{
#ifdef UTILSDLL_TSAN_ANNOTATIONS
    __tsan_release(const_cast<void*>(lock));
#else
    Q_UNUSED(lock)
#endif
}

} // namespace

template <class T>
CRunnableItem<T>::StartFinishPredicate::StartFinishPredicate(bool start, const QAtomicInt* entries)
    : start(start)
    , entries(entries)
{
}

template <class T>
bool CRunnableItem<T>::StartFinishPredicate::isSatisfied() const
{
    // Acquire, so that whatever the section did is visible once the finish wait
    // returns: the destructor frees the item right after it.
    const int open = entries->loadAcquire();
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
    lockAcquired(&m_stopFlagLock);
    const bool stop = m_stopFlag;
    lockReleasing(&m_stopFlagLock);
    return stop;
}

template <class T>
void CRunnableItem<T>::setStopFlag(bool stop)
{
    QWriteLocker lock(&m_stopFlagLock);
    lockAcquired(&m_stopFlagLock);
    m_stopFlag = stop;
    lockReleasing(&m_stopFlagLock);
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
