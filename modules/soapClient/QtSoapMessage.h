#pragma once

#include "QtSoapStruct.h"
#include "QtSoapType.h"

#include <QByteArray>
#include <QDomDocument>
#include <QString>

/// \file
/// \brief SOAP 1.1 envelopes.

namespace VEXA_NAMESPACE {

/// \brief One SOAP 1.1 message, request or response, used as a value.
///
/// Copies share the items of the value tree. The first message constructed in the
/// process fills the QtSoapNamespaces table. A message belongs to one thread at a time.
/// Operations that take a QtSoapType pointer take ownership of the item when they
/// store it.
class UTILSDLL_EXPORT QtSoapMessage
{
public:
    /// What a message holds.
    enum MessageType {
        FaultMessage,   ///< A fault.
        MethodRequest,  ///< A call of a method.
        MethodResponse, ///< The answer of a method.
        OtherMessage    ///< Anything else, and an empty message.
    };
    /// The fault codes of SOAP 1.1.
    enum FaultCode {
        VersionMismatch, ///< The envelope is not SOAP 1.1; also every validation failure here.
        MustUnderstand,  ///< A header item that had to be understood was not.
        Client,          ///< The request was at fault.
        Server,          ///< The server failed.
        Other            ///< No fault, or a code of none of these kinds.
    };

    /// An empty envelope with an empty body.
    QtSoapMessage();
    /// Shares the items of \p copy.
    QtSoapMessage(const QtSoapMessage& copy);
    /// Shares the items of \p copy.
    QtSoapMessage& operator=(const QtSoapMessage& copy);
    ~QtSoapMessage();

    /// \brief Parses \p buffer as a whole envelope and builds the value tree.
    ///
    /// Failures leave their reasons as fault elements in the body, not in
    /// errorString(); earlier content is not cleared. A text is refused as an XML
    /// parse error, whatever the DOM thinks of it, if it holds a document type
    /// declaration, nests elements more than 100 deep, or holds more than 350,000
    /// elements, attributes and texts together (some 175 MB of tree).
    bool setContent(const QByteArray& buffer);
    /// Builds the value tree from the parsed document \p doc, after checking that it is
    /// a SOAP envelope; a failed check leaves a VersionMismatch fault in the body.
    bool setContent(QDomDocument& doc);
    /// The envelope as XML text, indented by \p indent spaces per level as
    /// QDomDocument::toString() does.
    QString toXmlString(int indent = 0) const;
    /// The text of the last failure that did not become a fault.
    QString errorString() const;
    /// Empties the message: no method, no header, an empty body.
    void clear();

    /// Appends \p item to the body, which owns it from then on.
    void addBodyItem(QtSoapType* item);
    /// Appends \p item to the header, which owns it from then on.
    void addHeaderItem(QtSoapType* item);

    /// Makes the message a request for the method \p name: its element becomes the
    /// body's first item.
    void setMethod(const QtSoapQName& name);
    /// setMethod() with the method's local \p name and namespace \p uri.
    void setMethod(const QString& name, const QString& uri = QString());
    /// \brief Appends the argument \p arg to the method, which owns it from then on.
    ///
    /// Without a method set (or when the method is a scalar) the argument is refused
    /// with a warning and stays the caller's.
    void addMethodArgument(QtSoapType* arg);
    /// Appends the String argument \p value named \p name in \p uri; a refused one is freed.
    void addMethodArgument(const QString& name, const QString& uri, const QString& value);
    /// Appends the Boolean argument \p value; \p dummy only tells this form apart from
    /// the integer one. A refused one is freed.
    void addMethodArgument(const QString& name, const QString& uri, bool value, int dummy);
    /// Appends the Int argument \p value; a refused one is freed.
    void addMethodArgument(const QString& name, const QString& uri, int value);

    /// The body's first item, the method of a request or response; the shared invalid
    /// value for an empty body.
    const QtSoapType& method() const;
    /// The first item of the method of a response; the shared invalid value when there
    /// is none.
    const QtSoapType& returnValue() const;

    /// Whether the body holds a fault with a known code: faultCode() is not Other.
    bool isFault() const;
    /// The code of the body's fault, Other when there is none.
    FaultCode faultCode() const;
    /// The fault's text; the shared invalid value when there is none.
    const QtSoapType& faultString() const;
    /// The fault's detail element; the shared invalid value when there is none.
    const QtSoapType& faultDetail() const;

    /// Makes the message a fault with \p code, creating the fault element if needed.
    void setFaultCode(FaultCode code);
    /// Sets the fault's text.
    void setFaultString(const QString& text);
    /// Appends \p item to the fault's detail, which owns it from then on.
    void addFaultDetail(QtSoapType* item);

protected:
    /// Registers the SOAP and schema namespaces, once per process.
    void init();
    /// Whether \p doc is a SOAP 1.1 envelope; a failure is recorded as a VersionMismatch
    /// fault in this message.
    bool isValidSoapMessage(const QDomDocument& doc);
    /// The body element. Both this and header() create their element on demand,
    /// though const.
    QtSoapStruct& body() const;
    /// The header element; see body().
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
