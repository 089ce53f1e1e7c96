#pragma once

#include "UtilsDllGlobal.h"

/// \file
/// \brief The Singleton template.

/// \brief A process-wide single instance of \p T, built on first use.
///
/// \p T derives from Singleton<T>, keeps its constructor private and befriends
/// Singleton<T>. The instance is a function-local static: built on the first call to
/// instance(), thread-safely, and destroyed at process exit.
///
/// Any module may use it for a class of its own: instance() is defined in this header,
/// and the module that calls it holds the instance. The library's own instantiations
/// (CDelayedCall, Vexa::CNativeDialogs) are declared extern and exported in their
/// headers, so every module calls the library's instance() and shares its one object
/// instead of building a copy of its own (statics are not shared across Windows DLLs).
///
/// \tparam T the class that derives from Singleton<T>.
template <class T>
class Singleton
{
public:
    /// The one instance, built on the first call from any thread.
    static T& instance();

    /// Not copyable.
    Singleton(const Singleton&) = delete;
    /// Not assignable.
    Singleton& operator=(const Singleton&) = delete;

protected:
    /// Only \p T constructs its base.
    Singleton() = default;
    /// Runs at process exit, when the instance is destroyed.
    ~Singleton() = default;
};

// Out of the class, so not implicitly inline: an extern declaration keeps callers of
// the exported instantiations from compiling a copy of it.
template <class T>
T& Singleton<T>::instance()
{
    static T s_instance;
    return s_instance;
}
