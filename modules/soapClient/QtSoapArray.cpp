#include "QtSoapArray.h"

#include "QtSoapTypeFactory.h"
#include "SoapNames_p.h"

#include <QStringList>

namespace VEXA_NAMESPACE {

namespace {

// A zero-sized dimension would divide by zero; such an array has no valid position,
// so the division simply yields 0 instead of stopping the host process.
int safeDivide(int value, int divisor)
{
    return divisor == 0 ? 0 : value / divisor;
}

int safeRemainder(int value, int divisor)
{
    return divisor == 0 ? value : value % divisor;
}

} // namespace

QtSoapArray::QtSoapArray()
    : QtSoapType(QtSoapQName(), Array)
    , lastIndex(0)
    , elementType(Other)
    , order(1)
    , sizes{0, 0, 0, 0, 0}
{
}

QtSoapArray::QtSoapArray(const QtSoapQName& name, QtSoapType::Type type,
                         int size0, int size1, int size2, int size3, int size4)
    : QtSoapType(name, Array)
    , lastIndex(0)
    , elementType(type)
    , sizes{size0, size1, size2, size3, size4}
{
    // Only these tests count: a gap such as size1 -1 with size2 4 still gives 3.
    if (size4 != -1)
        order = 5;
    else if (size3 != -1)
        order = 4;
    else if (size2 != -1)
        order = 3;
    else if (size1 != -1)
        order = 2;
    else
        order = 1;
}

QtSoapArray::QtSoapArray(const QtSoapArray& copy) = default;

QtSoapArray& QtSoapArray::operator=(const QtSoapArray& copy)
{
    if (this == &copy)
        return *this;
    QtSoapType::operator=(copy);
    items = copy.items;
    lastIndex = copy.lastIndex;
    elementType = copy.elementType;
    order = copy.order;
    std::copy(copy.sizes, copy.sizes + 5, sizes);
    return *this;
}

QtSoapArray::~QtSoapArray() = default;

// Deliberately not the state of a new array: order -1 makes append() refuse until
// insert(pos, item) has set it back to 1. Callers depend on this sequence.
void QtSoapArray::clear()
{
    items.clear();
    lastIndex = 0;
    elementType = Other;
    std::fill(sizes, sizes + 5, 0);
    order = -1;
}

bool QtSoapArray::isValid() const { return true; }
int QtSoapArray::count() const { return items.count(); }

const QtSoapType& QtSoapArray::operator[](const QString& key) const { return QtSoapType::operator[](key); }
const QtSoapType& QtSoapArray::operator[](const QtSoapQName& key) const { return QtSoapType::operator[](key); }
const QtSoapType& QtSoapArray::operator[](int pos) const { return at(pos); }
QtSoapType& QtSoapArray::operator[](const QString& key) { return QtSoapType::operator[](key); }
QtSoapType& QtSoapArray::operator[](const QtSoapQName& key) { return QtSoapType::operator[](key); }
QtSoapType& QtSoapArray::operator[](int pos) { return at(pos); }

void QtSoapArray::append(QtSoapType* item)
{
    if (order != 1) {
        qWarning("Attempted to insert item at position (%i) in %i-dimensional QtSoapArray.", lastIndex, order);
        return;
    }
    if (items.isEmpty()) {
        items.insert(0, QtSmartPtr<QtSoapType>(item));
        return;
    }
    items.insert(++lastIndex, QtSmartPtr<QtSoapType>(item));
}

void QtSoapArray::insert(int pos, QtSoapType* item)
{
    if (elementType == Other)
        elementType = item->type();
    if (item->type() != elementType) {
        qWarning("Attempted to insert item of type \"%s\" in QtSoapArray of type \"%s\".",
                 item->typeName().toLatin1().constData(), typeToName(elementType).toLatin1().constData());
        return;
    }
    if (order == -1)
        order = 1;
    else if (order == 1 && pos > lastIndex)
        lastIndex = pos;
    items.insert(pos, QtSmartPtr<QtSoapType>(item));
}

bool QtSoapArray::warnIfOrderDiffers(int dimensions, const int positions[]) const
{
    if (order == dimensions)
        return false;
    switch (dimensions) {
    case 2:
        qWarning("Attempted to insert item at position (%i, %i) in %i-dimensional QtSoapArray.",
                 positions[0], positions[1], order);
        break;
    case 3:
        qWarning("Attempted to insert item at position (%i, %i, %i) in %i-dimensional QtSoapArray.",
                 positions[0], positions[1], positions[2], order);
        break;
    case 4:
        qWarning("Attempted to insert item at position (%i, %i, %i, %i) in %i-dimensional QtSoapArray.",
                 positions[0], positions[1], positions[2], positions[3], order);
        break;
    default:
        qWarning("Attempted to insert item at position (%i, %i, %i, %i, %i) in %i-dimensional QtSoapArray.",
                 positions[0], positions[1], positions[2], positions[3], positions[4], order);
        break;
    }
    return true;
}

void QtSoapArray::insert(int pos0, int pos1, QtSoapType* item)
{
    const int positions[] = {pos0, pos1};
    if (warnIfOrderDiffers(2, positions))
        return;
    if (pos0 < 0 || pos0 >= sizes[0] || pos1 < 0 || pos1 >= sizes[1]) {
        qWarning("Attempted to insert item at position (%i, %i) when range of QtSoapArray is (0..%i, 0..%i)",
                 pos0, pos1, sizes[0] - 1, sizes[1] - 1);
        return;
    }
    insert(linearKey(pos0, pos1), item);
}

void QtSoapArray::insert(int pos0, int pos1, int pos2, QtSoapType* item)
{
    const int positions[] = {pos0, pos1, pos2};
    if (warnIfOrderDiffers(3, positions))
        return;
    if (pos0 < 0 || pos0 >= sizes[0] || pos1 < 0 || pos1 >= sizes[1] || pos2 < 0 || pos2 >= sizes[2]) {
        qWarning("Attempted to insert item at position (%i, %i, %i) when range of QtSoapArray is (0..%i, 0..%i, 0..%i)",
                 pos0, pos1, pos2, sizes[0] - 1, sizes[1] - 1, sizes[2] - 1);
        return;
    }
    insert(linearKey(pos0, pos1, pos2), item);
}

// Four and five dimensions have no range test, by design.
void QtSoapArray::insert(int pos0, int pos1, int pos2, int pos3, QtSoapType* item)
{
    const int positions[] = {pos0, pos1, pos2, pos3};
    if (!warnIfOrderDiffers(4, positions))
        insert(linearKey(pos0, pos1, pos2, pos3), item);
}

void QtSoapArray::insert(int pos0, int pos1, int pos2, int pos3, int pos4, QtSoapType* item)
{
    const int positions[] = {pos0, pos1, pos2, pos3, pos4};
    if (!warnIfOrderDiffers(5, positions))
        insert(linearKey(pos0, pos1, pos2, pos3, pos4), item);
}

int QtSoapArray::linearKey(int pos0, int pos1) const
{
    return pos0 * sizes[1] + pos1;
}

int QtSoapArray::linearKey(int pos0, int pos1, int pos2) const
{
    return linearKey(pos0, pos1) * sizes[2] + pos2;
}

int QtSoapArray::linearKey(int pos0, int pos1, int pos2, int pos3) const
{
    return linearKey(pos0, pos1, pos2) * sizes[3] + pos3;
}

int QtSoapArray::linearKey(int pos0, int pos1, int pos2, int pos3, int pos4) const
{
    return linearKey(pos0, pos1, pos2, pos3) * sizes[4] + pos4;
}

int QtSoapArray::positionsOf(int key, int positions[5]) const
{
    const int s1 = sizes[1], s2 = sizes[2], s3 = sizes[3], s4 = sizes[4];
    int divisors[4] = {0, 0, 0, 0};
    int dimensions = 1;
    switch (order) {
    case 2:
        divisors[0] = s1;
        dimensions = 2;
        break;
    case 3:
        divisors[0] = s1 * s2;
        divisors[1] = s2;
        dimensions = 3;
        break;
    case 4:
        divisors[0] = s1 * s2 * s3;
        divisors[1] = s2 * s3;
        divisors[2] = s3;
        dimensions = 4;
        break;
    case 5:
        divisors[0] = s1 * s2 * s3 * s4;
        divisors[1] = s2 * s3 * s4;
        divisors[2] = s3 * s4;
        // size3, not size4: this decides pos3 and pos4 of five-dimensional items
        // and is kept as the wire text that peers already read.
        divisors[3] = s3;
        dimensions = 5;
        break;
    default:
        break;
    }
    int rest = key;
    for (int i = 0; i < dimensions - 1; ++i) {
        positions[i] = safeDivide(rest, divisors[i]);
        rest = safeRemainder(rest, divisors[i]);
    }
    positions[dimensions - 1] = rest;
    return dimensions;
}

const QtSoapType& QtSoapArray::at(int pos) const
{
    const auto found = items.constFind(pos);
    if (found != items.constEnd())
        return *found.value();
    static const QtSoapType notFound;
    return notFound;
}

QtSoapType& QtSoapArray::at(int pos)
{
    const auto found = items.constFind(pos);
    if (found != items.constEnd())
        return *found.value();
    return SoapNames::missingValue(SoapNames::MissingValue::ArrayByIndex);
}

QtSoapType& QtSoapArray::at(int pos0, int pos1) { return at(linearKey(pos0, pos1)); }
QtSoapType& QtSoapArray::at(int pos0, int pos1, int pos2) { return at(linearKey(pos0, pos1, pos2)); }
QtSoapType& QtSoapArray::at(int pos0, int pos1, int pos2, int pos3) { return at(linearKey(pos0, pos1, pos2, pos3)); }
QtSoapType& QtSoapArray::at(int pos0, int pos1, int pos2, int pos3, int pos4)
{
    return at(linearKey(pos0, pos1, pos2, pos3, pos4));
}

const QtSoapType& QtSoapArray::at(int pos0, int pos1) const { return at(linearKey(pos0, pos1)); }
const QtSoapType& QtSoapArray::at(int pos0, int pos1, int pos2) const { return at(linearKey(pos0, pos1, pos2)); }
const QtSoapType& QtSoapArray::at(int pos0, int pos1, int pos2, int pos3) const
{
    return at(linearKey(pos0, pos1, pos2, pos3));
}
const QtSoapType& QtSoapArray::at(int pos0, int pos1, int pos2, int pos3, int pos4) const
{
    return at(linearKey(pos0, pos1, pos2, pos3, pos4));
}

QString QtSoapArray::arraySizeString() const
{
    QString text = QStringLiteral("[");
    if (sizes[0] != -1) {
        text += QString::number(sizes[0]);
        for (int i = 1; i < order && i < 5; ++i)
            text += QLatin1Char(',') + QString::number(sizes[i]);
    }
    return text + QLatin1Char(']');
}

// The walk reads the first item of *this* array at every turn, not of the cursor.
// An array whose first item is a non-empty array therefore never finishes; code
// that builds nested arrays must not serialise such a tree. Kept as it is because
// the texts it produces for every other tree are what peers expect.
QString QtSoapArray::arrayTypeString() const
{
    if (elementType != Array)
        return typeToName(elementType);
    const QtSoapType* cursor = this;
    QString result;
    while (cursor->count() != 0) {
        result += static_cast<const QtSoapArray*>(cursor)->arraySizeString();
        const QtSoapType* first = items.constBegin().value().ptr();
        if (!first || first->type() != Array)
            break;
        cursor = first;
    }
    if (cursor->count() == 0)
        return QStringLiteral("int") + result;
    const QtSoapType* first = items.constBegin().value().ptr();
    return (first ? first->typeName() : typeToName(Other)) + result;
}

QDomElement QtSoapArray::toDomElement(QDomDocument doc) const
{
    QDomElement element = SoapNames::createNamedElement(doc, qualifiedName.name(), qualifiedName.uri());
    // "Array" with a capital, and the type only, with no dimensions: the wire text
    // the product's peers read.
    element.setAttributeNS(SoapNames::schemaInstanceUri(),
                           SoapNames::qualifiedAttributeName(SoapNames::schemaInstanceUri(), QStringLiteral("type")),
                           QStringLiteral("xsd:Array"));
    element.setAttributeNS(SoapNames::encodingUri(),
                           SoapNames::qualifiedAttributeName(SoapNames::encodingUri(), QStringLiteral("arrayType")),
                           QLatin1String("xsd:") + arrayTypeString());
    // Positions stand in the envelope namespace, not the encoding one; peers read
    // them there.
    const QString positionName =
        SoapNames::qualifiedAttributeName(SoapNames::envelopeUri(), QStringLiteral("position"));
    for (auto it = items.constBegin(); it != items.constEnd(); ++it) {
        if (!it.value().ptr())
            continue;
        QDomElement child = it.value()->toDomElement(doc);
        child.setTagName(QStringLiteral("item"));
        int positions[5];
        const int dimensions = positionsOf(it.key(), positions);
        QString text = QStringLiteral("[");
        for (int i = 0; i < dimensions; ++i) {
            if (i > 0)
                text += QLatin1Char(',');
            text += QString::number(positions[i]);
        }
        child.setAttributeNS(SoapNames::envelopeUri(), positionName, text + QLatin1Char(']'));
        element.appendChild(child);
    }
    return element;
}

// Reads positions only as plain decimals. The bracketed text that toDomElement
// writes reads as 0, so an array written here does not survive being read back;
// that is accepted, peers send plain positions or none.
bool QtSoapArray::parse(QDomNode node)
{
    if (node.isNull() || !node.isElement())
        return false;
    QDomElement element = node.toElement();
    const QDomAttr typeAttribute = element.attributeNode(QStringLiteral("type"));
    if (!typeAttribute.isNull() && SoapNames::localName(typeAttribute.value()).toLower() != QLatin1String("array"))
        return false;

    items.clear();
    int position = 0;
    for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (child.isComment())
            continue;
        if (!child.isElement())
            return false;
        const QtSmartPtr<QtSoapType> item = QtSoapTypeFactory::instance().soapType(child);
        if (!item.ptr())
            return false;
        const QDomAttr positionAttribute = child.toElement().attributeNode(QStringLiteral("position"));
        if (!positionAttribute.isNull())
            position = positionAttribute.value().toInt(nullptr, 10);
        items.insert(position, item);
        ++position;
    }
    qualifiedName = QtSoapQName(SoapNames::localName(element.tagName()), element.namespaceURI());
    return true;
}

QtSoapArrayIterator::QtSoapArrayIterator(QtSoapArray& array)
    : it(array.items.begin())
    , arr(&array)
{
}

// The const end: the non-const one would detach an array that was copied after the
// iterator was made, and the iterator, still in the shared items, would never meet it.
bool QtSoapArrayIterator::atEnd() const { return it == arr->items.cend(); }
int QtSoapArrayIterator::pos() const { return it.key(); }

void QtSoapArrayIterator::pos(int* pos0, int* pos1, int* pos2, int* pos3, int* pos4) const
{
    int positions[5];
    const int dimensions = arr->positionsOf(it.key(), positions);
    int* targets[5] = {pos0, pos1, pos2, pos3, pos4};
    for (int i = 0; i < dimensions; ++i) {
        if (targets[i])
            *targets[i] = positions[i];
    }
}

QtSoapType* QtSoapArrayIterator::data()
{
    return atEnd() ? nullptr : it.value().ptr();
}

const QtSoapType* QtSoapArrayIterator::current() const
{
    return atEnd() ? nullptr : it.value().ptr();
}

void QtSoapArrayIterator::operator++() { ++it; }
bool QtSoapArrayIterator::operator==(const QtSoapArrayIterator& other) const { return it == other.it; }
bool QtSoapArrayIterator::operator!=(const QtSoapArrayIterator& other) const { return it != other.it; }

} // namespace VEXA_NAMESPACE
