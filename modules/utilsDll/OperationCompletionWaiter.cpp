#include "OperationCompletionWaiter.h"

#include "Log.h"

namespace VEXA_NAMESPACE {

COperationCompletionWaiter::COperationCompletionWaiter(QObject* parent)
    : QObject(parent)
{
}

COperationCompletionWaiter::COperationCompletionWaiter(QObject* sender, const char* signal, QObject* parent)
    : QObject(parent)
{
    // Reported and passed over: connect then warns by itself and nothing completes.
    ASSERT(sender);
    ASSERT(signal);
    connect(sender, signal, this, SLOT(onOperationCompleted()), Qt::AutoConnection);
}

void COperationCompletionWaiter::startWaiting()
{
    if (m_completed)
        return;
    m_loop.exec(QEventLoop::AllEvents);
}

bool COperationCompletionWaiter::isOperationCompleted() const
{
    return m_completed;
}

void COperationCompletionWaiter::onOperationCompleted()
{
    m_completed = true;
    if (m_loop.isRunning())
        m_loop.exit(0);
}

COperationCompletionWaiterWithResult::COperationCompletionWaiterWithResult(const QObject* sender, const char* signal, QObject* parent)
    : COperationCompletionWaiter(parent)
{
    ASSERT(sender);
    ASSERT(signal);
    connect(sender, signal, this, SLOT(onOperationCompleted(bool)), Qt::AutoConnection);
}

bool COperationCompletionWaiterWithResult::isOperationSuccess() const
{
    // A premature question is reported and answers false, since the success field
    // stays false until the signal has come.
    ASSERT(isOperationCompleted());
    return m_success;
}

void COperationCompletionWaiterWithResult::onOperationCompleted(bool success)
{
    m_success = success;
    COperationCompletionWaiter::onOperationCompleted();
}

} // namespace VEXA_NAMESPACE
