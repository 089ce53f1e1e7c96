#pragma once

#include "UtilsDllGlobal.h"

#include <QEventLoop>
#include <QObject>

namespace VEXA_NAMESPACE {

// Turns the signal that ends an operation into a synchronous wait. Construct the
// waiter before starting the operation: a signal that comes before startWaiting is
// remembered, and startWaiting then returns at once. The wait runs a nested loop with
// all events, user input included, and has no timeout; a signal name that does not
// connect leaves only Qt's warning and a wait that never ends. One operation per waiter.
class UTILSDLL_EXPORT COperationCompletionWaiter : public QObject
{
    Q_OBJECT
public:
    // signal as SIGNAL() gives it, e.g. SIGNAL(done()).
    COperationCompletionWaiter(QObject* sender, const char* signal, QObject* parent = nullptr);

    // Must be called on the waiter's thread.
    void startWaiting();

protected:
    // For subclasses that connect by themselves.
    explicit COperationCompletionWaiter(QObject* parent = nullptr);

    bool isOperationCompleted() const;

protected Q_SLOTS:
    void onOperationCompleted();

private:
    bool m_completed = false;
    QEventLoop m_loop;
};

// Keeps the bool that the completion signal carries; a later signal overwrites it.
class UTILSDLL_EXPORT COperationCompletionWaiterWithResult : public COperationCompletionWaiter
{
    Q_OBJECT
public:
    // signal as SIGNAL() gives it, with one bool argument, e.g. SIGNAL(done(bool)).
    COperationCompletionWaiterWithResult(const QObject* sender, const char* signal, QObject* parent = nullptr);

    // Asked before completion, it reports the misuse and answers false.
    bool isOperationSuccess() const;

private Q_SLOTS:
    void onOperationCompleted(bool success);

private:
    bool m_success = false;
};

} // namespace VEXA_NAMESPACE
