#include "QtSoapStruct.h"

#include "QtSoapTypeFactory.h"
#include "SoapNames_p.h"

namespace VEXA_NAMESPACE {

QtSoapStruct::QtSoapStruct()
    : QtSoapType(QtSoapQName(), Struct)
{
}

QtSoapStruct::QtSoapStruct(const QtSoapQName& name)
    : QtSoapType(name, Struct)
{
}

QtSoapStruct::QtSoapStruct(const QtSoapStruct& copy) = default;

QtSoapStruct& QtSoapStruct::operator=(const QtSoapStruct& copy)
{
    if (this != &copy) {
        QtSoapType::operator=(copy);
        items = copy.items;
    }
    return *this;
}

QtSoapStruct::~QtSoapStruct() = default;

void QtSoapStruct::clear() { items.clear(); }
bool QtSoapStruct::isValid() const { return true; }
int QtSoapStruct::count() const { return items.count(); }

void QtSoapStruct::insert(QtSoapType* item)
{
    items.append(QtSmartPtr<QtSoapType>(item));
}

QtSoapType& QtSoapStruct::at(const QtSoapQName& key)
{
    // Walks a copy of the list (one count increment) so that the members handed
    // out stay put even if the caller changes the struct meanwhile.
    const QList<QtSmartPtr<QtSoapType> > members = items;
    for (const QtSmartPtr<QtSoapType>& member : members) {
        if (!member.ptr())
            break;
        if (member->name() == key)
            return *member;
    }
    return SoapNames::missingValue(SoapNames::MissingValue::StructByName);
}

const QtSoapType& QtSoapStruct::at(const QtSoapQName& key) const
{
    for (const QtSmartPtr<QtSoapType>& member : items) {
        if (!member.ptr())
            break;
        if (member->name() == key)
            return *member;
    }
    static const QtSoapType notFound;
    return notFound;
}

// A plain string matches by local name in any namespace.
const QtSoapType& QtSoapStruct::operator[](const QString& key) const { return at(QtSoapQName(key, QString())); }
const QtSoapType& QtSoapStruct::operator[](const QtSoapQName& key) const { return at(key); }
QtSoapType& QtSoapStruct::operator[](const QString& key) { return at(QtSoapQName(key, QString())); }
QtSoapType& QtSoapStruct::operator[](const QtSoapQName& key) { return at(key); }

const QtSoapType& QtSoapStruct::operator[](int pos) const
{
    if (pos >= 0 && pos < items.count() && items.at(pos).ptr())
        return *items.at(pos);
    static const QtSoapType notFound;
    return notFound;
}

QtSoapType& QtSoapStruct::operator[](int pos)
{
    if (pos >= 0 && pos < items.count() && items.at(pos).ptr())
        return *items.at(pos);
    return SoapNames::missingValue(SoapNames::MissingValue::StructByIndex);
}

// No type attribute of any kind on a struct: the envelope, header and body are
// structs and must go out bare.
QDomElement QtSoapStruct::toDomElement(QDomDocument doc) const
{
    QDomElement element = SoapNames::createNamedElement(doc, qualifiedName.name(), qualifiedName.uri());
    for (const QtSmartPtr<QtSoapType>& member : items) {
        if (!member.ptr())
            break;
        element.appendChild(member->toDomElement(doc));
    }
    return element;
}

bool QtSoapStruct::parse(QDomNode node)
{
    if (node.isNull() || !node.isElement())
        return false;
    QDomElement element = node.toElement();
    items.clear();
    int index = 0;
    for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling(), ++index) {
        if (child.isComment())
            continue;
        if (!child.isElement()) {
            errorText = QStringLiteral("In the struct element ") + element.tagName() + QStringLiteral(", the ")
                + QString::number(index) + QStringLiteral("th child ") + QStringLiteral("is not an element.");
            return false;
        }
        const QtSmartPtr<QtSoapType> item = QtSoapTypeFactory::instance().soapType(child);
        if (!item.ptr()) {
            errorText = QStringLiteral("In the struct element ") + element.tagName() + QStringLiteral(", child #")
                + QString::number(index) + QStringLiteral(", ") + child.toElement().tagName()
                + QStringLiteral(", was not recognized as a SOAP type.");
            return false;
        }
        items.append(item);
    }
    qualifiedName = QtSoapQName(SoapNames::localName(element.tagName()), element.namespaceURI());
    return true;
}

QtSoapStructIterator::QtSoapStructIterator(QtSoapStruct& s)
    : it(s.items.begin())
    , itEnd(s.items.end())
{
}

QtSoapQName QtSoapStructIterator::key() const
{
    if (it == itEnd || !it->ptr())
        return QtSoapQName(QString(), QString());
    return (*it)->name();
}

QtSoapType* QtSoapStructIterator::data() { return it == itEnd ? nullptr : it->ptr(); }
const QtSoapType* QtSoapStructIterator::current() const { return it == itEnd ? nullptr : it->ptr(); }

void QtSoapStructIterator::operator++()
{
    if (it != itEnd)
        ++it;
}

bool QtSoapStructIterator::operator==(const QtSoapStructIterator& other) const { return it == other.it; }
bool QtSoapStructIterator::operator!=(const QtSoapStructIterator& other) const { return it != other.it; }

} // namespace VEXA_NAMESPACE
