#pragma once

#include "QtSmartPtr.h"
#include "QtSoapType.h"

#include <QList>

namespace VEXA_NAMESPACE {

class QtSoapMessage;

// An ordered list of named members; names need not be unique and look-up finds
// the first match. Copies are shallow: they share the members.
class UTILSDLL_EXPORT QtSoapStruct : public QtSoapType
{
public:
    QtSoapStruct();
    QtSoapStruct(const QtSoapQName& name);
    QtSoapStruct(const QtSoapStruct& copy);
    QtSoapStruct& operator=(const QtSoapStruct& copy);
    ~QtSoapStruct() override;

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

    // Appends; the struct owns the item from then on.
    void insert(QtSoapType* item);

    QtSoapType& at(const QtSoapQName& key);
    const QtSoapType& at(const QtSoapQName& key) const;

private:
    friend class QtSoapStructIterator;
    friend class QtSoapMessage;

    QList<QtSmartPtr<QtSoapType> > items;
};

class UTILSDLL_EXPORT QtSoapStructIterator
{
public:
    QtSoapStructIterator(QtSoapStruct& s);
    QtSoapStructIterator(const QtSoapStructIterator& copy) = default;
    QtSoapStructIterator& operator=(const QtSoapStructIterator& copy) = default;
    ~QtSoapStructIterator() = default;

    // The member's name, or a name of two null strings at the end.
    QtSoapQName key() const;
    QtSoapType* data();
    const QtSoapType* current() const;
    void operator++();
    bool operator==(const QtSoapStructIterator& other) const;
    bool operator!=(const QtSoapStructIterator& other) const;

private:
    QList<QtSmartPtr<QtSoapType> >::iterator it;
    QList<QtSmartPtr<QtSoapType> >::iterator itEnd;
};

} // namespace VEXA_NAMESPACE
