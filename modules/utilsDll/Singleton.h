#pragma once

#include "UtilsDllGlobal.h"

// Meyers singleton: T derives from Singleton<T> and keeps its constructor private,
// befriending Singleton<T>. The instance is built on the first call, thread-safely,
// and destroyed at process exit.
//
// Any module may use it for a class of its own: instance() is defined below, and the
// module that calls it holds the instance. The library's own instantiations
// (CDelayedCall, CNativeDialogs) are declared extern and exported in their headers, so
// every module calls the library's instance() and shares its one object, instead of
// building a copy of its own (as a Windows DLL would do: statics are not shared
// across DLLs).
template <class T>
class Singleton
{
public:
    static T& instance();

    Singleton(const Singleton&) = delete;
    Singleton& operator=(const Singleton&) = delete;

protected:
    Singleton() = default;
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
