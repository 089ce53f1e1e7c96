#pragma once

// Internal: include in the one .cpp that explicitly instantiates Singleton<T>.
#include "Singleton.h"

template <class T>
T& Singleton<T>::instance()
{
    static T s_instance;
    return s_instance;
}
