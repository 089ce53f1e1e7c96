// QtSoapHttpTransport against servers on the loopback: a recording and a hostile HTTP
// server in this process, and a real SOAP 1.1 service written with spyne.
#include "TestEnvironment.h"

#include "HostileHttpServer.h"
#include "QtSoapHttpTransport.h"

#include <QElapsedTimer>
#include <QFile>
#include <QNetworkReply>
#include <QProcess>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

using namespace VEXA_NAMESPACE;

Q_DECLARE_METATYPE(QtSoapMessage::FaultCode)

namespace {

// The value of a header field of a request, the name in any case.
QByteArray header(const QByteArray& request, const QByteArray& name)
{
    for (const QByteArray& line : request.left(request.indexOf("\r\n\r\n")).split('\n'))
        if (line.toLower().startsWith(name.toLower() + ':'))
            return line.mid(name.size() + 1).trimmed();
    return QByteArray();
}

// Records each request as it arrived (request line, headers, blank line, body) and
// answers with `status` and `body`, where "#N#" becomes the request's ordinal; a
// redirection status points back at this server.
class RecordingServer : public QTcpServer
{
public:
    int status = 200;
    QByteArray body;
    QList<QByteArray> requests;

protected:
    void incomingConnection(qintptr descriptor) override
    {
        auto* socket = new QTcpSocket(this);
        socket->setSocketDescriptor(descriptor);
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, in = QByteArray()]() mutable {
            in += socket->readAll();
            const int headerEnd = in.indexOf("\r\n\r\n");
            if (headerEnd < 0 || in.size() < headerEnd + 4 + header(in, "Content-Length").toInt())
                return;
            requests.append(in);
            const QByteArray reply = QByteArray(body).replace("#N#", QByteArray::number(requests.size()));
            const QByteArray location = status / 100 == 3 ? "Location: /moved\r\n" : "";
            socket->write("HTTP/1.1 " + QByteArray::number(status) + " Test\r\nContent-Type: text/xml; charset=utf-8\r\n"
                          + location + "Content-Length: " + QByteArray::number(reply.size()) + "\r\nConnection: close\r\n\r\n"
                          + reply);
            socket->disconnectFromHost();
        });
    }
};

const QByteArray okEnvelope =
    "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\"><e:Body><r><v>#N#</v></r></e:Body></e:Envelope>";
const QString interopNamespace = QStringLiteral("urn:vexa:interop");

// A fault with the given code and detail content, as servers send it with status 500.
QByteArray faultWith(const QByteArray& code, const QByteArray& detail)
{
    return "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\"><e:Body><e:Fault><faultcode>" + code
        + "</faultcode><faultstring>broken</faultstring><detail>" + detail + "</detail></e:Fault></e:Body></e:Envelope>";
}

QtSoapMessage methodCall(const QString& method, const QString& uri = QString())
{
    QtSoapMessage message;
    message.setMethod(method, uri);
    return message;
}

// Posts to the loopback port (0: the host already set) and waits for the answer; true
// when both signals fired once, the plain one first.
bool call(QtSoapHttpTransport& transport, int port, QtSoapMessage& request, const QString& path = QStringLiteral("/"))
{
    if (port)
        transport.setHost(QStringLiteral("127.0.0.1"), port);
    QString events;
    QObject context;
    QObject::connect(&transport, QOverload<>::of(&QtSoapHttpTransport::responseReady), &context, [&] { events += 'p'; });
    QObject::connect(&transport, QOverload<const QtSoapMessage&>::of(&QtSoapHttpTransport::responseReady), &context,
                     [&](const QtSoapMessage&) { events += 'm'; });
    transport.submitRequest(request, path);
    QSignalSpy(&transport, QOverload<>::of(&QtSoapHttpTransport::responseReady)).wait(15000);
    return events == QLatin1String("pm");
}

// Starts the process's peak resident memory (VmHWM) anew from what it holds now; Linux
// only, elsewhere nothing happens.
void resetPeakMemory()
{
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5");
}

// The process's peak resident memory in MiB (VmHWM), or -1 where there is no /proc.
qint64 peakMemoryMiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong() / 1024;
    return -1;
}

// Receives the message as a module of the product does, with the type unqualified.
class ResponseReceiver : public QObject
{
    Q_OBJECT
public:
    QStringList values;
public slots:
    void take(const QtSoapMessage& response) { values << response.returnValue().toString(); }
};

} // namespace

class TestSoapTransport : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        qRegisterMetaType<QtSoapMessage::FaultCode>();
        QVERIFY(m_server.listen(QHostAddress::LocalHost));
        // A service that is already running is named by its port: the Windows build's
        // run under Wine reaches the one started on the Linux side.
        m_spynePort = qEnvironmentVariableIntValue("UTILSDLL_SPYNE_PORT");
        if (m_spynePort > 0)
            return;
        m_spyne.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_spyne.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(SPYNE_SERVER_SCRIPT)});
        QVERIFY2(m_spyne.waitForStarted(10000), "cannot start /usr/bin/python3");
        // No report of the port: is python3-spyne installed?
        QTRY_VERIFY_WITH_TIMEOUT(m_spyne.canReadLine() || m_spyne.state() == QProcess::NotRunning, 30000);
        const QByteArray line = m_spyne.readLine();
        QVERIFY2(line.startsWith("PORT "), line.constData());
        m_spynePort = line.mid(5).trimmed().toInt();
        QVERIFY(m_spynePort > 0);
    }

    void cleanupTestCase()
    {
        m_spyne.kill();
        m_spyne.waitForFinished(5000);
    }

    void endpointFromSetHost_data()
    {
        QTest::addColumn<int>("secure"); // -1: the two-argument form
        QTest::addColumn<int>("port");
        QTest::addColumn<QString>("url");
        QTest::newRow("https default") << 1 << 0 << "https://127.0.0.1:443/a b";
        QTest::newRow("http default") << 0 << 0 << "http://127.0.0.1:80/a b";
        QTest::newRow("two-argument default") << -1 << 0 << "http://127.0.0.1:80/a b";
        QTest::newRow("two-argument 8443 stays plain") << -1 << 8443 << "http://127.0.0.1:8443/a b";
    }

    void endpointFromSetHost()
    {
        QFETCH(int, secure);
        QFETCH(int, port);
        QFETCH(QString, url);
        QtSoapHttpTransport transport;
        if (secure < 0)
            transport.setHost(QStringLiteral("127.0.0.1"), port);
        else
            transport.setHost(QStringLiteral("127.0.0.1"), secure == 1, port);
        QtSoapMessage request = methodCall(QStringLiteral("m"));
        transport.submitRequest(request, QStringLiteral("/a b"));
        QCOMPARE(transport.networkReply()->url().toDisplayString(), url);
        transport.networkReply()->abort();
    }

    // The requests as they go out, and the answers through the string form of the signal
    // as modules write it, queued: such a connection finds the type by the name in the
    // signature, so no signal or slot may carry a qualified type.
    void requestsAndStringFormConnection()
    {
        const QMetaObject& meta = QtSoapHttpTransport::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            QVERIFY2(!meta.method(i).methodSignature().contains("::"), meta.method(i).methodSignature().constData());
        const int port = serve(200, okEnvelope);
        QtSoapHttpTransport transport;
        ResponseReceiver receiver;
        QVERIFY(connect(&transport, SIGNAL(responseReady(const QtSoapMessage&)), &receiver,
                        SLOT(take(const QtSoapMessage&)), Qt::QueuedConnection));
        QtSoapMessage request = methodCall(QStringLiteral("getPrice"), QStringLiteral("urn:shop"));
        QVERIFY(call(transport, port, request));
        QVERIFY2(m_server.requests.last().contains("\r\nSOAPAction: \r\n"), m_server.requests.last().constData());

        request.addMethodArgument(QStringLiteral("item"), QString(), QString::fromUtf8("Objektiv \xc3\xa4 \xe2\x82\xac"));
        const QString before = request.toXmlString(0);
        transport.setAction(QStringLiteral("urn:shop#getPrice"));
        QVERIFY(call(transport, 0, request, QStringLiteral("/soap/shop")));
        const QByteArray sent = m_server.requests.last();
        QVERIFY2(sent.startsWith("POST /soap/shop HTTP/1.1\r\n"), sent.constData());
        QCOMPARE(header(sent, "Content-Type"), QByteArray("text/xml;charset=utf-8"));
        QCOMPARE(header(sent, "SOAPAction"), QByteArray("urn:shop#getPrice")); // no quotes added
        QCOMPARE(header(sent, "Accept-Encoding"), QByteArray("identity")); // so that Qt inflates nothing
        QCOMPARE(sent.mid(sent.indexOf("\r\n\r\n") + 4), before.toUtf8()); // UTF-8, no XML declaration
        QCOMPARE(request.toXmlString(0), before);
        const int count = m_server.requests.size();
        QCOMPARE(transport.getResponse().returnValue().toString(), QString::number(count));
        QTRY_COMPARE(receiver.values, QStringList() << QString::number(count - 1) << QString::number(count));
    }

    // Each reply is read with the switch for server faults off, then on: on, only a
    // recognised fault in an envelope at an error status replaces what off gives.
    void replies_data()
    {
        QTest::addColumn<int>("status"); // 0: a refused connection
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QtSoapMessage::FaultCode>("code");
        QTest::addColumn<QString>("text");
        // returnValue() is the first child of the first body element, for a fault its code.
        QTest::addColumn<QString>("returnName");
        QTest::addColumn<bool>("serverFault");
        const auto client = QtSoapMessage::Client;
        const QString error401 = QStringLiteral("Network transport error (401): ");
        const QByteArray plain = QByteArray(okEnvelope).replace("#N#", "7"), lens = "<lens>Tilt 24</lens>";
        QTest::newRow("200 envelope") << 200 << plain << QtSoapMessage::Other << QString() << "v" << false;
        QTest::newRow("201 is read, then marked") << 201 << plain << client << QString() << "v" << false;
        // Redirections are not followed: the reply is the answer.
        QTest::newRow("301 is read, then marked") << 301 << plain << client << QString() << "v" << false;
        QTest::newRow("302 is read, then marked") << 302 << plain << client << QString() << "v" << false;
        QTest::newRow("404 (203) text") << 404 << QByteArray("Not Found") << QtSoapMessage::VersionMismatch
                                        << "XML parse error" << "Faultcode" << false;
        QTest::newRow("401 (204) not read") << 401 << plain << client << "Network transport error (204): " << "Faultcode" << false;
        QTest::newRow("refused connection") << 0 << QByteArray() << client << "Network transport error (1): Connection refused"
                                            << "Faultcode" << false;
        QTest::newRow("500 fault") << 500 << faultWith("e:Server.Calibration", lens) << client << error401 << "Faultcode" << true;
        QTest::newRow("500 no body") << 500 << QByteArray() << client << error401 << "Faultcode" << false;
        QTest::newRow("500 not XML") << 500 << QByteArray("Internal Server Error") << client << error401 << "Faultcode" << false;
        QTest::newRow("500 not an envelope") << 500 << QByteArray("<html><body>oops</body></html>") << client << error401
                                             << "Faultcode" << false;
        QTest::newRow("500 envelope without fault") << 500 << plain << client << error401 << "Faultcode" << false;
        QTest::newRow("500 fault of unknown code") << 500 << faultWith("e:Calibration", lens) << client << error401
                                                   << "Faultcode" << false;
        QTest::newRow("500 fault nested too deep")
            << 500 << faultWith("Server", QByteArray("<a>").repeated(100000) + QByteArray("</a>").repeated(100000)) << client
            << error401 << "Faultcode" << false;
    }

    void replies()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(QtSoapMessage::FaultCode, code);
        QFETCH(QString, text);
        QFETCH(QString, returnName);
        QFETCH(bool, serverFault);
        const int port = serve(status, body);
        QString off;
        for (const bool parse : {false, true}) {
            QtSoapHttpTransport transport;
            QVERIFY(!transport.parseFaultReplies());
            transport.setParseFaultReplies(parse);
            QtSoapMessage request = methodCall(QStringLiteral("m"));
            const int before = m_server.requests.size();
            QVERIFY(call(transport, port, request));
            QCOMPARE(m_server.requests.size(), before + (status ? 1 : 0));
            const QtSoapMessage& response = transport.getResponse();
            if (parse && serverFault) {
                QCOMPARE(response.faultCode(), QtSoapMessage::Server);
                QCOMPARE(response.faultString().toString(), QStringLiteral("broken"));
                QCOMPARE(response.faultDetail()[QStringLiteral("lens")].toString(), QStringLiteral("Tilt 24"));
            } else if (parse) {
                QCOMPARE(response.toXmlString(0), off);
            }
            if (parse)
                continue;
            off = response.toXmlString(0);
            QCOMPARE(response.faultCode(), code);
            QCOMPARE(response.isFault(), code != QtSoapMessage::Other);
            const QString faultString = response.faultString().toString();
            if (text.isEmpty())
                QVERIFY2(!response.faultString().isValid(), qPrintable(faultString));
            else if (text.endsWith(QLatin1Char(' '))) // Qt's own error text follows
                QVERIFY2(faultString.startsWith(text), qPrintable(faultString));
            else
                QCOMPARE(faultString, text);
            QCOMPARE(response.returnValue().name().name(), returnName);
        }
    }

    void interopWithSpyne_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QString>("argument");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("expected");
        const QString text = QString::fromUtf8("Gr\xc3\xbc\xc3\x9f" "e & <lens>");
        QTest::newRow("string") << "echoString" << "text" << QVariant(text) << text;
        QTest::newRow("array") << "countTo" << "limit" << QVariant(3) << "1,2,3";
        QTest::newRow("struct") << "getLens" << QString() << QVariant() << "Tilt 24,24,false";
        // spyne sends its fault with status 500: its text, then the detail.
        QTest::newRow("server fault") << "failWith" << "reason" << QVariant("lens unknown") << "lens unknown,Tilt 24";
    }

    void interopWithSpyne()
    {
        QFETCH(QString, method);
        QFETCH(QString, argument);
        QFETCH(QVariant, value);
        QFETCH(QString, expected);
        QtSoapHttpTransport transport;
        transport.setAction(method);
        transport.setParseFaultReplies(true);
        QtSoapMessage request = methodCall(method, interopNamespace);
        if (value.userType() == QMetaType::Int)
            request.addMethodArgument(argument, interopNamespace, value.toInt());
        else if (value.isValid())
            request.addMethodArgument(argument, interopNamespace, value.toString());
        QVERIFY(call(transport, m_spynePort, request));
        const QtSoapMessage& response = transport.getResponse();
        if (method == QLatin1String("failWith")) {
            QCOMPARE(response.faultCode(), QtSoapMessage::Server);
            QCOMPARE(response.faultString().toString() + ',' + response.faultDetail()[QStringLiteral("lens")].toString(), expected);
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
    }

    // The transfer timeout set on the manager ends the wait for a server that accepts
    // the connection and never answers, well before the deadline.
    void silentServerTimesOut()
    {
        QTcpServer silent;
        QVERIFY(silent.listen(QHostAddress::LocalHost));
        QtSoapHttpTransport transport;
        QCOMPARE(transport.networkAccessManager()->transferTimeout(), 0);
        transport.networkAccessManager()->setTransferTimeout(300);
        QtSoapMessage request = methodCall(QStringLiteral("m"));
        QVERIFY(call(transport, silent.serverPort(), request));
        QCOMPARE(transport.getResponse().faultCode(), QtSoapMessage::Client);
        QCOMPARE(transport.getResponse().faultString().toString(),
                 QStringLiteral("Network transport error (%1): Operation canceled").arg(QNetworkReply::OperationCanceledError));
    }

    // Each hostile reply ends, in bounded time and memory, as a Client fault saying why
    // (an empty text: the reply is read). The peak is the whole process's, so it also
    // holds what Qt buffered or inflated on its own threads.
    void hostileReplies_data()
    {
        QTest::addColumn<QByteArray>("head");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QByteArray>("filler"); // sent without end after the body
        QTest::addColumn<int>("dripMsecs");
        QTest::addColumn<qint64>("limit"); // 0: the default
        QTest::addColumn<int>("deadline"); // 0: the default
        QTest::addColumn<QString>("fault");
        const QString tooLarge = QStringLiteral("Response exceeds the size limit of %1 bytes");
        const QString overDefault = tooLarge.arg(8 * 1024 * 1024);
        const QString late = QStringLiteral("Response not complete within the deadline of %1 ms");
        const auto length = [](const QByteArray& body) { return "Content-Length: " + QByteArray::number(body.size()) + "\r\n"; };
        const QByteArray big = "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\"><e:Body><r><v>"
            + QByteArray(9 << 20, 'x') + "</v></r></e:Body></e:Envelope>";
        const QByteArray small = QByteArray(okEnvelope).replace("#N#", "7");
        const QByteArray blanks(64 * 1024, ' ');
        for (const bool gzip : {true, false}) {
            const QByteArray bomb = HostileHttpServer::compressionBomb(gzip, 1024);
            const QByteArray name = gzip ? "gzip" : "deflate";
            QTest::addRow("%s bomb of 1 GiB", name.constData())
                << HostileHttpServer::replyHead("Content-Encoding: " + name + "\r\n" + length(bomb)) << bomb << QByteArray()
                << 0 << qint64(0) << 0
                << QStringLiteral("Response refused: compressed with \"%1\", which was not asked for").arg(QString::fromLatin1(name));
        }
        QTest::newRow("endless body") << HostileHttpServer::replyHead("") << QByteArray() << blanks << 0 << qint64(0) << 0
                                      << overDefault;
        QTest::newRow("Content-Length of 8 GiB, endless body")
            << HostileHttpServer::replyHead("Content-Length: 8589934592\r\n") << QByteArray() << blanks << 0 << qint64(0) << 0
            << overDefault;
        QTest::newRow("9 MiB envelope") << HostileHttpServer::replyHead("") << big << QByteArray() << 0 << qint64(0) << 0
                                        << overDefault;
        QTest::newRow("9 MiB envelope, no limit") << HostileHttpServer::replyHead("") << big << QByteArray() << 0 << qint64(-1)
                                                  << 0 << QString();
        QTest::newRow("at a set limit") << HostileHttpServer::replyHead(length(small)) << small << QByteArray() << 0
                                        << qint64(small.size()) << 0 << QString();
        QTest::newRow("a byte over a set limit, announced")
            << HostileHttpServer::replyHead(length(small)) << small << QByteArray() << 0 << qint64(small.size() - 1) << 0
            << tooLarge.arg(small.size() - 1);
        QTest::newRow("a byte over a set limit, unannounced")
            << HostileHttpServer::replyHead("") << small << QByteArray() << 0 << qint64(small.size() - 1) << 0
            << tooLarge.arg(small.size() - 1);
        QTest::newRow("drip-fed body") << HostileHttpServer::replyHead(length(small)) << small << QByteArray() << 20
                                       << qint64(0) << 500 << late.arg(500);
        QTest::newRow("endless header line") << QByteArray("HTTP/1.1 200 OK\r\nX-Padding: ") << QByteArray()
                                             << QByteArray(64 * 1024, 'a') << 0 << qint64(0) << 500 << late.arg(500);
    }

    void hostileReplies()
    {
        QFETCH(QByteArray, head);
        QFETCH(QByteArray, body);
        QFETCH(QByteArray, filler);
        QFETCH(int, dripMsecs);
        QFETCH(qint64, limit);
        QFETCH(int, deadline);
        QFETCH(QString, fault);
        HostileHttpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        server.head = head;
        server.body = body;
        server.filler = filler;
        server.dripMsecs = dripMsecs;
        body.clear();
        QTest::qWait(0); // lets the last row's deferred deletions go
        resetPeakMemory();

        QtSoapHttpTransport transport;
        QCOMPARE(transport.maximumResponseSize(), qint64(8 * 1024 * 1024));
        QCOMPARE(transport.requestDeadline(), 300000);
        if (limit)
            transport.setMaximumResponseSize(limit);
        if (deadline)
            transport.setRequestDeadline(deadline);
        QtSoapMessage request = methodCall(QStringLiteral("m"));
        QElapsedTimer clock;
        clock.start();
        QVERIFY(call(transport, server.serverPort(), request));
        const QtSoapMessage& response = transport.getResponse();
        QVERIFY2(clock.elapsed() < 5000, qPrintable(QStringLiteral("%1 ms: %2").arg(clock.elapsed()).arg(response.faultString().toString())));
        QCOMPARE(header(server.lastRequest, "Accept-Encoding"), QByteArray("identity"));
        if (fault.isEmpty()) {
            QVERIFY2(!response.isFault(), qPrintable(response.faultString().toString()));
        } else {
            QCOMPARE(response.faultCode(), QtSoapMessage::Client);
            QCOMPARE(response.faultString().toString(), fault);
        }
#ifdef __SANITIZE_ADDRESS__
        QSKIP("AddressSanitizer's quarantine and shadow memory count in the peak: it is checked in the plain build");
#endif
        const qint64 peak = peakMemoryMiB();
        if (peak < 0)
            QSKIP("no /proc/self/status: the peak memory is not checked here");
        qInfo("peak resident memory of the process during the request: %lld MiB", peak);
        QVERIFY2(peak < 250, qPrintable(QString::number(peak)));
    }

    // A slot that deletes the transport, connected to either signal, on a reply that was
    // read or one that was refused (whose signals come from inside the abort).
    void deleteInsideResponseReady_data()
    {
        QTest::addColumn<bool>("inMessageSignal");
        QTest::addColumn<qint64>("limit");
        QTest::newRow("plain signal") << false << qint64(0);
        QTest::newRow("message signal") << true << qint64(0);
        QTest::newRow("plain signal, refused reply") << false << qint64(10);
    }

    void deleteInsideResponseReady()
    {
        QFETCH(bool, inMessageSignal);
        QFETCH(qint64, limit);
        const int port = serve(200, okEnvelope);
        QPointer<QtSoapHttpTransport> transport = new QtSoapHttpTransport;
        if (limit)
            transport->setMaximumResponseSize(limit);
        QString events;
        QObject context;
        connect(transport, QOverload<>::of(&QtSoapHttpTransport::responseReady), &context, [&] {
            events += 'p';
            if (!inMessageSignal)
                delete transport;
        });
        connect(transport, QOverload<const QtSoapMessage&>::of(&QtSoapHttpTransport::responseReady), &context,
                [&](const QtSoapMessage& response) {
                    events += response.isFault() ? 'F' : 'm';
                    delete transport;
                });
        transport->setHost(QStringLiteral("127.0.0.1"), port);
        QtSoapMessage request = methodCall(QStringLiteral("m"));
        transport->submitRequest(request, QStringLiteral("/"));
        QTRY_VERIFY_WITH_TIMEOUT(transport.isNull(), 15000);
        QTest::qWait(50); // the manager and the reply, left to the event loop, go now
        QCOMPARE(events, QLatin1String(inMessageSignal ? "pm" : "p"));
    }

private:
    // The port of the recording server answering with `status` and `body`; for status 0,
    // a port that was listened on once, so that it is free and refuses.
    int serve(int status, const QByteArray& body)
    {
        m_server.status = status;
        m_server.body = body;
        if (status)
            return m_server.serverPort();
        QTcpServer closed;
        return closed.listen(QHostAddress::LocalHost) ? closed.serverPort() : -1;
    }

    RecordingServer m_server;
    QProcess m_spyne;
    int m_spynePort = 0;
};

UTILSDLL_TEST_MAIN(TestSoapTransport)
#include "tst_soaptransport.moc"
