#include "TestHttpServer.h"

#include <QSslSocket>

QByteArray TestHttpServer::Request::header(const QByteArray& name) const
{
    for (const auto& entry : headers) {
        if (entry.first.compare(name, Qt::CaseInsensitive) == 0)
            return entry.second;
    }
    return QByteArray();
}

TestHttpServer::TestHttpServer(QObject* parent)
    : QTcpServer(parent)
{
}

void TestHttpServer::setAnswer(int status, const QByteArray& body)
{
    m_status = status;
    m_body = body;
}

void TestHttpServer::holdFirst(int count)
{
    m_holdCount = count;
}

void TestHttpServer::releaseHeld()
{
    for (const auto& held : m_held)
        answer(held.first, held.second);
    m_held.clear();
    m_holdCount = 0;
}

void TestHttpServer::useTls(const QSslCertificate& certificate, const QSslKey& key)
{
    m_certificate = certificate;
    m_key = key;
}

void TestHttpServer::incomingConnection(qintptr socketDescriptor)
{
    QTcpSocket* socket = nullptr;
    if (m_certificate.isNull()) {
        socket = new QTcpSocket(this);
        socket->setSocketDescriptor(socketDescriptor);
    } else {
        auto* secure = new QSslSocket(this);
        secure->setSocketDescriptor(socketDescriptor);
        secure->setLocalCertificate(m_certificate);
        secure->setPrivateKey(m_key);
        secure->startServerEncryption();
        socket = secure;
    }
    m_pending.append({socket, QByteArray()});
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { readFrom(socket); });
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
}

void TestHttpServer::readFrom(QTcpSocket* socket)
{
    auto pending = std::find_if(m_pending.begin(), m_pending.end(), [socket](const Pending& p) { return p.socket == socket; });
    if (pending == m_pending.end())
        return;
    pending->buffer += socket->readAll();
    const int headerEnd = pending->buffer.indexOf("\r\n\r\n");
    if (headerEnd < 0)
        return;

    Request request;
    const QList<QByteArray> lines = pending->buffer.left(headerEnd).split('\n');
    const QList<QByteArray> requestLine = lines.first().trimmed().split(' ');
    request.method = requestLine.value(0);
    request.path = requestLine.value(1);
    for (int i = 1; i < lines.size(); ++i) {
        const int colon = lines[i].indexOf(':');
        request.headers.append({lines[i].left(colon).trimmed(), lines[i].mid(colon + 1).trimmed()});
    }
    const int length = request.header("Content-Length").toInt();
    if (pending->buffer.size() < headerEnd + 4 + length)
        return;
    request.body = pending->buffer.mid(headerEnd + 4, length);
    m_pending.erase(pending);
    m_requests.append(request);

    if (m_requests.size() <= m_holdCount)
        m_held.append({socket, m_requests.size()});
    else
        answer(socket, m_requests.size());
}

void TestHttpServer::answer(QTcpSocket* socket, int ordinal)
{
    const QByteArray body = QByteArray(m_body).replace("#N#", QByteArray::number(ordinal));
    QByteArray reply = "HTTP/1.1 " + QByteArray::number(m_status) + " Test\r\n"
                       "Content-Type: text/xml; charset=utf-8\r\n"
                       "Content-Length: " + QByteArray::number(body.size()) + "\r\n"
                       "Connection: close\r\n\r\n" + body;
    socket->write(reply);
    socket->disconnectFromHost();
}
