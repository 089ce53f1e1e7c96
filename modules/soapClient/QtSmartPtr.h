#pragma once

#include "UtilsDllGlobal.h"

namespace VEXA_NAMESPACE {

// Counted pointer holding every item of a SOAP value tree. Copies of a tree share
// their items through it. The count is a plain int on purpose: a tree and all its
// copies belong to one thread at a time.
template <class T>
class QtSmartPtr
{
public:
    // A null item is allowed: the type factory returns one to mean failure.
    QtSmartPtr(T* item = nullptr)
        : count(new int(1))
        , item(item)
    {
    }

    QtSmartPtr(const QtSmartPtr& copy)
        : count(copy.count)
        , item(copy.item)
    {
        retain();
    }

    ~QtSmartPtr() { release(); }

    QtSmartPtr& operator=(const QtSmartPtr& copy)
    {
        if (this == &copy)
            return *this;
        release();
        count = copy.count;
        item = copy.item;
        retain();
        return *this;
    }

    T& operator*() const { return *item; }
    T* operator->() const { return item; }
    operator T*() const { return item; }
    T* ptr() const { return item; }

private:
    void retain()
    {
        if (*count != 0)
            ++*count;
    }

    // A count of 0 frees only the count and leaves the item to whoever holds it.
    void release()
    {
        if (*count == 0) {
            delete count;
            return;
        }
        if (--*count == 0) {
            delete count;
            delete item;
        }
    }

    int* count;
    T* item;
};

} // namespace VEXA_NAMESPACE
