#include "QtSoapType.h"

#include "SoapNames_p.h"

#include <QtGlobal>

#include <algorithm>
#include <functional>
#include <vector>

namespace VEXA_NAMESPACE {

namespace {

struct TypeNames
{
    const char* name;   // what typeToName writes
    const char* key;    // what nameToType accepts, after trim and lower-casing
};

// Indexed by QtSoapType::Type. The keys "hexBinary" and "nonPositiveinteger" keep
// their capitals and can therefore never match a lower-cased argument: those two
// type names read back as Other, and the network modules rely on exactly that.
const TypeNames typeNames[] = {
    {"duration", "duration"}, {"dateTime", "datetime"}, {"time", "time"}, {"date", "date"},
    {"gYearMonth", "gyearmonth"}, {"gYear", "gyear"}, {"gMonthDay", "gmonthday"},
    {"gDay", "gday"}, {"gMonth", "gmonth"}, {"boolean", "boolean"},
    {"base64Binary", "base64binary"}, {"hexBinary", "hexBinary"}, {"float", "float"},
    {"double", "double"}, {"anyURI", "anyuri"}, {"QName", "qname"}, {"NOTATION", "notation"},
    {"string", "string"}, {"normalizedString", "normalizedstring"}, {"token", "token"},
    {"language", "language"}, {"name", "name"}, {"NMToken", "nmtoken"}, {"NCName", "ncname"},
    {"ID", "id"}, {"IDREF", "idref"}, {"ENTITY", "entity"}, {"decimal", "decimal"},
    {"integer", "integer"}, {"nonPositiveInteger", "nonPositiveinteger"},
    {"negativeInteger", "negativeinteger"}, {"long", "long"}, {"int", "int"},
    {"short", "short"}, {"byte", "byte"}, {"nonNegativeInteger", "nonnegativeinteger"},
    {"unsignedLong", "unsignedlong"}, {"positiveInteger", "positiveinteger"},
    {"unsignedInt", "unsignedint"}, {"unsignedShort", "unsignedshort"},
    {"unsignedByte", "unsignedbyte"},
    // Array, Struct and Other have no key: nameToType never yields them by name.
    {"array", nullptr}, {"struct", nullptr}, {"other", nullptr},
};
static_assert(sizeof(typeNames) / sizeof(typeNames[0]) == QtSoapType::Other + 1,
              "one entry per QtSoapType::Type");

enum class Conversion { Text, Boolean, Float, Double, Integer };

Conversion conversionFor(QtSoapType::Type type)
{
    switch (type) {
    case QtSoapType::Boolean: return Conversion::Boolean;
    case QtSoapType::Float: return Conversion::Float;
    case QtSoapType::Double: return Conversion::Double;
    default: break;
    }
    if (type >= QtSoapType::Decimal && type <= QtSoapType::UnsignedByte)
        return Conversion::Integer;
    return Conversion::Text;
}

// "-5" passes, "+5" and "abc" do not; an empty text passes and reads as 0.
bool looksLikeInteger(const QString& text)
{
    return text.isEmpty() || text.at(0).isNumber() || text.at(0) == QLatin1Char('-');
}

// Built once: every scalar written asks for its type name and writes "xsd:" + name.
struct SharedTypeNames
{
    std::vector<QString> names;       // indexed by QtSoapType::Type
    std::vector<QString> schemaNames; // the same with "xsd:" in front
};

const SharedTypeNames& sharedTypeNames()
{
    static const SharedTypeNames shared = [] {
        SharedTypeNames built;
        for (const TypeNames& entry : typeNames) {
            built.names.push_back(QLatin1String(entry.name));
            built.schemaNames.push_back(QLatin1String("xsd:") + QLatin1String(entry.name));
        }
        return built;
    }();
    return shared;
}

const QtSoapType* missingValues()
{
    static const QtSoapType values[int(SoapNames::MissingValue::Count)];
    return values;
}

} // namespace

QtSoapQName::QtSoapQName(const QString& name, const QString& uri)
    : m_name(name)
    , m_uri(uri)
{
}

QtSoapQName& QtSoapQName::operator=(const QString& name)
{
    m_name = name;
    m_uri = QLatin1String("");
    return *this;
}

namespace {

// Lower-casing, not case folding: folding would also take "s" for the long s (U+017F)
// and the micro sign (U+00B5) for the Greek mu, which lower-casing keeps apart.
bool equalLowerCased(const QString& a, const QString& b)
{
    return a == b || a.toLower() == b.toLower();
}

} // namespace

bool operator==(const QtSoapQName& candidate, const QtSoapQName& key)
{
    const bool sameName = equalLowerCased(candidate.name(), key.name());
    if (key.uri() == QLatin1String(""))
        return sameName;
    return sameName && equalLowerCased(candidate.uri(), key.uri());
}

QtSoapType::QtSoapType()
    : QtSoapType(QtSoapQName(), Other)
{
}

QtSoapType::QtSoapType(const QtSoapQName& name, Type type)
    : typeCode(type)
    , errorText(QStringLiteral("Unknown error"))
    , qualifiedName(name)
{
}

QtSoapType::QtSoapType(const QtSoapType& copy) = default;

QtSoapType& QtSoapType::operator=(const QtSoapType& copy)
{
    if (SoapNames::refusesWrite(this, "operator="))
        return *this;
    typeCode = copy.typeCode;
    errorText = copy.errorText;
    identifier = copy.identifier;
    qualifiedName = copy.qualifiedName;
    spareText = copy.spareText;
    reference = copy.reference;
    return *this;
}

QtSoapType::~QtSoapType() = default;

void QtSoapType::clear() {}
bool QtSoapType::parse(QDomNode) { return false; }
bool QtSoapType::isValid() const { return false; }
int QtSoapType::count() const { return 0; }
QVariant QtSoapType::value() const { return QVariant(); }

// Each form has its own shared "no such value" object. The mutable forms hand out a
// mutable reference to it, which refuses every write; callers test it with isValid().
const QtSoapType& QtSoapType::operator[](const QString&) const
{
    static const QtSoapType notFound;
    return notFound;
}

const QtSoapType& QtSoapType::operator[](const QtSoapQName&) const
{
    static const QtSoapType notFound;
    return notFound;
}

const QtSoapType& QtSoapType::operator[](int) const
{
    static const QtSoapType notFound;
    return notFound;
}

QtSoapType& QtSoapType::operator[](const QString&) { return SoapNames::missingValue(SoapNames::MissingValue::TypeByString); }
QtSoapType& QtSoapType::operator[](const QtSoapQName&) { return SoapNames::missingValue(SoapNames::MissingValue::TypeByName); }
QtSoapType& QtSoapType::operator[](int) { return SoapNames::missingValue(SoapNames::MissingValue::TypeByIndex); }

QDomElement QtSoapType::toDomElement(QDomDocument) const { return QDomElement(); }
QtSoapType::Type QtSoapType::type() const { return typeCode; }
QString QtSoapType::id() const { return identifier; }
QString QtSoapType::href() const { return reference; }
QString QtSoapType::typeName() const { return typeToName(type()); }
QtSoapQName QtSoapType::name() const { return qualifiedName; }
QString QtSoapType::toString() const { return QString(); }
int QtSoapType::toInt() const { return 0; }
bool QtSoapType::toBool() const { return false; }

void QtSoapType::setName(const QtSoapQName& name)
{
    if (!SoapNames::refusesWrite(this, "setName"))
        qualifiedName = name;
}

void QtSoapType::setId(const QString& id)
{
    if (!SoapNames::refusesWrite(this, "setId"))
        identifier = id;
}

void QtSoapType::setHref(const QString& ref)
{
    if (!SoapNames::refusesWrite(this, "setHref"))
        reference = ref;
}
QString QtSoapType::errorString() const { return errorText; }

QString QtSoapType::typeToName(Type type)
{
    if (type < Duration || type > Struct)
        type = Other;
    return sharedTypeNames().names[type];
}

QtSoapType::Type QtSoapType::nameToType(const QString& name)
{
    const SoapNames::KnownTypeName* known = SoapNames::findKnownTypeName(name.trimmed().toLower());
    return known ? known->type : Other;
}

QtSoapSimpleType::QtSoapSimpleType()
    : QtSoapType()
{
}

QtSoapSimpleType::QtSoapSimpleType(const QtSoapQName& name)
    : QtSoapType(name, Other)
{
}

QtSoapSimpleType::QtSoapSimpleType(const QtSoapQName& name, int n)
    : QtSoapType(name, Int)
    , scalarValue(n)
{
}

QtSoapSimpleType::QtSoapSimpleType(const QtSoapQName& name, bool n, int)
    : QtSoapType(name, Boolean)
    , scalarValue(n)
{
}

QtSoapSimpleType::QtSoapSimpleType(const QtSoapQName& name, const QString& n)
    : QtSoapType(name, String)
    , scalarValue(n)
{
}

QtSoapSimpleType::QtSoapSimpleType(const QtSoapSimpleType& copy) = default;
QtSoapSimpleType& QtSoapSimpleType::operator=(const QtSoapSimpleType& copy) = default;
QtSoapSimpleType::~QtSoapSimpleType() = default;

void QtSoapSimpleType::clear() { scalarValue.clear(); }
bool QtSoapSimpleType::isValid() const { return true; }
QVariant QtSoapSimpleType::value() const { return scalarValue; }
QString QtSoapSimpleType::toString() const { return scalarValue.toString(); }
int QtSoapSimpleType::toInt() const { return scalarValue.toInt(); }
bool QtSoapSimpleType::toBool() const { return scalarValue.toBool(); }

QDomElement QtSoapSimpleType::toDomElement(QDomDocument doc) const
{
    QDomElement element = SoapNames::createNamedElement(doc, qualifiedName.name(), qualifiedName.uri());
    // The "xsd:" is literal, whatever prefix the schema namespace has. A name that
    // typeToName handed out (no override of typeName() made its own) has its value
    // ready made.
    const QString name = typeName();
    const SharedTypeNames& shared = sharedTypeNames();
    const Type named = typeCode >= Duration && typeCode <= Struct ? typeCode : Other;
    element.setAttributeNS(SoapNames::schemaInstanceUri(), SoapNames::schemaInstanceTypeName(),
                           name.isSharedWith(shared.names[named]) ? shared.schemaNames[named]
                                                                  : QString(QLatin1String("xsd:") + name));
    element.appendChild(doc.createTextNode(scalarValue.toString()));
    return element;
}

bool QtSoapSimpleType::parse(QDomNode node)
{
    if (node.isNull() || !node.isElement())
        return false;
    QDomElement element = node.toElement();
    const QDomAttr typeAttribute = element.attributeNode(QStringLiteral("type"));
    // The type is taken before the conversion and kept if the conversion fails.
    if (typeAttribute.isNull()) {
        typeCode = String;
    } else {
        const QString typeText = typeAttribute.value();
        const QStringView local = SoapNames::localNameView(typeText);
        if (SoapNames::isPlainLowerCase(local)) { // what senders write: no copy needed
            const SoapNames::KnownTypeName* known = SoapNames::findKnownTypeName(local);
            typeCode = known ? known->type : Other;
        } else {
            typeCode = nameToType(SoapNames::localName(typeText).toLower());
        }
    }

    const QString text = element.text();
    switch (conversionFor(typeCode)) {
    case Conversion::Text:
        scalarValue = text;
        break;
    case Conversion::Boolean: {
        // Only the words count; "0", "1" and anything else leave the value alone.
        const QString word = text.trimmed().toLower();
        if (word == QLatin1String("false"))
            scalarValue = false;
        else if (word == QLatin1String("true"))
            scalarValue = true;
        break;
    }
    case Conversion::Float:
        scalarValue = text.toFloat();
        break;
    case Conversion::Double:
        scalarValue = text.toDouble();
        break;
    case Conversion::Integer:
        if (!looksLikeInteger(text)) {
            errorText = QStringLiteral("Type error at element \"") + element.tagName() + QLatin1Char('"');
            return false;
        }
        // Always a 32-bit int: "1.5" or values beyond 32 bits read as 0.
        scalarValue = text.toInt(nullptr, 10);
        break;
    }
    qualifiedName = QtSoapQName(SoapNames::localName(element.tagName()), element.namespaceURI());
    return true;
}

} // namespace VEXA_NAMESPACE

namespace SoapNames {

const KnownTypeName* findKnownTypeName(QStringView lowerCaseName)
{
    // The keys that a lower-cased name can match, and the factory's other names,
    // which read as Other; sorted for a binary search.
    static const std::vector<KnownTypeName> names = [] {
        std::vector<KnownTypeName> list;
        for (int type = VEXA_NAMESPACE::QtSoapType::Duration; type <= VEXA_NAMESPACE::QtSoapType::Other; ++type) {
            const char* key = VEXA_NAMESPACE::typeNames[type].key;
            if (key && QLatin1String(key) == QString::fromLatin1(key).toLower())
                list.push_back({QLatin1String(key), VEXA_NAMESPACE::QtSoapType::Type(type)});
        }
        for (const char* other : {"array", "struct", "other", "nmtokens", "nonpositiveinteger", "hexbinary"})
            list.push_back({QLatin1String(other), VEXA_NAMESPACE::QtSoapType::Other});
        std::sort(list.begin(), list.end(),
                  [](const KnownTypeName& a, const KnownTypeName& b) { return a.text < b.text; });
        return list;
    }();
    const auto found = std::lower_bound(names.begin(), names.end(), lowerCaseName,
                                        [](const KnownTypeName& entry, QStringView name) {
                                            return QStringView(entry.text).compare(name) < 0;
                                        });
    if (found == names.end() || QStringView(found->text) != lowerCaseName)
        return nullptr;
    return &*found;
}

} // namespace SoapNames

VEXA_NAMESPACE::QtSoapType& SoapNames::missingValue(MissingValue form)
{
    // Never written: every write to one of these is refused below.
    return const_cast<VEXA_NAMESPACE::QtSoapType&>(VEXA_NAMESPACE::missingValues()[int(form)]);
}

bool SoapNames::refusesWrite(const VEXA_NAMESPACE::QtSoapType* value, const char* operation)
{
    const VEXA_NAMESPACE::QtSoapType* first = VEXA_NAMESPACE::missingValues();
    const std::less<const VEXA_NAMESPACE::QtSoapType*> before;
    if (before(value, first) || !before(value, first + int(MissingValue::Count)))
        return false;
    qWarning("QtSoapType::%s: a value that was not found cannot be changed", operation);
    return true;
}
