#include "QtSoapTypeFactory.h"

#include "SoapNames_p.h"

#include <QThreadStorage>

namespace VEXA_NAMESPACE {

template class QtSoapTypeConstructor<QtSoapStruct>;
template class QtSoapTypeConstructor<QtSoapArray>;
template class QtSoapTypeConstructor<QtSoapSimpleType>;

namespace {

// Qt's thread storage, not thread_local: in the MinGW-built DLL, thread_local objects
// with destructors crashed the heap when their threads ended.
// The calling thread's last failure of the factory.
QString& factoryErrorText()
{
    static QThreadStorage<QString> text;
    return text.localData();
}

// The calling thread's last failure of each constructor.
QHash<const QtSoapTypeConstructorBase*, QString>& constructorErrorTexts()
{
    static QThreadStorage<QHash<const QtSoapTypeConstructorBase*, QString>> texts;
    return texts.localData();
}

} // namespace

QtSoapTypeConstructorBase::QtSoapTypeConstructorBase(const QtSoapTypeConstructorBase& other)
{
    *this = other;
}

QtSoapTypeConstructorBase& QtSoapTypeConstructorBase::operator=(const QtSoapTypeConstructorBase& other)
{
    QHash<const QtSoapTypeConstructorBase*, QString>& texts = constructorErrorTexts();
    if (texts.contains(&other)) {
        const QString text = texts.value(&other);
        texts.insert(this, text);
    } else {
        texts.remove(this);
    }
    return *this;
}

QtSoapTypeConstructorBase::~QtSoapTypeConstructorBase() = default;

QString QtSoapTypeConstructorBase::threadErrorText(const QtSoapTypeConstructorBase* constructor)
{
    return constructorErrorTexts().value(constructor);
}

void QtSoapTypeConstructorBase::setThreadErrorText(const QtSoapTypeConstructorBase* constructor, const QString& text)
{
    constructorErrorTexts().insert(constructor, text);
}

QtSoapTypeFactory::QtSoapTypeFactory()
{
    auto* structConstructor = new QtSoapTypeConstructor<QtSoapStruct>();
    auto* arrayConstructor = new QtSoapTypeConstructor<QtSoapArray>();
    auto* simpleConstructor = new QtSoapTypeConstructor<QtSoapSimpleType>();
    ownedConstructors.push_back(structConstructor);
    ownedConstructors.push_back(arrayConstructor);
    ownedConstructors.push_back(simpleConstructor);

    registerHandler(QStringLiteral("struct"), structConstructor);
    registerHandler(QStringLiteral("array"), arrayConstructor);
    static const char* const simpleTypes[] = {
        "string", "normalizedstring", "token", "language", "name", "ncname", "id", "idref",
        "entity", "nmtoken", "nmtokens", "boolean", "decimal", "integer", "nonpositiveinteger",
        "negativeinteger", "int", "long", "short", "byte", "nonnegativeinteger", "unsignedlong",
        "unsignedint", "unsignedshort", "unsignedbyte", "positiveinteger", "float", "double"};
    for (const char* name : simpleTypes)
        registerHandler(QLatin1String(name), simpleConstructor);
    // Values of an unknown declared kind are read as structs, deliberately.
    registerHandler(QStringLiteral("other"), structConstructor);
}

QtSoapTypeFactory::~QtSoapTypeFactory()
{
    for (QtSoapTypeConstructorBase* constructor : ownedConstructors)
        delete constructor;
}

QtSoapTypeFactory& QtSoapTypeFactory::instance()
{
    static QtSoapTypeFactory factory;
    return factory;
}

bool QtSoapTypeFactory::registerHandler(const QString& name, QtSoapTypeConstructorBase* handler)
{
    if (typeHandlers.contains(name)) {
        factoryErrorText() = QStringLiteral("A handler for ") + name + QStringLiteral(" is already registered.");
        return false;
    }
    typeHandlers.insert(name, handler);
    return true;
}

QtSmartPtr<QtSoapType> QtSoapTypeFactory::soapType(QDomNode node) const
{
    if (node.isNull() || !node.isElement())
        return QtSmartPtr<QtSoapType>();
    QDomElement element = node.toElement();

    QtSoapTypeConstructorBase* constructor = nullptr;
    const QDomAttr typeAttribute = element.attributeNode(QStringLiteral("type"));
    if (!typeAttribute.isNull()) {
        const QString typeText = typeAttribute.value().toLower();
        // A known name is looked up through its shared string, which spares a copy of
        // the local name for every element read.
        const SoapNames::KnownTypeName* known = SoapNames::findKnownTypeName(SoapNames::localNameView(typeText));
        constructor = typeHandlers.value(known ? known->text : SoapNames::localName(typeText), nullptr);
    }

    // An unknown or missing type is no error: the shape of the element decides.
    // Only the first child node counts, so a leading comment makes it a string.
    if (!constructor) {
        QString shape;
        if (!element.firstChild().isElement())
            shape = QStringLiteral("string");
        else if (SoapNames::localName(element.nodeName()).toLower() == QLatin1String("array"))
            shape = QStringLiteral("array");
        else
            shape = QStringLiteral("struct");
        constructor = typeHandlers.value(shape, nullptr);
        if (!constructor)
            return QtSmartPtr<QtSoapType>();
    }

    QtSoapType* object = constructor->createObject(node);
    if (!object)
        factoryErrorText() = constructor->errorString();
    return QtSmartPtr<QtSoapType>(object);
}

QString QtSoapTypeFactory::errorString() const
{
    return factoryErrorText();
}

} // namespace VEXA_NAMESPACE
