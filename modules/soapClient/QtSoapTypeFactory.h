#pragma once

#include "QtSmartPtr.h"
#include "QtSoapArray.h"
#include "QtSoapStruct.h"
#include "QtSoapType.h"

#include <QHash>
#include <list>

/// \file
/// \brief The factory that turns XML elements into SOAP values.

namespace VEXA_NAMESPACE {

/// \brief Creates one kind of value from an XML element; registered with
/// QtSoapTypeFactory::registerHandler().
class UTILSDLL_EXPORT QtSoapTypeConstructorBase
{
public:
    /// A constructor without an error text.
    QtSoapTypeConstructorBase() = default;
    /// A copy takes the source's error text as the copying thread sees it; moves copy too.
    QtSoapTypeConstructorBase(const QtSoapTypeConstructorBase& other);
    /// Takes the source's error text as the copying thread sees it.
    QtSoapTypeConstructorBase& operator=(const QtSoapTypeConstructorBase& other);
    virtual ~QtSoapTypeConstructorBase();

    /// A new value read from \p node, owned by the caller; null when it does not parse.
    virtual QtSoapType* createObject(QDomNode node) = 0;
    /// Why the calling thread's last createObject() failed.
    virtual QString errorString() const = 0;

protected:
    /// The text of \p constructor's last failure on the calling thread. Constructors are
    /// shared by every thread that parses, so each thread keeps its own texts.
    static QString threadErrorText(const QtSoapTypeConstructorBase* constructor);
    /// Sets the text of \p constructor's last failure on the calling thread.
    static void setThreadErrorText(const QtSoapTypeConstructorBase* constructor, const QString& text);
};

/// \brief The constructor of values of class \p T, which reads itself with
/// QtSoapType::parse().
/// \tparam T QtSoapStruct, QtSoapArray, QtSoapSimpleType or a class of the caller's.
template <class T>
class QtSoapTypeConstructor : public QtSoapTypeConstructorBase
{
public:
    /// A constructor without an error text.
    QtSoapTypeConstructor() = default;
    /// Copies the error text as the copying thread sees it.
    QtSoapTypeConstructor(const QtSoapTypeConstructor&) = default;
    /// Copies the error text as the copying thread sees it.
    QtSoapTypeConstructor(QtSoapTypeConstructor&&) = default;
    /// Copies the error text as the copying thread sees it.
    QtSoapTypeConstructor& operator=(const QtSoapTypeConstructor&) = default;
    /// Copies the error text as the copying thread sees it.
    QtSoapTypeConstructor& operator=(QtSoapTypeConstructor&&) = default;
    ~QtSoapTypeConstructor() override = default;

    /// A new \p T read from \p node. A value that fails to parse is deleted, and its
    /// error kept for the calling thread.
    QtSoapType* createObject(QDomNode node) override
    {
        T* object = new T();
        if (object->parse(node))
            return object;
        setThreadErrorText(this, object->errorString());
        delete object;
        return nullptr;
    }

    /// Why the calling thread's last createObject() failed.
    QString errorString() const override { return threadErrorText(this); }
};

extern template class UTILSDLL_EXPORT QtSoapTypeConstructor<QtSoapStruct>;
extern template class UTILSDLL_EXPORT QtSoapTypeConstructor<QtSoapArray>;
extern template class UTILSDLL_EXPORT QtSoapTypeConstructor<QtSoapSimpleType>;

/// \brief Process-wide: decides from one element which kind of value it becomes.
///
/// Shared and unlocked: register handlers before parsing on several threads. The error
/// text is kept per thread, so threads parsing at once each read their own.
class UTILSDLL_EXPORT QtSoapTypeFactory
{
public:
    /// Copies the table of handlers, which stay shared.
    QtSoapTypeFactory(const QtSoapTypeFactory&) = default;
    /// Copies the table of handlers, which stay shared.
    QtSoapTypeFactory& operator=(const QtSoapTypeFactory&) = default;
    /// Deletes the factory's own constructors, not those registered from outside.
    ~QtSoapTypeFactory();

    /// The process's factory, with the constructors of the library's value classes,
    /// built on the first call.
    static QtSoapTypeFactory& instance();

    /// Makes \p handler build the values whose type is named \p name. Names are
    /// stored as given: one registered with capitals is never found. A handler
    /// registered from outside stays its caller's, and must outlive the factory's use.
    bool registerHandler(const QString& name, QtSoapTypeConstructorBase* handler);
    /// The value read from the element \p node. Holds a null item on failure, with the
    /// reason in errorString().
    QtSmartPtr<QtSoapType> soapType(QDomNode node) const;
    /// The calling thread's most recent failure only; a success does not clear it.
    QString errorString() const;

private:
    QtSoapTypeFactory();

    QHash<QString, QtSoapTypeConstructorBase*> typeHandlers;
    std::list<QtSoapTypeConstructorBase*> ownedConstructors;
};

} // namespace VEXA_NAMESPACE
