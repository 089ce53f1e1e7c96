#pragma once

#include "UtilsDllGlobal.h"

// Meyers singleton: T derives from Singleton<T> and keeps its constructor private,
// befriending Singleton<T>. The instance is built on the first call, thread-safely,
// and destroyed at process exit.
//
// instance() is defined in SingletonImpl.h, which only the library includes: each
// exported instantiation then has exactly one static, in the library, instead of a
// hidden copy in every module that inlined it.
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
