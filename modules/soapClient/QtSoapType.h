#pragma once

#include "UtilsDllGlobal.h"

#include <QDomDocument>
#include <QDomElement>
#include <QDomNode>
#include <QString>
#include <QVariant>

/// \file
/// \brief SOAP names and values: the base of every value, and scalars.

namespace VEXA_NAMESPACE {

/// \brief A local name with a namespace URI; an empty URI means "no namespace".
class UTILSDLL_EXPORT QtSoapQName
{
public:
    /// The local name \p name in the namespace \p uri.
    QtSoapQName(const QString& name = QString(), const QString& uri = QString());
    /// Copies name and URI.
    QtSoapQName(const QtSoapQName&) = default;
    /// Copies name and URI.
    QtSoapQName& operator=(const QtSoapQName&) = default;
    ~QtSoapQName() = default;

    /// Sets the local name. Assigning a plain string always drops the namespace.
    QtSoapQName& operator=(const QString& name);

    /// The local name.
    QString name() const { return m_name; }
    /// The namespace URI; empty for no namespace.
    QString uri() const { return m_uri; }

private:
    QString m_name;
    QString m_uri;
};

/// \brief Equality used by every look-up by name, \p candidate first and \p key second.
///
/// Names are equal after lower-casing, and the test is asymmetric on purpose: a key
/// without a namespace matches a candidate in any namespace, while a key with one never
/// matches a candidate without it. Replies from servers that qualify differently rely
/// on that. \relates QtSoapQName
UTILSDLL_EXPORT bool operator==(const QtSoapQName& candidate, const QtSoapQName& key);

/// \brief Polymorphic base of every value of a SOAP message.
///
/// "Not found" is expressed by returning a reference to a shared, invalid instance of
/// this class (test it with isValid()); writes to that instance are refused with a
/// warning. A value tree and its copies belong to one thread at a time.
class UTILSDLL_EXPORT QtSoapType
{
public:
    /// The kinds of value: the XML Schema simple types, then the compound kinds.
    /// typeToName() gives the name written on the wire.
    enum Type {
        Duration, ///< xsd:duration
        DateTime, ///< xsd:dateTime
        Time, ///< xsd:time
        Date, ///< xsd:date
        GYearMonth, ///< xsd:gYearMonth
        GYear, ///< xsd:gYear
        GMonthDay, ///< xsd:gMonthDay
        GDay, ///< xsd:gDay
        GMonth, ///< xsd:gMonth
        Boolean, ///< xsd:boolean
        Base64Binary, ///< xsd:base64Binary
        HexBinary, ///< xsd:hexBinary
        Float, ///< xsd:float
        Double, ///< xsd:double
        AnyURI, ///< xsd:anyURI
        QName, ///< xsd:QName
        Notation, ///< xsd:NOTATION
        String, ///< xsd:string
        NormalizedString, ///< xsd:normalizedString
        Token, ///< xsd:token
        Language, ///< xsd:language
        Name, ///< xsd:name
        NMToken, ///< xsd:NMToken
        NCName, ///< xsd:NCName
        ID, ///< xsd:ID
        IDRef, ///< xsd:IDREF
        Entity, ///< xsd:ENTITY
        Decimal, ///< xsd:decimal
        Integer, ///< xsd:integer
        NonPositiveInteger, ///< xsd:nonPositiveInteger
        NegativeInteger, ///< xsd:negativeInteger
        Long, ///< xsd:long
        Int, ///< xsd:int
        Short, ///< xsd:short
        Byte, ///< xsd:byte
        NonNegativeInteger, ///< xsd:nonNegativeInteger
        UnsignedLong, ///< xsd:unsignedLong
        PositiveInteger, ///< xsd:positiveInteger
        UnsignedInt, ///< xsd:unsignedInt
        UnsignedShort, ///< xsd:unsignedShort
        UnsignedByte, ///< xsd:unsignedByte
        Array, ///< A QtSoapArray ("array").
        Struct, ///< A QtSoapStruct ("struct").
        Other ///< Anything else, and a value whose type is not known ("other").
    };

    /// A nameless value of type Other.
    QtSoapType();
    /// A value named \p name of type \p type.
    QtSoapType(const QtSoapQName& name, Type type = Other);
    /// Copies the name, type, identifier, reference and error text.
    QtSoapType(const QtSoapType& copy);
    /// Copies as the copy constructor does.
    QtSoapType& operator=(const QtSoapType& copy);
    virtual ~QtSoapType();

    /// Empties the value; the name stays.
    virtual void clear();
    /// \brief Reads the value from the element \p node.
    ///
    /// Answers false, with the reason in errorString(), when the element does not fit.
    virtual bool parse(QDomNode node);
    /// Whether this is a real value; false for the shared "not found" instance.
    virtual bool isValid() const;
    /// The number of items of a compound value; 0 here.
    virtual int count() const;
    /// The value of a scalar; an invalid QVariant here.
    virtual QVariant value() const;

    /// \name Look-up of items
    ///@{

    /// The item named \p key (compared by operator==(const QtSoapQName&, const QtSoapQName&))
    /// or at position \p pos; the shared invalid value when there is none, and always
    /// for a value that has no items.
    virtual const QtSoapType& operator[](const QString& key) const;
    virtual const QtSoapType& operator[](const QtSoapQName& key) const;
    virtual const QtSoapType& operator[](int pos) const;
    virtual QtSoapType& operator[](const QString& key);
    virtual QtSoapType& operator[](const QtSoapQName& key);
    virtual QtSoapType& operator[](int pos);
    ///@}

    /// The value as an element of \p doc, with its children; not added to \p doc.
    virtual QDomElement toDomElement(QDomDocument doc) const;

    /// The kind of value.
    virtual Type type() const;
    /// The value's "id" attribute, the target of an href elsewhere.
    virtual QString id() const;
    /// The value's "href" attribute, a reference to a value with that id.
    virtual QString href() const;
    /// typeToName() of type().
    virtual QString typeName() const;
    /// The element's name.
    virtual QtSoapQName name() const;

    /// A scalar's text; empty here.
    virtual QString toString() const;
    /// A scalar as a number; 0 here.
    virtual int toInt() const;
    /// A scalar as a truth value; false here.
    virtual bool toBool() const;

    /// Renames the value; refused on the shared invalid value.
    void setName(const QtSoapQName& name);
    /// Sets the "id" attribute; refused on the shared invalid value.
    void setId(const QString& identifier);
    /// Sets the "href" attribute; refused on the shared invalid value.
    void setHref(const QString& reference);
    /// Why the last parse() failed.
    QString errorString() const;

    /// The XML Schema name of \p type ("int", "dateTime"); out of range reads as Other.
    static QString typeToName(Type type);
    /// \brief The type of the name \p name, after trimming and lower-casing; Other when
    /// unknown.
    ///
    /// "hexBinary" and "nonPositiveInteger" read back as Other, and the network modules
    /// rely on exactly that.
    static Type nameToType(const QString& name);

protected:
    Type typeCode;             ///< The kind of value.
    QString errorText;         ///< The reason of the last parse() failure.
    QString identifier;        ///< The "id" attribute.
    QtSoapQName qualifiedName; ///< The element's name.
    QString spareText;         ///< Kept for subclasses; unused here.
    QString reference;         ///< The "href" attribute.
};

/// \brief A scalar: any XML Schema simple type, held in a QVariant.
class UTILSDLL_EXPORT QtSoapSimpleType : public QtSoapType
{
public:
    /// A nameless, empty scalar.
    QtSoapSimpleType();
    /// An empty scalar named \p name, of type Other.
    QtSoapSimpleType(const QtSoapQName& name);
    /// The Int \p n, named \p name.
    QtSoapSimpleType(const QtSoapQName& name, int n);
    /// The Boolean \p n, named \p name; \p dummy only tells this form apart from the
    /// integer one.
    QtSoapSimpleType(const QtSoapQName& name, bool n, int dummy);
    /// The String \p n, named \p name.
    QtSoapSimpleType(const QtSoapQName& name, const QString& n);
    /// Copies the value and the base's fields.
    QtSoapSimpleType(const QtSoapSimpleType& copy);
    /// Copies as the copy constructor does.
    QtSoapSimpleType& operator=(const QtSoapSimpleType& copy);
    ~QtSoapSimpleType() override;

    void clear() override;
    bool parse(QDomNode node) override;
    bool isValid() const override;
    QVariant value() const override;
    QDomElement toDomElement(QDomDocument doc) const override;
    QString toString() const override;
    int toInt() const override;
    bool toBool() const override;

protected:
    QVariant scalarValue; ///< The value, of the type that type() names.
};

} // namespace VEXA_NAMESPACE
