#pragma once

#include "QtSmartPtr.h"
#include "QtSoapType.h"

#include <QList>

/// \file
/// \brief SOAP structs.

namespace VEXA_NAMESPACE {

class QtSoapMessage;

/// \brief A SOAP struct: an ordered list of named members.
///
/// Names need not be unique and look-up finds the first match. Copies are shallow:
/// they share the members.
class UTILSDLL_EXPORT QtSoapStruct : public QtSoapType
{
public:
    /// A nameless, empty struct.
    QtSoapStruct();
    /// An empty struct named \p name.
    QtSoapStruct(const QtSoapQName& name);
    /// A shallow copy: the members are shared.
    QtSoapStruct(const QtSoapStruct& copy);
    /// A shallow copy: the members are shared.
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

    /// Appends \p item; the struct owns it from then on.
    void insert(QtSoapType* item);

    /// The first member named \p key; the shared invalid value when there is none.
    QtSoapType& at(const QtSoapQName& key);
    /// The first member named \p key; the shared invalid value when there is none.
    const QtSoapType& at(const QtSoapQName& key) const;

private:
    friend class QtSoapStructIterator;
    friend class QtSoapMessage;

    QList<QtSmartPtr<QtSoapType> > items;
};

/// \brief Walks the members of a QtSoapStruct in order.
///
/// The struct must outlive the iterator and must not change while it walks.
class UTILSDLL_EXPORT QtSoapStructIterator
{
public:
    /// Starts at the first member of \p s.
    QtSoapStructIterator(QtSoapStruct& s);
    /// Copies the position.
    QtSoapStructIterator(const QtSoapStructIterator& copy) = default;
    /// Copies the position.
    QtSoapStructIterator& operator=(const QtSoapStructIterator& copy) = default;
    ~QtSoapStructIterator() = default;

    /// The member's name, or a name of two null strings at the end.
    QtSoapQName key() const;
    /// The current member, still the struct's; null at the end.
    QtSoapType* data();
    /// The current member, read only; null at the end.
    const QtSoapType* current() const;
    /// Moves to the next member.
    void operator++();
    /// Whether both iterators stand at the same member.
    bool operator==(const QtSoapStructIterator& other) const;
    /// Whether the iterators stand at different members.
    bool operator!=(const QtSoapStructIterator& other) const;

private:
    QList<QtSmartPtr<QtSoapType> >::iterator it;
    QList<QtSmartPtr<QtSoapType> >::iterator itEnd;
};

} // namespace VEXA_NAMESPACE
