#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QSslCertificate>
#include <QSslKey>
#include <QTcpServer>

class QTcpSocket;

// A small HTTP/1.1 server inside the test process. It records every request as it
// arrived and answers with the status and body the test sets; "#N#" in the body
// becomes the ordinal of the request. With holdFirst(n) the first n requests stay
// unanswered until releaseHeld(). With a certificate and key it speaks TLS.
class TestHttpServer : public QTcpServer
{
    Q_OBJECT
public:
    struct Request
    {
        QByteArray method;
        QByteArray path;
        QList<QPair<QByteArray, QByteArray>> headers;
        QByteArray body;

        QByteArray header(const QByteArray& name) const;
    };

    explicit TestHttpServer(QObject* parent = nullptr);

    void setAnswer(int status, const QByteArray& body);
    void holdFirst(int count);
    void releaseHeld();
    void useTls(const QSslCertificate& certificate, const QSslKey& key);

    QList<Request> requests() const { return m_requests; }

protected:
    void incomingConnection(qintptr socketDescriptor) override;

private:
    struct Pending
    {
        QTcpSocket* socket;
        QByteArray buffer;
    };

    void readFrom(QTcpSocket* socket);
    void answer(QTcpSocket* socket, int ordinal);

    int m_status = 200;
    QByteArray m_body;
    int m_holdCount = 0;
    QList<QPair<QTcpSocket*, int>> m_held;
    QList<Request> m_requests;
    QList<Pending> m_pending;
    QSslCertificate m_certificate;
    QSslKey m_key;
};
