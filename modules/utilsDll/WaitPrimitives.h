#pragma once

#include "UtilsDllGlobal.h"

#include <QAtomicInt>

// The condition of a wait loop. isSatisfied is asked again and again on the waiting
// thread, so it must have no side effect that the wait depends on.
struct UTILSDLL_EXPORT ICustomWaitPredicate
{
    virtual bool isSatisfied() const = 0;
    virtual ~ICustomWaitPredicate();
};

// True when the counter equals the expected value exactly; never "at least".
class UTILSDLL_EXPORT CAtomicIntWaitPredicate : public ICustomWaitPredicate
{
public:
    CAtomicIntWaitPredicate(const QAtomicInt& value, int expected);
    bool isSatisfied() const override;

private:
    const QAtomicInt* m_value;
    int m_expected;
};

// Waits without timeout until the predicate holds. The blocking pair spins with
// QThread::yieldCurrentThread; the non-blocking pair pumps the calling thread's
// events instead, so use it on a thread with a user interface. With
// excludeUserInput, user input is held back by the ExcludeUserInputEvents flag and by
// a CExcludeUserInpuEventsFilter on the application object (on its thread only).
// The counter is read with relaxed loads: data the waiter reads afterwards must be
// published by the writer's own atomic operations.
UTILSDLL_EXPORT void waitBlocking(const ICustomWaitPredicate& predicate);
UTILSDLL_EXPORT void waitNonBlocking(const ICustomWaitPredicate& predicate, bool excludeUserInput);
UTILSDLL_EXPORT void waitBlockingAtomicIntValue(const QAtomicInt& value, int expected);
UTILSDLL_EXPORT void waitNonBlockingAtomicIntValue(const QAtomicInt& value, int expected, bool excludeUserInput);
