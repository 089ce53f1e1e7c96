#pragma once

#include "UtilsDllGlobal.h"

#include <QEventLoop>
#include <QObject>

/// \file
/// \brief Synchronous waits for the signal that ends an operation.

namespace VEXA_NAMESPACE {

/// \brief Turns the signal that ends an operation into a synchronous wait.
///
/// Construct the waiter before starting the operation: a signal that comes before
/// startWaiting() is remembered, and startWaiting() then returns at once. The wait runs
/// a nested loop with all events, user input included, and has no timeout; a signal
/// name that does not connect leaves only Qt's warning and a wait that never ends. One
/// operation per waiter.
class UTILSDLL_EXPORT COperationCompletionWaiter : public QObject
{
    Q_OBJECT
public:
    /// Connects \p signal of \p sender, written as SIGNAL() gives it, e.g.
    /// SIGNAL(done()).
    COperationCompletionWaiter(QObject* sender, const char* signal, QObject* parent = nullptr);

    /// Returns once the signal has come, at once if it already has. Must be called on
    /// the waiter's thread.
    void startWaiting();

protected:
    /// For subclasses that connect by themselves, to onOperationCompleted().
    explicit COperationCompletionWaiter(QObject* parent = nullptr);

    /// Whether the signal has come.
    bool isOperationCompleted() const;

protected Q_SLOTS:
    /// Marks the operation as completed and ends the wait.
    void onOperationCompleted();

private:
    bool m_completed = false;
    QEventLoop m_loop;
};

/// \brief A completion waiter that keeps the bool that the signal carries.
///
/// A later signal overwrites the kept value.
class UTILSDLL_EXPORT COperationCompletionWaiterWithResult : public COperationCompletionWaiter
{
    Q_OBJECT
public:
    /// Connects \p signal of \p sender, written as SIGNAL() gives it, with one bool
    /// argument, e.g. SIGNAL(done(bool)).
    COperationCompletionWaiterWithResult(const QObject* sender, const char* signal, QObject* parent = nullptr);

    /// The bool of the last signal. Asked before completion, it reports the misuse
    /// with an ASSERT line and answers false.
    bool isOperationSuccess() const;

private Q_SLOTS:
    void onOperationCompleted(bool success);

private:
    bool m_success = false;
};

} // namespace VEXA_NAMESPACE
