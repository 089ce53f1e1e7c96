#pragma once

#include "QtSoapStruct.h"
#include "QtSoapType.h"

#include <QByteArray>
#include <QDomDocument>
#include <QString>

namespace VEXA_NAMESPACE {

// One SOAP 1.1 message, request or response, used as a value. Copies share the
// items of the value tree.
class UTILSDLL_EXPORT QtSoapMessage
{
public:
    enum MessageType { FaultMessage, MethodRequest, MethodResponse, OtherMessage };
    enum FaultCode { VersionMismatch, MustUnderstand, Client, Server, Other };

    QtSoapMessage();
    QtSoapMessage(const QtSoapMessage& copy);
    QtSoapMessage& operator=(const QtSoapMessage& copy);
    ~QtSoapMessage();

    // Failures leave their reasons as fault elements in the body, not in
    // errorString(); earlier content is not cleared. A text is refused as an XML
    // parse error, whatever the DOM thinks of it, if it holds a document type
    // declaration, nests elements more than 100 deep, or holds more than 350,000
    // elements, attributes and texts together (some 175 MB of tree).
    bool setContent(const QByteArray& buffer);
    bool setContent(QDomDocument& doc);
    QString toXmlString(int indent = 0) const;
    QString errorString() const;
    void clear();

    void addBodyItem(QtSoapType* item);
    void addHeaderItem(QtSoapType* item);

    void setMethod(const QtSoapQName& name);
    void setMethod(const QString& name, const QString& uri = QString());
    void addMethodArgument(QtSoapType* arg);
    void addMethodArgument(const QString& name, const QString& uri, const QString& value);
    void addMethodArgument(const QString& name, const QString& uri, bool value, int dummy);
    void addMethodArgument(const QString& name, const QString& uri, int value);

    const QtSoapType& method() const;
    const QtSoapType& returnValue() const;

    bool isFault() const;
    FaultCode faultCode() const;
    const QtSoapType& faultString() const;
    const QtSoapType& faultDetail() const;

    void setFaultCode(FaultCode code);
    void setFaultString(const QString& text);
    void addFaultDetail(QtSoapType* item);

protected:
    void init();
    bool isValidSoapMessage(const QDomDocument& doc);
    // Both create their element on demand, though const.
    QtSoapStruct& body() const;
    QtSoapStruct& header() const;

private:
    bool storeMethodArgument(QtSoapType* arg);
    void failValidation(const QString& message);
    void resetForFault();
    QtSoapStruct& fault();
    static QtSoapStruct& structMember(QtSoapStruct& parent, const QtSoapQName& key);

    int messageKind;
    mutable QtSoapStruct envelope;
    QtSoapQName methodName;
    QtSoapStruct methodArguments;
    QString errorText;
};

} // namespace VEXA_NAMESPACE
