#pragma once

#include "QtSmartPtr.h"
#include "QtSoapType.h"

#include <QHash>

/// \file
/// \brief SOAP arrays.

namespace VEXA_NAMESPACE {

/// \brief A sparse SOAP array of one to five dimensions, keyed by the row-major linear
/// position.
///
/// Copies are shallow: they share the items. Misuse (a position outside the array's
/// order or range, an item of another type) goes to qWarning() and changes nothing.
class UTILSDLL_EXPORT QtSoapArray : public QtSoapType
{
public:
    /// A nameless one-dimensional array of Other items, without a size.
    QtSoapArray();
    /// An array named \p name of \p type items. The last size that is not -1 sets the
    /// number of dimensions (a gap counts as a dimension); no size at all makes one
    /// unbounded dimension.
    QtSoapArray(const QtSoapQName& name, QtSoapType::Type type = Other,
                int size0 = -1, int size1 = -1, int size2 = -1, int size3 = -1, int size4 = -1);
    /// A shallow copy: the items are shared.
    QtSoapArray(const QtSoapArray& copy);
    /// A shallow copy: the items are shared.
    QtSoapArray& operator=(const QtSoapArray& copy);
    ~QtSoapArray() override;

    void clear() override;
    bool parse(QDomNode node) override;
    bool isValid() const override;
    int count() const override;
    QDomElement toDomElement(QDomDocument doc) const override;

    const QtSoapType& operator[](const QString& key) const override;
    const QtSoapType& operator[](const QtSoapQName& key) const override;
    const QtSoapType& operator[](int pos) const override;
    QtSoapType& operator[](const QString& key) override;
    QtSoapType& operator[](const QtSoapQName& key) override;
    QtSoapType& operator[](int pos) override;

    /// \name Storing items
    ///@{

    /// \brief Stores \p item after the last position (append()) or at the given
    /// position, one index per dimension.
    ///
    /// Stored items belong to the array; a refused item (with a warning) stays the
    /// caller's. An item at a used position replaces the one there.
    void append(QtSoapType* item);
    void insert(int pos, QtSoapType* item);
    void insert(int pos0, int pos1, QtSoapType* item);
    void insert(int pos0, int pos1, int pos2, QtSoapType* item);
    void insert(int pos0, int pos1, int pos2, int pos3, QtSoapType* item);
    void insert(int pos0, int pos1, int pos2, int pos3, int pos4, QtSoapType* item);
    ///@}

    /// \name Reading items
    ///@{

    /// The item at the given position, one index per dimension; the shared invalid
    /// value when none is stored there.
    QtSoapType& at(int pos);
    QtSoapType& at(int pos0, int pos1);
    QtSoapType& at(int pos0, int pos1, int pos2);
    QtSoapType& at(int pos0, int pos1, int pos2, int pos3);
    QtSoapType& at(int pos0, int pos1, int pos2, int pos3, int pos4);
    const QtSoapType& at(int pos) const;
    const QtSoapType& at(int pos0, int pos1) const;
    const QtSoapType& at(int pos0, int pos1, int pos2) const;
    const QtSoapType& at(int pos0, int pos1, int pos2, int pos3) const;
    const QtSoapType& at(int pos0, int pos1, int pos2, int pos3, int pos4) const;
    ///@}

protected:
    /// The sizes as written in the arrayType attribute, such as "[3,4]".
    QString arraySizeString() const;
    /// The item type part of the arrayType attribute: the item type's name, or for an
    /// array of arrays the nested arrays' sizes.
    QString arrayTypeString() const;

private:
    friend class QtSoapArrayIterator;

    int linearKey(int pos0, int pos1) const;
    int linearKey(int pos0, int pos1, int pos2) const;
    int linearKey(int pos0, int pos1, int pos2, int pos3) const;
    int linearKey(int pos0, int pos1, int pos2, int pos3, int pos4) const;
    // Positions of a key for the array's order; returns how many were computed.
    int positionsOf(int key, int positions[5]) const;
    bool warnIfOrderDiffers(int dimensions, const int positions[]) const;

    QHash<int, QtSmartPtr<QtSoapType> > items;
    int lastIndex;
    QtSoapType::Type elementType;
    int order;
    int sizes[5];
};

/// \brief Walks the stored items of a QtSoapArray in hash order, which is not the
/// order of positions.
///
/// The array must outlive the iterator and must not change while it walks.
class UTILSDLL_EXPORT QtSoapArrayIterator
{
public:
    /// Starts at the first stored item of \p array.
    QtSoapArrayIterator(QtSoapArray& array);
    /// Copies the position.
    QtSoapArrayIterator(const QtSoapArrayIterator& copy) = default;
    /// Copies the position.
    QtSoapArrayIterator& operator=(const QtSoapArrayIterator& copy) = default;
    ~QtSoapArrayIterator() = default;

    /// Whether the walk is over.
    bool atEnd() const;
    /// The linear position of the current item.
    int pos() const;
    /// The current item's position, one index per dimension. Only non-null pointers
    /// are written, and only as many as the array's order.
    void pos(int* pos0, int* pos1 = nullptr, int* pos2 = nullptr, int* pos3 = nullptr, int* pos4 = nullptr) const;
    /// The current item, still the array's; null at the end.
    QtSoapType* data();
    /// The current item, read only; null at the end.
    const QtSoapType* current() const;
    /// Moves to the next stored item.
    void operator++();
    /// Whether both iterators stand at the same item.
    bool operator==(const QtSoapArrayIterator& other) const;
    /// Whether the iterators stand at different items.
    bool operator!=(const QtSoapArrayIterator& other) const;

private:
    QHash<int, QtSmartPtr<QtSoapType> >::iterator it;
    QtSoapArray* arr;
};

} // namespace VEXA_NAMESPACE
