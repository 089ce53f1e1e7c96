#pragma once

#include "UtilsDllGlobal.h"

#include <QAtomicInt>

/// \file
/// \brief Waits without timeout until a condition holds.

/// \brief The condition of a wait loop.
///
/// isSatisfied() is asked again and again on the waiting thread, so it must have no
/// side effect that the wait depends on.
struct UTILSDLL_EXPORT ICustomWaitPredicate
{
    /// Whether the wait may end.
    virtual bool isSatisfied() const = 0;
    /// Virtual, so that a predicate may be deleted through this interface.
    virtual ~ICustomWaitPredicate();
};

/// \brief True when a counter equals an expected value exactly; never "at least".
class UTILSDLL_EXPORT CAtomicIntWaitPredicate : public ICustomWaitPredicate
{
public:
    /// Watches \p value, which must outlive the predicate, for \p expected.
    CAtomicIntWaitPredicate(const QAtomicInt& value, int expected);
    /// Whether the counter equals the expected value now.
    bool isSatisfied() const override;

private:
    const QAtomicInt* m_value;
    int m_expected;
};

/// \brief Waits without timeout until \p predicate holds, spinning.
///
/// Spins with QThread::yieldCurrentThread(); the calling thread handles no events
/// meanwhile.
UTILSDLL_EXPORT void waitBlocking(const ICustomWaitPredicate& predicate);
/// \brief Waits without timeout until \p predicate holds, handling the calling
/// thread's events meanwhile.
///
/// Use it on a thread with a user interface. With \p excludeUserInput, user input is
/// held back by the ExcludeUserInputEvents flag and by a CExcludeUserInpuEventsFilter
/// on the application object (on the application object's thread only).
UTILSDLL_EXPORT void waitNonBlocking(const ICustomWaitPredicate& predicate, bool excludeUserInput);
/// \brief waitBlocking() until \p value equals \p expected.
///
/// The counter is read with relaxed loads: data the waiter reads afterwards must be
/// published by the writer's own atomic operations.
UTILSDLL_EXPORT void waitBlockingAtomicIntValue(const QAtomicInt& value, int expected);
/// waitNonBlocking() until \p value equals \p expected; the counter is read as in
/// waitBlockingAtomicIntValue().
UTILSDLL_EXPORT void waitNonBlockingAtomicIntValue(const QAtomicInt& value, int expected, bool excludeUserInput);
