// QtSoapHttpTransport against servers on the loopback: a recording HTTP server in
// this process (plain and TLS) and a real SOAP 1.1 service written with spyne.
#include "TestEnvironment.h"

#include "QtSoapHttpTransport.h"
#include "TestHttpServer.h"

#include <QFile>
#include <QNetworkAccessManager>
#include <QProcess>
#include <QSignalSpy>
#include <QSslSocket>
#include <QTemporaryDir>

using namespace VEXA_NAMESPACE;

Q_DECLARE_METATYPE(QtSoapMessage::FaultCode)

namespace {

const QByteArray okEnvelope =
    "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\"><e:Body><r><v>#N#</v></r></e:Body></e:Envelope>";
const QByteArray faultEnvelope =
    "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\"><e:Body><e:Fault>"
    "<faultcode>e:Server</faultcode><faultstring>broken</faultstring></e:Fault></e:Body></e:Envelope>";
const QString interopNamespace = QStringLiteral("urn:vexa:interop");

bool waitForResponses(QtSoapHttpTransport& transport, int count)
{
    QSignalSpy spy(&transport, QOverload<>::of(&QtSoapHttpTransport::responseReady));
    while (spy.count() < count) {
        if (!spy.wait(15000))
            return false;
    }
    return true;
}

QtSoapMessage methodCall(const QString& method, const QString& uri = QString())
{
    QtSoapMessage message;
    message.setMethod(method, uri);
    return message;
}

} // namespace

class TestSoapTransport : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void endpointFromSetHost_data();
    void endpointFromSetHost();
    void requestAsItGoesOut();
    void replies_data();
    void replies();
    void refusedConnection();
    void twoRequestsInFlight();
    void httpsWithSelfSignedCertificate();
    void interopWithSpyne_data();
    void interopWithSpyne();
    void interopReadsSpyneFaultEnvelope();

private:
    void startSpyne();

    TestHttpServer m_server;
    QProcess m_spyne;
    int m_spynePort = 0;
    QTemporaryDir m_certificateDir;
};

void TestSoapTransport::initTestCase()
{
    qRegisterMetaType<QtSoapMessage::FaultCode>();
    QVERIFY(m_server.listen(QHostAddress::LocalHost));
    startSpyne();
}

void TestSoapTransport::startSpyne()
{
    m_spyne.setProgram(QStringLiteral("/usr/bin/python3"));
    m_spyne.setArguments({QStringLiteral(SPYNE_SERVER_SCRIPT)});
    m_spyne.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_spyne.start();
    QVERIFY2(m_spyne.waitForStarted(10000), "cannot start /usr/bin/python3");
    QByteArray line;
    while (!line.endsWith('\n')) {
        if (!m_spyne.waitForReadyRead(30000))
            QFAIL("the spyne server did not report its port (is python3-spyne installed?)");
        line += m_spyne.readAll();
    }
    QVERIFY2(line.startsWith("PORT "), line.constData());
    m_spynePort = line.mid(5).trimmed().toInt();
    QVERIFY(m_spynePort > 0);
}

void TestSoapTransport::cleanupTestCase()
{
    if (m_spyne.state() != QProcess::NotRunning) {
        m_spyne.kill();
        m_spyne.waitForFinished(5000);
    }
}

void TestSoapTransport::endpointFromSetHost_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<bool>("secure");
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("url");
    QTest::newRow("https default") << 3 << true << 0 << "https://127.0.0.1:443/a b";
    QTest::newRow("http default") << 3 << false << 0 << "http://127.0.0.1:80/a b";
    QTest::newRow("two-argument default") << 2 << false << 0 << "http://127.0.0.1:80/a b";
    QTest::newRow("two-argument 8443 stays plain") << 2 << false << 8443 << "http://127.0.0.1:8443/a b";
    // Passed on unchecked; QUrl itself drops a port it cannot hold.
    QTest::newRow("no range check") << 3 << true << 70000 << "https://127.0.0.1/a b";
}

// The URL goes out as set; the reply is aborted before anything is sent, which
// shows up as a transport fault like any other.
void TestSoapTransport::endpointFromSetHost()
{
    QFETCH(int, form);
    QFETCH(bool, secure);
    QFETCH(int, port);
    QFETCH(QString, url);
    QtSoapHttpTransport transport;
    if (form == 2)
        transport.setHost(QStringLiteral("127.0.0.1"), port);
    else
        transport.setHost(QStringLiteral("127.0.0.1"), secure, port);
    QtSoapMessage request = methodCall(QStringLiteral("m"));
    QSignalSpy responses(&transport, QOverload<>::of(&QtSoapHttpTransport::responseReady));
    transport.submitRequest(request, QStringLiteral("/a b"));
    QVERIFY(transport.networkReply());
    QCOMPARE(transport.networkReply()->url().toDisplayString(), url);
    transport.networkReply()->abort();
    QCOMPARE(responses.count(), 1);
    QCOMPARE(transport.getResponse().faultCode(), QtSoapMessage::Client);
    QVERIFY(transport.getResponse().faultString().toString().startsWith(QLatin1String("Network transport error (5): ")));
}

void TestSoapTransport::requestAsItGoesOut()
{
    m_server.setAnswer(200, okEnvelope);
    QtSoapHttpTransport transport;
    transport.setHost(QStringLiteral("127.0.0.1"), m_server.serverPort());
    QtSoapMessage request = methodCall(QStringLiteral("getPrice"), QStringLiteral("urn:shop"));
    request.addMethodArgument(QStringLiteral("item"), QString(), QString::fromUtf8("Objektiv \xc3\xa4 \xe2\x82\xac"));
    const QString before = request.toXmlString(0);

    transport.submitRequest(request, QStringLiteral("/soap/shop"));
    QVERIFY(waitForResponses(transport, 1));
    transport.setAction(QStringLiteral("urn:shop#getPrice"));
    transport.submitRequest(request, QStringLiteral("/soap/shop"));
    QVERIFY(waitForResponses(transport, 1));

    const QList<TestHttpServer::Request> requests = m_server.requests().mid(m_server.requests().size() - 2);
    const TestHttpServer::Request& first = requests[0];
    QCOMPARE(first.method, QByteArray("POST"));
    QCOMPARE(first.path, QByteArray("/soap/shop"));
    QCOMPARE(first.header("Content-Type"), QByteArray("text/xml;charset=utf-8"));
    // The header is set with an empty value, which Qt does not put on the wire.
    const bool hasAction = std::any_of(first.headers.begin(), first.headers.end(),
                                       [](const auto& h) { return h.first.toLower() == "soapaction"; });
    QVERIFY(!hasAction);
    QCOMPARE(first.body, before.toUtf8());
    QVERIFY(!first.body.startsWith("<?xml"));
    QVERIFY(first.body.contains("Objektiv \xc3\xa4 \xe2\x82\xac"));
    QCOMPARE(requests[1].header("SOAPAction"), QByteArray("urn:shop#getPrice"));
    QCOMPARE(request.toXmlString(0), before);
    QCOMPARE(transport.getResponse().returnValue().toString(), QString::number(m_server.requests().size()));
}

void TestSoapTransport::replies_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QtSoapMessage::FaultCode>("code");
    QTest::addColumn<QString>("text");
    // returnValue() is the first child of the first body element, which for a
    // fault is its code.
    QTest::addColumn<QString>("returnName");
    const auto other = QtSoapMessage::Other;
    const auto client = QtSoapMessage::Client;
    const QString parseError = QStringLiteral("XML parse error");
    QTest::newRow("200 envelope") << 200 << okEnvelope << other << QString() << "v";
    QTest::newRow("200 fault envelope") << 200 << faultEnvelope << QtSoapMessage::Server << "broken" << "faultcode";
    QTest::newRow("200 empty body") << 200 << QByteArray() << QtSoapMessage::VersionMismatch << parseError << "Faultcode";
    QTest::newRow("201 is read, then marked") << 201 << okEnvelope << client << QString() << "v";
    QTest::newRow("404 (203) envelope") << 404 << okEnvelope << client << QString() << "v";
    QTest::newRow("404 (203) text") << 404 << QByteArray("Not Found") << QtSoapMessage::VersionMismatch << parseError << "Faultcode";
    QTest::newRow("404 (203) fault envelope") << 404 << faultEnvelope << QtSoapMessage::Server << "broken" << "faultcode";
    QTest::newRow("403 (201) envelope") << 403 << okEnvelope << client << QString() << "v";
    QTest::newRow("405 (202) envelope") << 405 << okEnvelope << client << QString() << "v";
    QTest::newRow("422 (299) envelope") << 422 << okEnvelope << client << QString() << "v";
    QTest::newRow("418 (302) not read") << 418 << okEnvelope << client << "Network transport error (302): " << "Faultcode";
    QTest::newRow("500 (401) fault envelope not read") << 500 << faultEnvelope << client << "Network transport error (401): " << "Faultcode";
    QTest::newRow("500 (401) no envelope") << 500 << QByteArray("oops") << client << "Network transport error (401): " << "Faultcode";
    QTest::newRow("401 (204) not read") << 401 << okEnvelope << client << "Network transport error (204): " << "Faultcode";
    QTest::newRow("409 (206) not read") << 409 << okEnvelope << client << "Network transport error (206): " << "Faultcode";
    QTest::newRow("410 (207) not read") << 410 << okEnvelope << client << "Network transport error (207): " << "Faultcode";
}

void TestSoapTransport::replies()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(QtSoapMessage::FaultCode, code);
    QFETCH(QString, text);
    QFETCH(QString, returnName);
    m_server.setAnswer(status, body);
    QtSoapHttpTransport transport;
    transport.setHost(QStringLiteral("127.0.0.1"), m_server.serverPort());
    QtSoapMessage request = methodCall(QStringLiteral("m"));
    transport.submitRequest(request, QStringLiteral("/"));
    QVERIFY(waitForResponses(transport, 1));

    const QtSoapMessage& response = transport.getResponse();
    QCOMPARE(response.faultCode(), code);
    QCOMPARE(response.isFault(), code != QtSoapMessage::Other);
    if (text.isEmpty())
        QVERIFY2(!response.faultString().isValid(), qPrintable(response.faultString().toString()));
    else
        QVERIFY2(response.faultString().toString().startsWith(text), qPrintable(response.faultString().toString()));
    QCOMPARE(response.returnValue().name().name(), returnName);
}

void TestSoapTransport::refusedConnection()
{
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const quint16 port = closed.serverPort();
    closed.close();

    QtSoapHttpTransport transport;
    transport.setHost(QStringLiteral("127.0.0.1"), port);
    QtSoapMessage request = methodCall(QStringLiteral("m"));
    transport.submitRequest(request, QStringLiteral("/"));
    QVERIFY(waitForResponses(transport, 1));
    QCOMPARE(transport.getResponse().faultCode(), QtSoapMessage::Client);
    QCOMPARE(transport.getResponse().faultString().toString(),
             QStringLiteral("Network transport error (1): Connection refused"));
}

// No busy state: both posts run, both replies arrive, each emits both signals
// (plain first) while its reply is still alive, and the later arrival wins.
void TestSoapTransport::twoRequestsInFlight()
{
    m_server.setAnswer(200, okEnvelope);
    const int before = m_server.requests().size();
    m_server.holdFirst(before + 1);
    QtSoapHttpTransport transport;
    transport.setHost(QStringLiteral("127.0.0.1"), m_server.serverPort());
    QStringList events;
    connect(&transport, QOverload<>::of(&QtSoapHttpTransport::responseReady), this, [&] { events << "plain"; });
    connect(&transport, QOverload<const QtSoapMessage&>::of(&QtSoapHttpTransport::responseReady), this,
            [&](const QtSoapMessage& response) {
                QCOMPARE(&response, &transport.getResponse());
                events << (transport.networkReply() ? "message, reply alive: " : "message, reply gone: ")
                              + response.returnValue().toString();
            });

    QtSoapMessage request = methodCall(QStringLiteral("m"));
    transport.submitRequest(request, QStringLiteral("/"));
    QNetworkReply* firstReply = transport.networkReply();
    transport.submitRequest(request, QStringLiteral("/"));
    QVERIFY(transport.networkReply() != firstReply);
    QVERIFY(waitForResponses(transport, 1));
    m_server.releaseHeld();
    QVERIFY(waitForResponses(transport, 1));

    const QString firstOrdinal = QString::number(before + 1);
    const QString secondOrdinal = QString::number(before + 2);
    QCOMPARE(events, QStringList({"plain", "message, reply alive: " + secondOrdinal, "plain",
                                  "message, reply alive: " + firstOrdinal}));
    QCOMPARE(transport.getResponse().returnValue().toString(), firstOrdinal);
}

// The transport adds no SSL policy: an untrusted certificate fails the handshake
// and arrives as a transport fault, unless the caller decides otherwise through
// the access manager it exposes.
void TestSoapTransport::httpsWithSelfSignedCertificate()
{
    QVERIFY2(QSslSocket::supportsSsl(), "Qt has no TLS backend");
    QVERIFY(m_certificateDir.isValid());
    const QString certificatePath = m_certificateDir.filePath(QStringLiteral("cert.pem"));
    const QString keyPath = m_certificateDir.filePath(QStringLiteral("key.pem"));
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"), {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
                                              "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1",
                                              "-keyout", keyPath, "-out", certificatePath});
    QVERIFY2(openssl.waitForFinished(60000) && openssl.exitCode() == 0, openssl.readAllStandardError().constData());
    QFile certificateFile(certificatePath);
    QFile keyFile(keyPath);
    QVERIFY(certificateFile.open(QIODevice::ReadOnly) && keyFile.open(QIODevice::ReadOnly));

    TestHttpServer tlsServer;
    tlsServer.useTls(QSslCertificate(&certificateFile, QSsl::Pem), QSslKey(&keyFile, QSsl::Rsa, QSsl::Pem));
    tlsServer.setAnswer(200, okEnvelope);
    QVERIFY(tlsServer.listen(QHostAddress::LocalHost));

    QtSoapHttpTransport transport;
    transport.setHost(QStringLiteral("127.0.0.1"), true, tlsServer.serverPort());
    QtSoapMessage request = methodCall(QStringLiteral("m"));
    transport.submitRequest(request, QStringLiteral("/secure"));
    QVERIFY(waitForResponses(transport, 1));
    QCOMPARE(transport.getResponse().faultCode(), QtSoapMessage::Client);
    QVERIFY2(transport.getResponse().faultString().toString().startsWith(QLatin1String("Network transport error (6): ")),
             qPrintable(transport.getResponse().faultString().toString()));
    QCOMPARE(tlsServer.requests().size(), 0);

    connect(transport.networkAccessManager(), &QNetworkAccessManager::sslErrors, this,
            [](QNetworkReply* reply, const QList<QSslError>&) { reply->ignoreSslErrors(); });
    transport.submitRequest(request, QStringLiteral("/secure"));
    QVERIFY(waitForResponses(transport, 1));
    QVERIFY(!transport.getResponse().isFault());
    QCOMPARE(transport.getResponse().returnValue().toString(), QStringLiteral("1"));
    QCOMPARE(tlsServer.requests().size(), 1);
    QCOMPARE(tlsServer.requests().first().path, QByteArray("/secure"));
}

void TestSoapTransport::interopWithSpyne_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("string") << "echoString" << "text" << QVariant(QString::fromUtf8("Gr\xc3\xbc\xc3\x9f" "e & <lens>"))
                            << QString::fromUtf8("Gr\xc3\xbc\xc3\x9f" "e & <lens>");
    QTest::newRow("int") << "echoInt" << "number" << QVariant(-42) << "-42";
    QTest::newRow("bool") << "echoBool" << "flag" << QVariant(true) << "true";
    QTest::newRow("array") << "countTo" << "limit" << QVariant(3) << "1,2,3";
    QTest::newRow("struct") << "getLens" << QString() << QVariant() << "Tilt 24,24,false";
    QTest::newRow("fault") << "failWith" << "reason" << QVariant("lens unknown") << "fault";
}

void TestSoapTransport::interopWithSpyne()
{
    QFETCH(QString, method);
    QFETCH(QString, argument);
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    QtSoapHttpTransport transport;
    transport.setHost(QStringLiteral("127.0.0.1"), m_spynePort);
    transport.setAction(method);
    QtSoapMessage request = methodCall(method, interopNamespace);
    if (value.type() == QVariant::Bool)
        request.addMethodArgument(argument, interopNamespace, value.toBool(), 0);
    else if (value.type() == QVariant::Int)
        request.addMethodArgument(argument, interopNamespace, value.toInt());
    else if (value.isValid())
        request.addMethodArgument(argument, interopNamespace, value.toString());
    transport.submitRequest(request, QStringLiteral("/"));
    QVERIFY(waitForResponses(transport, 1));

    const QtSoapMessage& response = transport.getResponse();
    if (expected == QLatin1String("fault")) {
        // spyne answers a Fault with status 500, which the transport does not read.
        QVERIFY(response.isFault());
        QCOMPARE(response.faultCode(), QtSoapMessage::Client);
        QVERIFY(response.faultString().toString().startsWith(QLatin1String("Network transport error (401): ")));
        QCOMPARE(response.returnValue().name().name(), QStringLiteral("Faultcode"));
        return;
    }
    QVERIFY2(!response.isFault(), qPrintable(response.faultString().toString()));
    QCOMPARE(response.method().name().name(), method + QStringLiteral("Response"));
    const QtSoapType& result = response.returnValue();
    QCOMPARE(result.name().uri(), interopNamespace);
    QStringList parts;
    if (result.count() == 0)
        parts << result.toString();
    for (int i = 0; i < result.count(); ++i)
        parts << result[i].toString();
    QCOMPARE(parts.join(QLatin1Char(',')), expected);
    if (method == QLatin1String("echoInt"))
        QCOMPARE(result.toInt(), -42);
    if (method == QLatin1String("echoBool"))
        QCOMPARE(result.toBool(), true);
    if (method == QLatin1String("getLens"))
        QCOMPARE(result[QStringLiteral("FOCAL")].toInt(), 24);
}

// The fault envelope spyne sends with its 500 reply, read directly.
void TestSoapTransport::interopReadsSpyneFaultEnvelope()
{
    QtSoapMessage request = methodCall(QStringLiteral("failWith"), interopNamespace);
    request.addMethodArgument(QStringLiteral("reason"), interopNamespace, QStringLiteral("lens unknown"));
    QNetworkAccessManager manager;
    QNetworkRequest networkRequest(QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(m_spynePort)));
    networkRequest.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("text/xml;charset=utf-8"));
    QNetworkReply* reply = manager.post(networkRequest, request.toXmlString(0).toUtf8());
    QSignalSpy finished(reply, &QNetworkReply::finished);
    QVERIFY(finished.wait(15000));
    QCOMPARE(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), 500);

    QtSoapMessage response;
    QVERIFY(response.setContent(reply->readAll()));
    QCOMPARE(response.faultCode(), QtSoapMessage::Server);
    QCOMPARE(response.faultString().toString(), QStringLiteral("lens unknown"));
    reply->deleteLater();
}

UTILSDLL_TEST_MAIN(TestSoapTransport)
#include "tst_soaptransport.moc"
