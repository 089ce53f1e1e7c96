// Parsing (setContent, then a walk over the return value) and serialising
// (toXmlString(0)) of two envelopes: a response with an array of 10,000 structs of
// five scalars, and a request with one 1 MB string argument. KDSoap parses and
// builds the same texts for comparison, and the BareDom rows do with Qt's DOM alone
// what our path must do at least: build the same element tree and serialise it, or
// load the text and read every element's name, namespace, type and text.
#include "QtSoapMessage.h"
#include "XmlNestingGuard_p.h"

#include <KDSoapClient/KDSoapAuthentication.h>
#include <KDSoapClient/KDSoapMessage.h>
#include <KDSoapClient/KDSoapValue.h>

#include <QCoreApplication>
#include <QDomDocument>
#include <QDomImplementation>
#include <benchmark/benchmark.h>

using VEXA_NAMESPACE::QtSoapMessage;
using VEXA_NAMESPACE::QtSoapType;

// KDSoap's envelope reader and writer are exported from libkdsoap but their
// headers are not installed. These declarations follow the exported symbols; the
// spare bytes cover private members this side does not know about.
class KDSoapMessageReader
{
public:
    enum XmlError { NoError, ParseError, PrematureEndOfDocumentError };
    KDSoapMessageReader();
    XmlError xmlToMessage(const QByteArray& data, KDSoapMessage* message, QString* messageNamespace,
                          KDSoapHeaders* headers, KDSoap::SoapVersion version) const;

private:
    char m_spare[64];
};

class KDSoapMessageWriter
{
public:
    KDSoapMessageWriter();
    void setVersion(KDSoap::SoapVersion version);
    void setMessageNamespace(const QString& ns);
    QByteArray messageToXml(const KDSoapMessage& message, const QString& method, const KDSoapHeaders& headers,
                            const QMap<QString, KDSoapMessage>& persistentHeaders,
                            const KDSoapAuthentication& authentication) const;

private:
    QString m_messageNamespace; // setMessageNamespace assigns at offset 0
    char m_spare[64];
};

namespace {

const int structCount = 10000;

QByteArray arrayResponse()
{
    QByteArray xml =
        "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
        "xmlns:SOAP-ENC=\"http://schemas.xmlsoap.org/soap/encoding/\" "
        "xmlns:xsi=\"http://www.w3.org/1999/XMLSchema-instance\" xmlns:xsd=\"http://www.w3.org/1999/XMLSchema\">"
        "<SOAP-ENV:Body><m:getLensesResponse xmlns:m=\"urn:lenses\">"
        "<return xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"m:Lens[10000]\">";
    for (int i = 0; i < structCount; ++i) {
        const QByteArray n = QByteArray::number(i);
        xml += "<item><name xsi:type=\"xsd:string\">Lens " + n + "</name><focal xsi:type=\"xsd:int\">" + n
               + "</focal><zoom xsi:type=\"xsd:boolean\">true</zoom><maker xsi:type=\"xsd:string\">Maker " + n
               + "</maker><serial xsi:type=\"xsd:int\">" + n + "</serial></item>";
    }
    return xml + "</return></m:getLensesResponse></SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

const QString& largeString()
{
    static const QString text(1024 * 1024, QLatin1Char('x'));
    return text;
}

QtSoapMessage largeRequest()
{
    QtSoapMessage message;
    message.setMethod(QStringLiteral("upload"), QStringLiteral("urn:lenses"));
    message.addMethodArgument(QStringLiteral("data"), QString(), largeString());
    return message;
}

const QByteArray& responseText()
{
    static const QByteArray text = arrayResponse();
    return text;
}

const QByteArray& requestText()
{
    static const QByteArray text = largeRequest().toXmlString(0).toUtf8();
    return text;
}

// Reads each value as the tree holds it: a number is not turned back into text, as
// the DOM and KDSoap walks read texts that they already hold.
int walk(const QtSoapType& value)
{
    const QVariant scalar = value.value();
    int total = value.name().name().size() + value.type()
        + (scalar.type() == QVariant::String ? scalar.toString().size() : scalar.toInt());
    for (int i = 0; i < value.count(); ++i)
        total += walk(value[i]);
    return total;
}

int walk(const KDSoapValue& value)
{
    int total = value.value().toString().size();
    for (const KDSoapValue& child : value.childValues())
        total += walk(child);
    return total;
}

bool readWithKDSoap(const QByteArray& text, KDSoapMessage* message)
{
    static const KDSoapMessageReader reader;
    KDSoapHeaders headers;
    QString ns;
    return reader.xmlToMessage(text, message, &ns, &headers, KDSoap::SOAP1_1) == KDSoapMessageReader::NoError;
}

void checkState(benchmark::State& state, bool ok, const char* what)
{
    if (!ok)
        state.SkipWithError(what);
}

const QString envelopeUri = QStringLiteral("http://schemas.xmlsoap.org/soap/envelope/");
const QString encodingUri = QStringLiteral("http://schemas.xmlsoap.org/soap/encoding/");
const QString instanceUri = QStringLiteral("http://www.w3.org/1999/XMLSchema-instance");
const QString schemaUri = QStringLiteral("http://www.w3.org/1999/XMLSchema");

// The document and envelope exactly as toXmlString makes them; "urn:lenses" has no
// registered prefix, hence the leading colon of the method's name.
QDomElement bareEnvelope(QDomDocument& doc, const QString& method)
{
    doc = QDomImplementation().createDocument(QString(), QStringLiteral("placeholder"), QDomDocumentType());
    doc.removeChild(doc.documentElement());
    QDomElement root = doc.createElementNS(envelopeUri, QStringLiteral("SOAP-ENV:Envelope"));
    QDomElement body = doc.createElementNS(envelopeUri, QStringLiteral("SOAP-ENV:Body"));
    QDomElement methodElement = doc.createElementNS(QStringLiteral("urn:lenses"), QLatin1Char(':') + method);
    root.appendChild(body);
    body.appendChild(methodElement);
    doc.appendChild(root);
    root.setAttribute(QStringLiteral("SOAP-ENV:encodingStyle"), encodingUri);
    root.setAttribute(QStringLiteral("xmlns:xsd"), schemaUri);
    return methodElement;
}

QDomElement bareScalar(QDomDocument& doc, const QString& name, const QString& type, const QString& text)
{
    QDomElement element = doc.createElement(name);
    element.setAttributeNS(instanceUri, QStringLiteral("xsi:type"), type);
    element.appendChild(doc.createTextNode(text));
    return element;
}

struct Lens
{
    QString name;
    int focal;
    bool zoom;
    QString maker;
    int serial;
};

const std::vector<Lens>& lenses()
{
    static const std::vector<Lens> list = [] {
        std::vector<Lens> result;
        for (int i = 0; i < structCount; ++i) {
            const QString n = QString::number(i);
            result.push_back({QStringLiteral("Lens ") + n, i, true, QStringLiteral("Maker ") + n, i});
        }
        return result;
    }();
    return list;
}

QString bareResponse()
{
    QDomDocument doc;
    QDomElement method = bareEnvelope(doc, QStringLiteral("getLensesResponse"));
    QDomElement array = doc.createElement(QStringLiteral("return"));
    array.setAttributeNS(instanceUri, QStringLiteral("xsi:type"), QStringLiteral("xsd:Array"));
    array.setAttributeNS(encodingUri, QStringLiteral("SOAP-ENC:arrayType"), QStringLiteral("xsd:other"));
    const QString xsdString = QStringLiteral("xsd:string");
    const QString xsdInt = QStringLiteral("xsd:int");
    const QString xsdBoolean = QStringLiteral("xsd:boolean");
    const QString trueText = QStringLiteral("true");
    const QString falseText = QStringLiteral("false");
    int position = 0;
    for (const Lens& lens : lenses()) {
        QDomElement item = doc.createElement(QStringLiteral("item"));
        item.appendChild(bareScalar(doc, QStringLiteral("name"), xsdString, lens.name));
        item.appendChild(bareScalar(doc, QStringLiteral("focal"), xsdInt, QString::number(lens.focal)));
        item.appendChild(bareScalar(doc, QStringLiteral("zoom"), xsdBoolean, lens.zoom ? trueText : falseText));
        item.appendChild(bareScalar(doc, QStringLiteral("maker"), xsdString, lens.maker));
        item.appendChild(bareScalar(doc, QStringLiteral("serial"), xsdInt, QString::number(lens.serial)));
        item.setAttributeNS(envelopeUri, QStringLiteral("SOAP-ENV:position"),
                            QLatin1Char('[') + QString::number(position++) + QLatin1Char(']'));
        array.appendChild(item);
    }
    method.appendChild(array);
    return doc.toString(0);
}

QString bareRequest()
{
    QDomDocument doc;
    bareEnvelope(doc, QStringLiteral("upload"))
        .appendChild(bareScalar(doc, QStringLiteral("data"), QStringLiteral("xsd:string"), largeString()));
    return doc.toString(0);
}

// What any reader of the envelope takes from each element: its local name, its
// namespace, its type attribute, and the text of a leaf.
int bareWalk(QDomElement element)
{
    int total = element.localName().size() + element.namespaceURI().size()
        + element.attributeNode(QStringLiteral("type")).value().size();
    QDomElement child = element.firstChildElement();
    if (child.isNull())
        return total + element.text().size();
    for (; !child.isNull(); child = child.nextSiblingElement())
        total += bareWalk(child);
    return total;
}

int bareParse(const QByteArray& text)
{
    QDomDocument doc;
    if (!doc.setContent(text, true))
        return -1;
    return bareWalk(doc.documentElement());
}

void ParseResponse_Ours(benchmark::State& state)
{
    for (auto _ : state) {
        QtSoapMessage message;
        const bool ok = message.setContent(responseText());
        const int walked = walk(message.returnValue());
        checkState(state, ok && message.returnValue().count() == structCount, "parse failed");
        benchmark::DoNotOptimize(walked);
    }
    state.SetBytesProcessed(state.iterations() * responseText().size());
}

void ParseResponse_KDSoap(benchmark::State& state)
{
    for (auto _ : state) {
        KDSoapMessage message;
        const bool ok = readWithKDSoap(responseText(), &message);
        const KDSoapValue returned = message.childValues().value(0);
        const int walked = walk(returned);
        checkState(state, ok && returned.childValues().size() == structCount, "parse failed");
        benchmark::DoNotOptimize(walked);
    }
    state.SetBytesProcessed(state.iterations() * responseText().size());
}

void SerialiseResponse_Ours(benchmark::State& state)
{
    QtSoapMessage message;
    message.setContent(responseText());
    for (auto _ : state) {
        const QString text = message.toXmlString(0);
        benchmark::DoNotOptimize(text.size());
    }
}

void SerialiseResponse_BareDom(benchmark::State& state)
{
    QtSoapMessage message;
    message.setContent(responseText());
    // Same size as ours: the same elements and attributes, items in another order.
    checkState(state, bareResponse().size() == message.toXmlString(0).size(), "not the same envelope");
    for (auto _ : state) {
        const QString text = bareResponse();
        benchmark::DoNotOptimize(text.size());
    }
}

void ParseResponse_BareDom(benchmark::State& state)
{
    for (auto _ : state) {
        const int walked = bareParse(responseText());
        checkState(state, walked > 0, "parse failed");
        benchmark::DoNotOptimize(walked);
    }
    state.SetBytesProcessed(state.iterations() * responseText().size());
}

void SerialiseResponse_KDSoap(benchmark::State& state)
{
    KDSoapMessage message;
    readWithKDSoap(responseText(), &message);
    const KDSoapHeaders headers;
    KDSoapMessageWriter writer;
    writer.setVersion(KDSoap::SOAP1_1);
    writer.setMessageNamespace(QStringLiteral("urn:lenses"));
    const QMap<QString, KDSoapMessage> persistent;
    const KDSoapAuthentication authentication;
    for (auto _ : state) {
        const QByteArray text = writer.messageToXml(message, QStringLiteral("getLensesResponse"), headers, persistent,
                                                    authentication);
        benchmark::DoNotOptimize(text.size());
    }
}

void ParseRequest_Ours(benchmark::State& state)
{
    for (auto _ : state) {
        QtSoapMessage message;
        const bool ok = message.setContent(requestText());
        checkState(state, ok && message.returnValue().toString().size() == largeString().size(), "parse failed");
    }
    state.SetBytesProcessed(state.iterations() * requestText().size());
}

void ParseRequest_BareDom(benchmark::State& state)
{
    for (auto _ : state) {
        const int walked = bareParse(requestText());
        checkState(state, walked > largeString().size(), "parse failed");
        benchmark::DoNotOptimize(walked);
    }
    state.SetBytesProcessed(state.iterations() * requestText().size());
}

void ParseRequest_KDSoap(benchmark::State& state)
{
    for (auto _ : state) {
        KDSoapMessage message;
        const bool ok = readWithKDSoap(requestText(), &message);
        checkState(state, ok && message.arguments().value(0).value().toString().size() == largeString().size(),
                   "parse failed");
    }
    state.SetBytesProcessed(state.iterations() * requestText().size());
}

void BuildRequest_Ours(benchmark::State& state)
{
    for (auto _ : state) {
        const QString text = largeRequest().toXmlString(0);
        benchmark::DoNotOptimize(text.size());
    }
}

void BuildRequest_BareDom(benchmark::State& state)
{
    checkState(state, bareRequest() == largeRequest().toXmlString(0), "not the same envelope");
    for (auto _ : state) {
        const QString text = bareRequest();
        benchmark::DoNotOptimize(text.size());
    }
}

void BuildRequest_KDSoap(benchmark::State& state)
{
    KDSoapMessageWriter writer;
    writer.setVersion(KDSoap::SOAP1_1);
    writer.setMessageNamespace(QStringLiteral("urn:lenses"));
    const KDSoapHeaders headers;
    const QMap<QString, KDSoapMessage> persistent;
    const KDSoapAuthentication authentication;
    for (auto _ : state) {
        KDSoapMessage message;
        message.setUse(KDSoapMessage::EncodedUse);
        message.addArgument(QStringLiteral("data"), largeString());
        const QByteArray text = writer.messageToXml(message, QStringLiteral("upload"), headers, persistent, authentication);
        benchmark::DoNotOptimize(text.size());
    }
}

// The pre-scan alone that setContent runs before the DOM (argument 0:
// the response, 1: the request), to set beside ParseResponse_Ours and ParseRequest_Ours.
void PreScan_Ours(benchmark::State& state)
{
    const QByteArray& text = state.range(0) ? requestText() : responseText();
    for (auto _ : state)
        checkState(state, !XmlNestingGuard::findRefusal(text, 100, 1000000).found, "refused");
    state.SetBytesProcessed(state.iterations() * text.size());
}

} // namespace

BENCHMARK(PreScan_Ours)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ParseResponse_Ours)->Unit(benchmark::kMillisecond);
BENCHMARK(ParseResponse_BareDom)->Unit(benchmark::kMillisecond);
BENCHMARK(ParseResponse_KDSoap)->Unit(benchmark::kMillisecond);
BENCHMARK(SerialiseResponse_Ours)->Unit(benchmark::kMillisecond);
BENCHMARK(SerialiseResponse_BareDom)->Unit(benchmark::kMillisecond);
BENCHMARK(SerialiseResponse_KDSoap)->Unit(benchmark::kMillisecond);
BENCHMARK(ParseRequest_Ours)->Unit(benchmark::kMillisecond);
BENCHMARK(ParseRequest_BareDom)->Unit(benchmark::kMillisecond);
BENCHMARK(ParseRequest_KDSoap)->Unit(benchmark::kMillisecond);
BENCHMARK(BuildRequest_Ours)->Unit(benchmark::kMillisecond);
BENCHMARK(BuildRequest_BareDom)->Unit(benchmark::kMillisecond);
BENCHMARK(BuildRequest_KDSoap)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
