#include "DelayedCall.h"

#include "Log.h"
#include "Singleton.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QThreadStorage>
#include <QTimerEvent>

#include <algorithm>
#include <map>

template class Singleton<CDelayedCall>;

namespace {

const int kMaxDelayedCallArguments = 9;

void dispatchDelayedCall(QObject* target, const char* method, const QList<QVariant>& arguments);

} // namespace

// One per thread that ever armed a call; owned by the thread storage of CDelayedCall
// and destroyed when its thread ends, which drops whatever is still pending.
class CDelayedInvoker : public QObject
{
public:
    void arm(int delayMs, QObject* target, const char* method, const QList<QVariant>& arguments,
             bool singleShot);
    void discard(QObject* target, const char* method);
    bool isActive(QObject* target, const char* method) const;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Record
    {
        QPointer<QObject> target; // empty once the target has died
        const char* method;       // the caller's text, not copied
        bool singleShot;
        QList<QVariant> arguments;
    };

    bool recordMatches(int timerId, QObject* target, const char* method) const; // null method: any
    void eraseIndexEntry(QObject* target, int timerId);

    // The authority on what is pending: one running timer per record, keyed by its id.
    std::map<int, Record> m_pendingCalls;
    // Finds a target's calls without walking the whole map. Entries of dead targets
    // may linger here; every walk checks them against the map.
    std::multimap<QObject*, int> m_timersByTarget;
};

CDelayedCall::CDelayedCall()
    : m_invokers(new QThreadStorage<CDelayedInvoker*>)
{
}

CDelayedCall::~CDelayedCall()
{
    delete m_invokers;
}

CDelayedInvoker* CDelayedCall::threadInvoker(bool create)
{
    QThreadStorage<CDelayedInvoker*>& invokers = *instance().m_invokers;
    if (invokers.hasLocalData())
        return invokers.localData();
    if (!create)
        return nullptr;
    invokers.setLocalData(new CDelayedInvoker);
    return invokers.localData();
}

void CDelayedCall::invokeWithList(int delayMs, QObject* target, const char* method,
                                  const QList<QVariant>& arguments, bool singleShot)
{
    if (!target || !method)
        return;
    threadInvoker(true)->arm(delayMs, target, method, arguments, singleShot);
}

void CDelayedCall::invoke(int delayMs, QObject* target, const char* method, bool singleShot)
{
    invokeWithList(delayMs, target, method, QList<QVariant>(), singleShot);
}

void CDelayedCall::invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                                  bool singleShot)
{
    invokeWithList(delayMs, target, method, {arg1}, singleShot);
}

void CDelayedCall::invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                                  const QVariant& arg2, bool singleShot)
{
    invokeWithList(delayMs, target, method, {arg1, arg2}, singleShot);
}

void CDelayedCall::invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                                  const QVariant& arg2, const QVariant& arg3, bool singleShot)
{
    invokeWithList(delayMs, target, method, {arg1, arg2, arg3}, singleShot);
}

void CDelayedCall::invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                                  const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                                  bool singleShot)
{
    invokeWithList(delayMs, target, method, {arg1, arg2, arg3, arg4}, singleShot);
}

void CDelayedCall::invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                                  const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                                  const QVariant& arg5, bool singleShot)
{
    invokeWithList(delayMs, target, method, {arg1, arg2, arg3, arg4, arg5}, singleShot);
}

void CDelayedCall::invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                                  const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                                  const QVariant& arg5, const QVariant& arg6, bool singleShot)
{
    invokeWithList(delayMs, target, method, {arg1, arg2, arg3, arg4, arg5, arg6}, singleShot);
}

void CDelayedCall::invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                                  const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                                  const QVariant& arg5, const QVariant& arg6, const QVariant& arg7,
                                  bool singleShot)
{
    invokeWithList(delayMs, target, method, {arg1, arg2, arg3, arg4, arg5, arg6, arg7}, singleShot);
}

void CDelayedCall::invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                                  const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                                  const QVariant& arg5, const QVariant& arg6, const QVariant& arg7,
                                  const QVariant& arg8, bool singleShot)
{
    invokeWithList(delayMs, target, method, {arg1, arg2, arg3, arg4, arg5, arg6, arg7, arg8}, singleShot);
}

void CDelayedCall::invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                                  const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                                  const QVariant& arg5, const QVariant& arg6, const QVariant& arg7,
                                  const QVariant& arg8, const QVariant& arg9, bool singleShot)
{
    invokeWithList(delayMs, target, method, {arg1, arg2, arg3, arg4, arg5, arg6, arg7, arg8, arg9}, singleShot);
}

void CDelayedCall::discard(QObject* target, const char* method)
{
    if (!target)
        return;
    if (CDelayedInvoker* invoker = threadInvoker(false))
        invoker->discard(target, method);
}

bool CDelayedCall::isActive(QObject* target, const char* method)
{
    if (!target || !method)
        return false;
    const CDelayedInvoker* invoker = threadInvoker(false);
    return invoker && invoker->isActive(target, method);
}

void CDelayedInvoker::arm(int delayMs, QObject* target, const char* method, const QList<QVariant>& arguments,
                          bool singleShot)
{
    discard(target, method);
    // Coarse on purpose: the delays are approximate and the system may batch them.
    const int timerId = startTimer(delayMs, Qt::CoarseTimer);
    // A negative delay or a thread without event dispatcher: the earlier request is gone too.
    if (timerId <= 0)
        return;
    m_pendingCalls[timerId] = Record{QPointer<QObject>(target), method, singleShot, arguments};
    m_timersByTarget.emplace(target, timerId);
}

void CDelayedInvoker::discard(QObject* target, const char* method)
{
    auto range = m_timersByTarget.equal_range(target);
    for (auto entry = range.first; entry != range.second;) {
        if (!recordMatches(entry->second, target, method)) {
            ++entry;
            continue;
        }
        killTimer(entry->second);
        m_pendingCalls.erase(entry->second);
        entry = m_timersByTarget.erase(entry);
        if (method)
            return;
    }
}

void CDelayedInvoker::timerEvent(QTimerEvent* event)
{
    const auto record = event ? m_pendingCalls.find(event->timerId()) : m_pendingCalls.end();
    if (record != m_pendingCalls.end()) {
        // Copied out: from here on the called method may re-arm, discard or replace
        // this very key without pulling the call's data from under it.
        QObject* const target = record->second.target.data();
        const char* const method = record->second.method;
        const bool singleShot = record->second.singleShot;
        const QList<QVariant> arguments = record->second.arguments;
        if (singleShot) {
            // Before the call, so that the method sees itself inactive and may re-arm.
            // A dead target is looked up under null, so its index entry stays behind.
            m_pendingCalls.erase(record);
            eraseIndexEntry(target, event->timerId());
        }
        if (target) {
            ASSERT(method);
            dispatchDelayedCall(target, method, arguments);
        }
        if (singleShot) {
            event->accept();
            killTimer(event->timerId());
        }
    }
    QObject::timerEvent(event);
}

bool CDelayedInvoker::isActive(QObject* target, const char* method) const
{
    const auto range = m_timersByTarget.equal_range(target);
    return std::any_of(range.first, range.second,
                       [&](const auto& entry) { return recordMatches(entry.second, target, method); });
}

bool CDelayedInvoker::recordMatches(int timerId, QObject* target, const char* method) const
{
    const auto record = m_pendingCalls.find(timerId);
    return record != m_pendingCalls.end() && record->second.target.data() == target
        && (!method || qstrcmp(record->second.method, method) == 0);
}

void CDelayedInvoker::eraseIndexEntry(QObject* target, int timerId)
{
    const auto range = m_timersByTarget.equal_range(target);
    const auto entry = std::find_if(range.first, range.second, [timerId](const auto& e) { return e.second == timerId; });
    if (entry != range.second)
        m_timersByTarget.erase(entry);
}

namespace {

// Dispatch of a fired call. The parameter types of the called method must match the
// QVariant type names exactly, since invokeMethod looks the method up by them. A value
// holding nothing has no type name and so ends the argument list at its place.
void dispatchDelayedCall(QObject* target, const char* method, const QList<QVariant>& arguments)
{
    if (!target || !method)
        return;
    ASSERT(arguments.size() <= kMaxDelayedCallArguments);
    if (arguments.size() > kMaxDelayedCallArguments)
        return;
    QGenericArgument generic[kMaxDelayedCallArguments + 1];
    for (int i = 0; i < arguments.size(); ++i)
        generic[i] = QGenericArgument(arguments.at(i).typeName(), arguments.at(i).constData());
    // Without a connection type: Qt::AutoConnection, queued to a target of another thread.
    QMetaObject::invokeMethod(target, method, generic[0], generic[1], generic[2], generic[3], generic[4],
                              generic[5], generic[6], generic[7], generic[8], generic[9]);
}

} // namespace
