#pragma once

#include "QtSmartPtr.h"
#include "QtSoapArray.h"
#include "QtSoapStruct.h"
#include "QtSoapType.h"

#include <QHash>
#include <list>

namespace VEXA_NAMESPACE {

// Creates one kind of value from an XML element.
class UTILSDLL_EXPORT QtSoapTypeConstructorBase
{
public:
    QtSoapTypeConstructorBase() = default;
    // A copy takes the source's error text as the copying thread sees it; moves copy too.
    QtSoapTypeConstructorBase(const QtSoapTypeConstructorBase& other);
    QtSoapTypeConstructorBase& operator=(const QtSoapTypeConstructorBase& other);
    virtual ~QtSoapTypeConstructorBase();

    virtual QtSoapType* createObject(QDomNode node) = 0;
    virtual QString errorString() const = 0;

protected:
    // The text of a constructor's last failure on the calling thread. Constructors are
    // shared by every thread that parses, so each thread keeps its own texts.
    static QString threadErrorText(const QtSoapTypeConstructorBase* constructor);
    static void setThreadErrorText(const QtSoapTypeConstructorBase* constructor, const QString& text);
};

template <class T>
class QtSoapTypeConstructor : public QtSoapTypeConstructorBase
{
public:
    QtSoapTypeConstructor() = default;
    QtSoapTypeConstructor(const QtSoapTypeConstructor&) = default;
    QtSoapTypeConstructor(QtSoapTypeConstructor&&) = default;
    QtSoapTypeConstructor& operator=(const QtSoapTypeConstructor&) = default;
    QtSoapTypeConstructor& operator=(QtSoapTypeConstructor&&) = default;
    ~QtSoapTypeConstructor() override = default;

    // A value that fails to parse is deleted, and its error kept for the calling thread.
    QtSoapType* createObject(QDomNode node) override
    {
        T* object = new T();
        if (object->parse(node))
            return object;
        setThreadErrorText(this, object->errorString());
        delete object;
        return nullptr;
    }

    QString errorString() const override { return threadErrorText(this); }
};

extern template class UTILSDLL_EXPORT QtSoapTypeConstructor<QtSoapStruct>;
extern template class UTILSDLL_EXPORT QtSoapTypeConstructor<QtSoapArray>;
extern template class UTILSDLL_EXPORT QtSoapTypeConstructor<QtSoapSimpleType>;

// Process-wide: decides from one element which kind of value it becomes. Shared and
// unlocked: register handlers before parsing on several threads. The error text is
// kept per thread, so threads parsing at once each read their own.
class UTILSDLL_EXPORT QtSoapTypeFactory
{
public:
    QtSoapTypeFactory(const QtSoapTypeFactory&) = default;
    QtSoapTypeFactory& operator=(const QtSoapTypeFactory&) = default;
    ~QtSoapTypeFactory();

    static QtSoapTypeFactory& instance();

    // Names are stored as given: one registered with capitals is never found. A
    // handler registered from outside stays its caller's.
    bool registerHandler(const QString& name, QtSoapTypeConstructorBase* handler);
    // Holds a null item on failure.
    QtSmartPtr<QtSoapType> soapType(QDomNode node) const;
    // The calling thread's most recent failure only; a success does not clear it.
    QString errorString() const;

private:
    QtSoapTypeFactory();

    QHash<QString, QtSoapTypeConstructorBase*> typeHandlers;
    std::list<QtSoapTypeConstructorBase*> ownedConstructors;
};

} // namespace VEXA_NAMESPACE
