#pragma once

#include "UtilsDllGlobal.h"

/// \file
/// \brief The counted pointer of SOAP value trees.

namespace VEXA_NAMESPACE {

/// \brief Counted pointer holding every item of a SOAP value tree.
///
/// Copies of a tree share their items through it; the last pointer deletes the item.
/// The count is a plain int on purpose: a tree and all its copies belong to one thread
/// at a time.
/// \tparam T the item's class, QtSoapType.
template <class T>
class QtSmartPtr
{
public:
    /// Owns \p item from now on. A null item is allowed: the type factory returns one
    /// to mean failure.
    QtSmartPtr(T* item = nullptr)
        : count(new int(1))
        , item(item)
    {
    }

    /// Shares the item of \p copy.
    QtSmartPtr(const QtSmartPtr& copy)
        : count(copy.count)
        , item(copy.item)
    {
        retain();
    }

    /// Deletes the item when this was its last pointer.
    ~QtSmartPtr() { release(); }

    /// Lets go of the own item, then shares the item of \p copy.
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

    /// The item; it must not be null.
    T& operator*() const { return *item; }
    /// The item, for member access.
    T* operator->() const { return item; }
    /// The item as a plain pointer, still owned here.
    operator T*() const { return item; }
    /// The item as a plain pointer, still owned here.
    T* ptr() const { return item; }

private:
    void retain()
    {
        if (*count != 0)
            ++*count;
    }

    // A count of 0 frees only the count and leaves the item to whoever holds it. Nothing
    // ever shares a count of 0, but GCC 12 cannot see that through two inlined copies and
    // takes that branch for a read after free.
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ >= 12
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wuse-after-free"
#endif
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
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ >= 12
#pragma GCC diagnostic pop
#endif

    int* count;
    T* item;
};

} // namespace VEXA_NAMESPACE
