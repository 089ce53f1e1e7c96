#pragma once

#include "QtSoapMessage.h"
#include "UtilsDllGlobal.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QUrl>

/// \file
/// \brief The SOAP transport over HTTP and HTTPS.

namespace VEXA_NAMESPACE {

/// \brief Posts one QtSoapMessage to an HTTP or HTTPS endpoint and delivers the reply
/// by signal.
///
/// Lives on its owner's thread, whose event loop must run; its creator owns it. Every
/// failure arrives as a normal responseReady() with a fault in the response, and so
/// does a reply that the transport refuses: one larger than maximumResponseSize(), one
/// sent compressed, or one not complete within requestDeadline(). The transport may be
/// deleted in a slot connected to either responseReady() signal.
class UTILSDLL_EXPORT QtSoapHttpTransport : public QObject
{
    Q_OBJECT
public:
    /// A transport with its own network access manager.
    explicit QtSoapHttpTransport(QObject* parent = nullptr);
    /// Abandons a request still under way; no signal follows.
    ~QtSoapHttpTransport() override;

    /// Posts to plain HTTP on \p host. A \p port of 0 means the scheme's default.
    void setHost(const QString& host, int port = 0);
    /// Posts to \p host over HTTPS when \p useSecureHTTP, plain HTTP otherwise. A
    /// \p port of 0 means the scheme's default.
    void setHost(const QString& host, bool useSecureHTTP, int port = 0);
    /// The value of the "SOAPAction" header: the whole value, sent unquoted.
    void setAction(const QString& action);
    /// \brief Clears the last response and posts \p request, as UTF-8, to \p path on
    /// the host.
    ///
    /// No busy state: a second call while a reply is due starts a second post, and
    /// both replies arrive. Wait for responseReady() before submitting again.
    void submitRequest(QtSoapMessage& request, const QString& path);

    /// The last response, or the fault that stands for a failed request.
    const QtSoapMessage& getResponse() const;
    /// \brief The transport's network access manager, still owned by the transport.
    ///
    /// The timeouts are requestDeadline() and Qt's transfer timeout on this manager,
    /// for example networkAccessManager()->setTransferTimeout(30000): a transfer that
    /// stalls that long ends as a Client transport fault with both signals, as any
    /// network error does. The manager asks for uncompressed replies ("Accept-Encoding:
    /// identity"); do not change that header on its requests.
    QNetworkAccessManager* networkAccessManager();
    /// The reply of the request under way, owned by the manager; null when none is.
    QNetworkReply* networkReply();

    /// \brief Whether faults sent with an HTTP error status are read as responses.
    ///
    /// Off by default. When on, a reply that ends with an HTTP error status (SOAP
    /// servers send their faults with 500) and whose body is an envelope holding a
    /// recognised fault (QtSoapMessage::isFault()) is read like any reply, so
    /// getResponse() carries the server's own fault code, string and detail. Every
    /// other failed reply still gives the transport fault "Network transport error (...)".
    void setParseFaultReplies(bool parse);
    /// Whether faults sent with an HTTP error status are read; see setParseFaultReplies().
    bool parseFaultReplies() const;

    /// \brief The most bytes a reply's body may bring, 8 MiB unless set.
    ///
    /// A reply that announces more (Content-Length) is refused at once, and one that
    /// brings more is aborted as soon as it does; the request ends as a Client fault
    /// "Response exceeds the size limit of N bytes". 0 or less means no limit: only for
    /// a server you trust, since a reply is then held whole in memory however large it
    /// grows. Like the deadline, applies to the requests submitted after it is set.
    void setMaximumResponseSize(qint64 bytes);
    /// The size limit of replies in bytes; see setMaximumResponseSize().
    qint64 maximumResponseSize() const;

    /// \brief The longest a request may take from submitRequest() to the reply's last
    /// byte, in milliseconds, 300000 (5 minutes) unless set; 0 or less means none.
    ///
    /// Past it the reply is aborted and the request ends as a Client fault "Response
    /// not complete within the deadline of N ms". Unlike the transfer timeout, it also
    /// ends a server that keeps the transfer alive with a byte now and then, or with a
    /// header that never ends. Applies to the requests submitted after it is set.
    void setRequestDeadline(int msecs);
    /// The deadline of requests in milliseconds; see setRequestDeadline().
    int requestDeadline() const;

Q_SIGNALS:
    /// \brief The response, or the fault that stands for a failure, is in getResponse().
    ///
    /// Both signals fire for every request, on the transport's thread. Argument types
    /// stand unqualified, so that the meta-object names them as callers write them:
    /// SIGNAL(responseReady(const QtSoapMessage&)).
    void responseReady();
    /// As responseReady(), with the response itself.
    void responseReady(const QtSoapMessage& response);

private Q_SLOTS:
    void readResponse(QNetworkReply* reply);

private:
    bool readFaultReply(QNetworkReply* reply, const QByteArray& body);

    // On the heap, so that a transport deleted from a slot of its own signals, while
    // Qt's reply code is still on the stack, can leave the manager and its replies to
    // the event loop instead of freeing them under that code.
    QNetworkAccessManager* accessManager;
    QPointer<QNetworkReply> currentReply;
    QUrl endpoint;
    QString soapAction;
    QtSoapMessage response;
    bool faultRepliesParsed = false;
    qint64 responseSizeLimit = 8 * 1024 * 1024;
    int deadlineMsecs = 5 * 60 * 1000;
    // How many readResponse calls are on the stack.
    int deliveries = 0;
};

} // namespace VEXA_NAMESPACE
