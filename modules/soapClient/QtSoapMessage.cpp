#include "QtSoapMessage.h"

#include "QtSoapNamespaces.h"
#include "SoapNames_p.h"
#include "XmlNestingGuard_p.h"

#include <QDomImplementation>

namespace VEXA_NAMESPACE {

namespace {

// Far beyond any real envelope, and within a small thread stack: Qt's DOM parser
// recurses once per level with about 1.4 KB of stack, and the value tree once more,
// so 100 levels take some 170 KB, and a thousand would overflow the 1 MB of a
// Windows thread. Entities cannot add depth behind this count: a document that
// declares any is refused before the DOM expands them (Qt bounds only entities that
// refer to other entities, and a single entity may hold any amount of markup).
const int maximumNestingDepth = 100;

// Each element, attribute or text costs the DOM and the value tree together up to
// about 500 bytes (measured: attributes cost most), a hundred times the four bytes of
// "<i/>", so an 8 MiB reply of tiny items would take some 800 MB. This budget bounds
// one reply to about 175 MB, while the largest replies we expect (10,000 records of
// five typed fields: 160,000 nodes) pass with room to spare.
const int maximumNodes = 350000;

QString faultCodeText(QtSoapMessage::FaultCode code)
{
    switch (code) {
    case QtSoapMessage::VersionMismatch: return QStringLiteral("SOAP-ENV:VersionMismatch");
    case QtSoapMessage::MustUnderstand: return QStringLiteral("SOAP-ENV:MustUnderstand");
    case QtSoapMessage::Client: return QStringLiteral("SOAP-ENV:Client");
    case QtSoapMessage::Server: return QStringLiteral("SOAP-ENV:Server");
    case QtSoapMessage::Other: return QStringLiteral("Other");
    }
    return QString();
}

QString upperLocalTagName(const QDomNode& node)
{
    return SoapNames::localName(node.toElement().tagName()).toUpper();
}

} // namespace

QtSoapMessage::QtSoapMessage()
    : messageKind(OtherMessage)
    , envelope(QtSoapQName(QStringLiteral("Envelope"), SoapNames::envelopeUri()))
{
    init();
}

QtSoapMessage::QtSoapMessage(const QtSoapMessage& copy)
    : messageKind(copy.messageKind)
    , envelope(copy.envelope)
    , methodName(copy.methodName)
    , methodArguments(copy.methodArguments)
    , errorText(copy.errorText)
{
    init();
}

// Everything but the kind, which stays that of the target.
QtSoapMessage& QtSoapMessage::operator=(const QtSoapMessage& copy)
{
    envelope = copy.envelope;
    methodName = copy.methodName;
    methodArguments = copy.methodArguments;
    errorText = copy.errorText;
    return *this;
}

QtSoapMessage::~QtSoapMessage() = default;

namespace {

void registerMessageNamespaces()
{
    QtSoapNamespaces& table = QtSoapNamespaces::instance();
    table.registerNamespace(QStringLiteral("SOAP-ENV"), SoapNames::envelopeUri());
    table.registerNamespace(QStringLiteral("SOAP-ENC"), SoapNames::encodingUri());
    table.registerNamespace(QStringLiteral("xsi"), SoapNames::schemaInstanceUri());
    table.registerNamespace(QStringLiteral("xsd"), SoapNames::schemaUri());
}

} // namespace

// Runs at every construction, so a caller's change to one of these prefixes is
// undone by the next message. The first messages may be built on several threads at
// once: one of them fills the table while the others wait, and from then on a
// registration that changes nothing writes nothing.
void QtSoapMessage::init()
{
    static const bool filled = (registerMessageNamespaces(), true);
    Q_UNUSED(filled);
    registerMessageNamespaces();
}

void QtSoapMessage::clear()
{
    messageKind = OtherMessage;
    envelope.clear();
    methodName = QtSoapQName();
    methodArguments.clear();
    errorText = QStringLiteral("Unknown error");
}

QString QtSoapMessage::errorString() const
{
    return errorText;
}

// A member that came from the wire may be a scalar or an array (an empty <Body/>
// is read as a string); writing into it as a struct would corrupt memory, so such
// a member is replaced in place by an empty struct of the same name.
QtSoapStruct& QtSoapMessage::structMember(QtSoapStruct& parent, const QtSoapQName& key)
{
    QtSoapType& found = parent.at(key);
    if (!found.isValid()) {
        auto* created = new QtSoapStruct(key);
        parent.insert(created);
        return *created;
    }
    if (auto* asStruct = dynamic_cast<QtSoapStruct*>(&found))
        return *asStruct;
    auto* replacement = new QtSoapStruct(found.name());
    for (QtSmartPtr<QtSoapType>& member : parent.items) {
        if (member.ptr() == &found) {
            member = QtSmartPtr<QtSoapType>(replacement);
            break;
        }
    }
    return *replacement;
}

QtSoapStruct& QtSoapMessage::body() const
{
    return structMember(envelope, QtSoapQName(QStringLiteral("Body"), SoapNames::envelopeUri()));
}

QtSoapStruct& QtSoapMessage::header() const
{
    return structMember(envelope, QtSoapQName(QStringLiteral("Header"), SoapNames::envelopeUri()));
}

void QtSoapMessage::addBodyItem(QtSoapType* item)
{
    body().insert(item);
}

// The envelope keeps its children in the order they were first needed: call this
// before setMethod to get the header in front of the body.
void QtSoapMessage::addHeaderItem(QtSoapType* item)
{
    header().insert(item);
}

// Does not replace an earlier method: a second call adds a second method element.
void QtSoapMessage::setMethod(const QtSoapQName& name)
{
    if (messageKind != MethodRequest && messageKind != OtherMessage) {
        clear();
        messageKind = MethodRequest;
    }
    body().insert(new QtSoapStruct(name));
}

void QtSoapMessage::setMethod(const QString& name, const QString& uri)
{
    setMethod(QtSoapQName(name, uri));
}

void QtSoapMessage::addMethodArgument(QtSoapType* arg)
{
    storeMethodArgument(arg);
}

bool QtSoapMessage::storeMethodArgument(QtSoapType* arg)
{
    QtSoapStruct& messageBody = body();
    // A method read from the wire may be a scalar; it cannot take arguments, which
    // is the same misuse as having no method.
    QtSoapStruct* method = messageBody.count() == 0 ? nullptr : dynamic_cast<QtSoapStruct*>(&messageBody[0]);
    if (!method) {
        qWarning("Attempted to add argument (%s:%s) without first setting method",
                 arg->name().uri().toLatin1().constData(), arg->name().name().toLatin1().constData());
        return false;
    }
    method->insert(arg);
    return true;
}

// These forms create the scalar themselves, so a refused one has no other owner
// and is freed here.
void QtSoapMessage::addMethodArgument(const QString& name, const QString& uri, const QString& value)
{
    auto* arg = new QtSoapSimpleType(QtSoapQName(name, uri), value);
    if (!storeMethodArgument(arg))
        delete arg;
}

void QtSoapMessage::addMethodArgument(const QString& name, const QString& uri, bool value, int dummy)
{
    auto* arg = new QtSoapSimpleType(QtSoapQName(name, uri), value, dummy);
    if (!storeMethodArgument(arg))
        delete arg;
}

void QtSoapMessage::addMethodArgument(const QString& name, const QString& uri, int value)
{
    auto* arg = new QtSoapSimpleType(QtSoapQName(name, uri), value);
    if (!storeMethodArgument(arg))
        delete arg;
}

const QtSoapType& QtSoapMessage::method() const
{
    const QtSoapStruct& messageBody = body();
    if (messageBody.count() == 0) {
        static const QtSoapType notFound;
        return notFound;
    }
    return messageBody[0];
}

const QtSoapType& QtSoapMessage::returnValue() const
{
    const QtSoapType& methodElement = method();
    if (methodElement.isValid() && methodElement.type() == QtSoapType::Struct && methodElement.count() > 0)
        return methodElement[0];
    static const QtSoapType notFound;
    return notFound;
}

void QtSoapMessage::resetForFault()
{
    if (messageKind != FaultMessage && messageKind != OtherMessage) {
        clear();
        messageKind = FaultMessage;
    }
}

QtSoapStruct& QtSoapMessage::fault()
{
    return structMember(body(), QtSoapQName(QStringLiteral("Fault"), SoapNames::envelopeUri()));
}

// Appends: an earlier code is not replaced, and faultCode() sees the first one.
void QtSoapMessage::setFaultCode(FaultCode code)
{
    resetForFault();
    fault().insert(new QtSoapSimpleType(QtSoapQName(QStringLiteral("Faultcode")), faultCodeText(code)));
}

void QtSoapMessage::setFaultString(const QString& text)
{
    resetForFault();
    fault().insert(new QtSoapSimpleType(QtSoapQName(QStringLiteral("Faultstring")), text));
}

// Written as "Faultdetail" while faultDetail() looks for "Detail": a message's own
// details are invisible to it on purpose, it reports only what came from the wire.
void QtSoapMessage::addFaultDetail(QtSoapType* item)
{
    resetForFault();
    structMember(fault(), QtSoapQName(QStringLiteral("Faultdetail"), SoapNames::envelopeUri())).insert(item);
}

QtSoapMessage::FaultCode QtSoapMessage::faultCode() const
{
    const QtSoapStruct& messageBody = body();
    const QtSoapType& code = messageBody[QtSoapQName(QStringLiteral("Fault"))][QtSoapQName(QStringLiteral("Faultcode"))];
    if (!code.isValid() || (code.type() != QtSoapType::String && code.type() != QtSoapType::QName))
        return Other;
    QString text = code.value().toString();
    const int stop = text.indexOf(QLatin1Char('.'));
    if (stop != -1)
        text.truncate(stop);
    text = SoapNames::localName(text.toLower());
    if (text == QLatin1String("versionmismatch"))
        return VersionMismatch;
    if (text == QLatin1String("mustunderstand"))
        return MustUnderstand;
    if (text == QLatin1String("client"))
        return Client;
    if (text == QLatin1String("server"))
        return Server;
    return Other;
}

bool QtSoapMessage::isFault() const
{
    return faultCode() != Other;
}

const QtSoapType& QtSoapMessage::faultString() const
{
    const QtSoapStruct& messageBody = body();
    return messageBody[QtSoapQName(QStringLiteral("Fault"), SoapNames::envelopeUri())]
                      [QtSoapQName(QStringLiteral("Faultstring"))];
}

const QtSoapType& QtSoapMessage::faultDetail() const
{
    const QtSoapStruct& messageBody = body();
    return messageBody[QtSoapQName(QStringLiteral("Fault"), SoapNames::envelopeUri())]
                      [QtSoapQName(QStringLiteral("Detail"))];
}

// Every validation failure is reported as VersionMismatch, structure faults too.
void QtSoapMessage::failValidation(const QString& message)
{
    setFaultCode(VersionMismatch);
    setFaultString(QStringLiteral("SOAP structure invalid"));
    addFaultDetail(new QtSoapSimpleType(QtSoapQName(QStringLiteral("extra")), message));
}

bool QtSoapMessage::isValidSoapMessage(const QDomDocument& doc)
{
    QDomNode node = doc.firstChild();
    if (node.isNull())
        return false;
    if (node.isProcessingInstruction()) {
        node = node.nextSibling();
        if (node.isNull() || !node.isElement())
            return false;
    }
    const QDomElement root = node.toElement();
    if (upperLocalTagName(root) != QLatin1String("ENVELOPE")) {
        failValidation(QStringLiteral("root element \"") + root.localName() + QStringLiteral("\"/\"")
                       + root.tagName() + QStringLiteral("\" is not envelope"));
        return false;
    }
    QDomNode child = root.firstChild();
    if (child.isNull() || !child.isElement()) {
        failValidation(QStringLiteral("mandatory body element missing"));
        return false;
    }
    if (upperLocalTagName(child) == QLatin1String("HEADER"))
        child = child.nextSibling();
    if (upperLocalTagName(child) != QLatin1String("BODY")) {
        failValidation(QStringLiteral("mandatory body element missing"));
        return false;
    }
    if (root.namespaceURI() != SoapNames::envelopeUri()) {
        failValidation(QStringLiteral("Unsupported namespace for envelope element"));
        return false;
    }
    return true;
}

static QDomNode envelopeNodeOf(const QDomDocument& doc)
{
    const QDomNode first = doc.firstChild();
    return first.isElement() ? first : first.nextSibling();
}

bool QtSoapMessage::setContent(const QByteArray& buffer)
{
    QDomDocument doc;
    QString message;
    int line = 0;
    int column = 0;
    const XmlNestingGuard::Refusal refusal = XmlNestingGuard::findRefusal(buffer, maximumNestingDepth, maximumNodes);
    if (refusal.found) {
        // Reported like any other parse error, before the DOM can expand an entity,
        // recurse itself out of stack or fill the memory.
        message = refusal.reason;
        line = refusal.line;
        column = refusal.column;
    }
    if (refusal.found || !doc.setContent(buffer, true, &message, &line, &column)) {
        const QString text = QString::asprintf("%s at line %i, column %i", message.toUtf8().constData(), line, column);
        setFaultCode(VersionMismatch);
        setFaultString(QStringLiteral("XML parse error"));
        addFaultDetail(new QtSoapSimpleType(QtSoapQName(QStringLiteral("ParseError")), text));
        return false;
    }
    if (!isValidSoapMessage(doc))
        return false;
    if (!envelope.parse(envelopeNodeOf(doc))) {
        qDebug("QtSoapMessage::setContent(), parsing failed: %s", envelope.errorString().toUtf8().constData());
        return false;
    }
    return true;
}

bool QtSoapMessage::setContent(QDomDocument& doc)
{
    if (!isValidSoapMessage(doc))
        return false;
    clear();
    return envelope.parse(envelopeNodeOf(doc));
}

QString QtSoapMessage::toXmlString(int indent) const
{
    QDomImplementation implementation;
    QDomDocument doc = implementation.createDocument(QString(), QStringLiteral("placeholder"), QDomDocumentType());
    doc.removeChild(doc.documentElement());

    QDomElement root = envelope.toDomElement(doc);
    doc.appendChild(root);
    root.setAttribute(SoapNames::qualifiedAttributeName(SoapNames::envelopeUri(), QStringLiteral("encodingStyle")),
                      SoapNames::encodingUri());
    root.setAttribute(QStringLiteral("xmlns:") + QtSoapNamespaces::instance().prefixFor(SoapNames::schemaUri()),
                      SoapNames::schemaUri());
    return doc.toString(indent);
}

} // namespace VEXA_NAMESPACE
