#pragma once

#include "Singleton.h"
#include "UtilsDllGlobal.h"

#include <QVariant>

class QObject;
template <class T>
class QThreadStorage;
class CDelayedInvoker;
class CDelayedCall;

// Declared before CDelayedCall derives from it, so that the export applies.
extern template class UTILSDLL_EXPORT Singleton<CDelayedCall>;

/// \file
/// \brief Delayed calls by method name, the last request winning.

/// \brief The product's debouncer: "call this method of this object in so many
/// milliseconds, and if I ask again first, start over".
///
/// A call is keyed by target pointer and method text on the calling thread; the last
/// request wins. The method is named as for QMetaObject::invokeMethod ("quit", no
/// signature) and the text is not copied, so pass a string literal. Calls fire on the
/// thread that armed them, which must run an event loop; each thread has its own
/// pending calls, dropped when the thread ends. A target deleted before its call
/// fires is not called.
///
/// Argument types must match the called method's parameter types exactly, as the
/// meta-object lookup goes by the QVariant type names. Pass QVariants explicitly to
/// invokeWithArgs(): a plain int or pointer in the last position would bind to
/// \p singleShot rather than to the next argument.
class UTILSDLL_EXPORT CDelayedCall : public Singleton<CDelayedCall>
{
public:
    /// \brief Calls \p method of \p target in \p delayMs milliseconds, replacing
    /// a pending call of the same pair.
    ///
    /// With \p singleShot false the call repeats every \p delayMs until discard().
    static void invoke(int delayMs, QObject* target, const char* method, bool singleShot = true);

    /// Like invoke(), passing \p arg1 (and the further arguments of the overloads) to the method.
    static void invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                               bool singleShot = true);
    /// \overload
    static void invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                               const QVariant& arg2, bool singleShot = true);
    /// \overload
    static void invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                               const QVariant& arg2, const QVariant& arg3, bool singleShot = true);
    /// \overload
    static void invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                               const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                               bool singleShot = true);
    /// \overload
    static void invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                               const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                               const QVariant& arg5, bool singleShot = true);
    /// \overload
    static void invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                               const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                               const QVariant& arg5, const QVariant& arg6, bool singleShot = true);
    /// \overload
    static void invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                               const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                               const QVariant& arg5, const QVariant& arg6, const QVariant& arg7,
                               bool singleShot = true);
    /// \overload
    static void invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                               const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                               const QVariant& arg5, const QVariant& arg6, const QVariant& arg7,
                               const QVariant& arg8, bool singleShot = true);
    /// \overload
    static void invokeWithArgs(int delayMs, QObject* target, const char* method, const QVariant& arg1,
                               const QVariant& arg2, const QVariant& arg3, const QVariant& arg4,
                               const QVariant& arg5, const QVariant& arg6, const QVariant& arg7,
                               const QVariant& arg8, const QVariant& arg9, bool singleShot = true);

    /// Cancels the pending call of \p target and \p method on this thread; a null
    /// \p method discards every pending call of \p target on this thread.
    static void discard(QObject* target, const char* method);
    /// Whether a call of \p target and \p method is pending on this thread.
    static bool isActive(QObject* target, const char* method);

private:
    friend class Singleton<CDelayedCall>;

    CDelayedCall();
    ~CDelayedCall();

    static void invokeWithList(int delayMs, QObject* target, const char* method, const QList<QVariant>& arguments,
                               bool singleShot);
    // The calling thread's invoker, or null when it has none and create is false.
    static CDelayedInvoker* threadInvoker(bool create);

    QThreadStorage<CDelayedInvoker*>* m_invokers;
};
