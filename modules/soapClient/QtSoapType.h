#pragma once

#include "UtilsDllGlobal.h"

#include <QDomDocument>
#include <QDomElement>
#include <QDomNode>
#include <QString>
#include <QVariant>

namespace VEXA_NAMESPACE {

// A local name with a namespace URI; an empty URI means "no namespace".
class UTILSDLL_EXPORT QtSoapQName
{
public:
    QtSoapQName(const QString& name = QString(), const QString& uri = QString());
    QtSoapQName(const QtSoapQName&) = default;
    QtSoapQName& operator=(const QtSoapQName&) = default;
    ~QtSoapQName() = default;

    // Assigning a plain string always drops the namespace.
    QtSoapQName& operator=(const QString& name);

    QString name() const { return m_name; }
    QString uri() const { return m_uri; }

private:
    QString m_name;
    QString m_uri;
};

// Equality used by every look-up by name, candidate first and key second. It is
// case-insensitive and asymmetric on purpose: a key without a namespace matches a
// candidate in any namespace, while a key with one never matches a candidate
// without it. Replies from servers that qualify differently rely on that.
UTILSDLL_EXPORT bool operator==(const QtSoapQName& candidate, const QtSoapQName& key);

// Polymorphic base of every value of a SOAP message. "Not found" is expressed by
// returning a shared, invalid instance of this class (test it with isValid()).
class UTILSDLL_EXPORT QtSoapType
{
public:
    enum Type {
        Duration, DateTime, Time, Date, GYearMonth, GYear, GMonthDay, GDay, GMonth,
        Boolean, Base64Binary, HexBinary, Float, Double, AnyURI, QName, Notation,
        String, NormalizedString, Token, Language, Name, NMToken, NCName, ID, IDRef,
        Entity, Decimal, Integer, NonPositiveInteger, NegativeInteger, Long, Int,
        Short, Byte, NonNegativeInteger, UnsignedLong, PositiveInteger, UnsignedInt,
        UnsignedShort, UnsignedByte, Array, Struct, Other
    };

    QtSoapType();
    QtSoapType(const QtSoapQName& name, Type type = Other);
    QtSoapType(const QtSoapType& copy);
    QtSoapType& operator=(const QtSoapType& copy);
    virtual ~QtSoapType();

    virtual void clear();
    virtual bool parse(QDomNode node);
    virtual bool isValid() const;
    virtual int count() const;
    virtual QVariant value() const;

    virtual const QtSoapType& operator[](const QString& key) const;
    virtual const QtSoapType& operator[](const QtSoapQName& key) const;
    virtual const QtSoapType& operator[](int pos) const;
    virtual QtSoapType& operator[](const QString& key);
    virtual QtSoapType& operator[](const QtSoapQName& key);
    virtual QtSoapType& operator[](int pos);

    virtual QDomElement toDomElement(QDomDocument doc) const;

    virtual Type type() const;
    virtual QString id() const;
    virtual QString href() const;
    virtual QString typeName() const;
    virtual QtSoapQName name() const;

    virtual QString toString() const;
    virtual int toInt() const;
    virtual bool toBool() const;

    void setName(const QtSoapQName& name);
    void setId(const QString& identifier);
    void setHref(const QString& reference);
    QString errorString() const;

    static QString typeToName(Type type);
    static Type nameToType(const QString& name);

protected:
    Type typeCode;
    QString errorText;
    QString identifier;
    QtSoapQName qualifiedName;
    QString spareText;
    QString reference;
};

// A scalar: any XML Schema simple type, held in a QVariant.
class UTILSDLL_EXPORT QtSoapSimpleType : public QtSoapType
{
public:
    QtSoapSimpleType();
    QtSoapSimpleType(const QtSoapQName& name);
    QtSoapSimpleType(const QtSoapQName& name, int n);
    // dummy only tells this boolean form apart from the integer one.
    QtSoapSimpleType(const QtSoapQName& name, bool n, int dummy);
    QtSoapSimpleType(const QtSoapQName& name, const QString& n);
    QtSoapSimpleType(const QtSoapSimpleType& copy);
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
    QVariant scalarValue;
};

} // namespace VEXA_NAMESPACE
