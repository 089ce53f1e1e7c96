#pragma once

#include "QtSmartPtr.h"
#include "QtSoapType.h"

#include <QHash>

namespace VEXA_NAMESPACE {

// A sparse array of one to five dimensions, keyed by the row-major linear position.
// Copies are shallow: they share the items.
class UTILSDLL_EXPORT QtSoapArray : public QtSoapType
{
public:
    QtSoapArray();
    QtSoapArray(const QtSoapQName& name, QtSoapType::Type type = Other,
                int size0 = -1, int size1 = -1, int size2 = -1, int size3 = -1, int size4 = -1);
    QtSoapArray(const QtSoapArray& copy);
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

    // Stored items belong to the array; a refused item (a warning) stays the caller's.
    void append(QtSoapType* item);
    void insert(int pos, QtSoapType* item);
    void insert(int pos0, int pos1, QtSoapType* item);
    void insert(int pos0, int pos1, int pos2, QtSoapType* item);
    void insert(int pos0, int pos1, int pos2, int pos3, QtSoapType* item);
    void insert(int pos0, int pos1, int pos2, int pos3, int pos4, QtSoapType* item);

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

protected:
    QString arraySizeString() const;
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

// Walks the stored items in hash order, which is not the order of positions.
class UTILSDLL_EXPORT QtSoapArrayIterator
{
public:
    QtSoapArrayIterator(QtSoapArray& array);
    QtSoapArrayIterator(const QtSoapArrayIterator& copy) = default;
    QtSoapArrayIterator& operator=(const QtSoapArrayIterator& copy) = default;
    ~QtSoapArrayIterator() = default;

    bool atEnd() const;
    int pos() const;
    // Only non-null pointers are written, and only as many as the array's order.
    void pos(int* pos0, int* pos1 = nullptr, int* pos2 = nullptr, int* pos3 = nullptr, int* pos4 = nullptr) const;
    QtSoapType* data();
    const QtSoapType* current() const;
    void operator++();
    bool operator==(const QtSoapArrayIterator& other) const;
    bool operator!=(const QtSoapArrayIterator& other) const;

private:
    QHash<int, QtSmartPtr<QtSoapType> >::iterator it;
    QtSoapArray* arr;
};

} // namespace VEXA_NAMESPACE
