#pragma once

#include "QtSoapMessage.h"
#include "UtilsDllGlobal.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QUrl>

namespace VEXA_NAMESPACE {

// Posts one QtSoapMessage to an HTTP or HTTPS endpoint and delivers the reply by
// signal. Lives on its owner's thread, whose event loop must run. Every failure
// arrives as a normal responseReady with a fault in the response.
class UTILSDLL_EXPORT QtSoapHttpTransport : public QObject
{
    Q_OBJECT
public:
    explicit QtSoapHttpTransport(QObject* parent = nullptr);
    ~QtSoapHttpTransport() override;

    // A port of 0 means the scheme's default.
    void setHost(const QString& host, int port = 0);
    void setHost(const QString& host, bool useSecureHTTP, int port = 0);
    // The whole header value; it is sent unquoted.
    void setAction(const QString& action);
    // No busy state: a second call while a reply is due starts a second post, and
    // both replies arrive. Wait for responseReady before submitting again.
    void submitRequest(QtSoapMessage& request, const QString& path);

    const QtSoapMessage& getResponse() const;
    // There is no timeout here: a server that accepts the connection and never
    // answers keeps the request waiting. Set one on this manager, for example
    // networkAccessManager()->setTransferTimeout(30000); a transfer that stalls that
    // long then ends as a Client transport fault with both signals, as any network
    // error does.
    QNetworkAccessManager* networkAccessManager();
    QNetworkReply* networkReply();

    // Off by default. When on, a reply that ends with an HTTP error status (SOAP
    // servers send their faults with 500) and whose body is an envelope holding a
    // recognised fault (isFault()) is read like any reply, so getResponse() carries
    // the server's own fault code, string and detail. Every other failed reply still
    // gives the transport fault "Network transport error (...)".
    void setParseFaultReplies(bool parse);
    bool parseFaultReplies() const;

signals:
    // Argument types stand unqualified, so that the meta-object names them as callers
    // write them: SIGNAL(responseReady(const QtSoapMessage&)).
    void responseReady();
    void responseReady(const QtSoapMessage& response);

private slots:
    void readResponse(QNetworkReply* reply);

private:
    bool readFaultReply(QNetworkReply* reply);

    QNetworkAccessManager accessManager;
    QPointer<QNetworkReply> currentReply;
    QUrl endpoint;
    QString soapAction;
    QtSoapMessage response;
    bool faultRepliesParsed = false;
};

} // namespace VEXA_NAMESPACE
