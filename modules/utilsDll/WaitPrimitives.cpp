#include "WaitPrimitives.h"

#include "ExcludeUserInpuEventLoop.h"

#include <QCoreApplication>
#include <QThread>

#include <memory>

ICustomWaitPredicate::~ICustomWaitPredicate() = default;

CAtomicIntWaitPredicate::CAtomicIntWaitPredicate(const QAtomicInt& value, int expected)
    : m_value(&value)
    , m_expected(expected)
{
}

bool CAtomicIntWaitPredicate::isSatisfied() const
{
    return m_value->loadRelaxed() == m_expected;
}

void waitBlocking(const ICustomWaitPredicate& predicate)
{
    while (!predicate.isSatisfied())
        QThread::yieldCurrentThread();
}

void waitNonBlocking(const ICustomWaitPredicate& predicate, bool excludeUserInput)
{
    std::unique_ptr<CExcludeUserInpuEventsFilter> filter;
    if (excludeUserInput)
        filter.reset(new CExcludeUserInpuEventsFilter(QCoreApplication::instance()));
    // 0 is AllEvents, 1 ExcludeUserInputEvents. Never WaitForMoreEvents: the condition
    // usually changes on another thread that posts nothing, so an empty queue spins.
    const QEventLoop::ProcessEventsFlags flags(static_cast<int>(excludeUserInput));
    while (!predicate.isSatisfied())
        QCoreApplication::processEvents(flags);
}

void waitBlockingAtomicIntValue(const QAtomicInt& value, int expected)
{
    waitBlocking(CAtomicIntWaitPredicate(value, expected));
}

void waitNonBlockingAtomicIntValue(const QAtomicInt& value, int expected, bool excludeUserInput)
{
    waitNonBlocking(CAtomicIntWaitPredicate(value, expected), excludeUserInput);
}
