#include "QtSoapHttpTransport.h"

#include <QNetworkRequest>

namespace VEXA_NAMESPACE {

namespace {

// Content errors still carry the server's body, and it may hold a fault envelope.
bool carriesReadableBody(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::NoError:
    case QNetworkReply::ContentAccessDenied:
    case QNetworkReply::ContentOperationNotPermittedError:
    case QNetworkReply::ContentNotFoundError:
    case QNetworkReply::UnknownContentError:
        return true;
    default:
        return false;
    }
}

} // namespace

QtSoapHttpTransport::QtSoapHttpTransport(QObject* parent)
    : QObject(parent)
    , accessManager(this)
{
    connect(&accessManager, &QNetworkAccessManager::finished, this, &QtSoapHttpTransport::readResponse);
    // Queued connections look the argument type up by the name in the signature.
    qRegisterMetaType<QtSoapMessage>("QtSoapMessage");
}

QtSoapHttpTransport::~QtSoapHttpTransport() = default;

void QtSoapHttpTransport::setHost(const QString& host, int port)
{
    setHost(host, false, port);
}

void QtSoapHttpTransport::setHost(const QString& host, bool useSecureHTTP, int port)
{
    endpoint.setHost(host, QUrl::DecodedMode);
    endpoint.setScheme(useSecureHTTP ? QStringLiteral("https") : QStringLiteral("http"));
    if (port == 0)
        port = useSecureHTTP ? 443 : 80;
    endpoint.setPort(port);
}

void QtSoapHttpTransport::setAction(const QString& action)
{
    soapAction = action;
}

void QtSoapHttpTransport::submitRequest(QtSoapMessage& request, const QString& path)
{
    QNetworkRequest networkRequest;
    networkRequest.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("text/xml;charset=utf-8"));
    // Unquoted and always present, even when empty: callers whose server wants the
    // quotes of SOAP 1.1 put them into the action themselves. A null value would make
    // Qt drop the header, so an action never set goes out as an empty one.
    const QByteArray action = soapAction.toLatin1();
    networkRequest.setRawHeader("SOAPAction", action.isNull() ? QByteArray("") : action);
    endpoint.setPath(path, QUrl::DecodedMode);
    networkRequest.setUrl(endpoint);

    response.clear();
    currentReply = accessManager.post(networkRequest, request.toXmlString(0).toUtf8());
}

const QtSoapMessage& QtSoapHttpTransport::getResponse() const
{
    return response;
}

QNetworkAccessManager* QtSoapHttpTransport::networkAccessManager()
{
    return &accessManager;
}

QNetworkReply* QtSoapHttpTransport::networkReply()
{
    return currentReply;
}

void QtSoapHttpTransport::setParseFaultReplies(bool parse)
{
    faultRepliesParsed = parse;
}

bool QtSoapHttpTransport::parseFaultReplies() const
{
    return faultRepliesParsed;
}

// The body is read into a message of its own, through the same setContent as any
// reply (so the same guards against hostile input apply), and replaces the response
// only if it holds a fault: anything else must leave the response exactly as the
// transport fault would find it.
bool QtSoapHttpTransport::readFaultReply(QNetworkReply* reply)
{
    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid() || status.toInt() < 400 || status.toInt() > 599)
        return false;
    const QByteArray body = reply->readAll();
    if (body.isEmpty())
        return false;
    QtSoapMessage serverFault;
    if (!serverFault.setContent(body) || !serverFault.isFault())
        return false;
    response = serverFault;
    return true;
}

void QtSoapHttpTransport::readResponse(QNetworkReply* reply)
{
    currentReply = reply;
    if (carriesReadableBody(reply->error())) {
        response.setContent(reply->readAll());
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (status != 200 && status != 100 && response.faultCode() == QtSoapMessage::Other)
            response.setFaultCode(QtSoapMessage::Client);
    } else if (!(faultRepliesParsed && readFaultReply(reply))) {
        // Server errors (5xx) land here too: unless asked for, their body is not
        // read, even if it holds a fault envelope.
        response.setFaultCode(QtSoapMessage::Client);
        response.setFaultString(QStringLiteral("Network transport error (%1): %2")
                                    .arg(int(reply->error()), 0, 10)
                                    .arg(reply->errorString()));
    }
    emit responseReady();
    emit responseReady(response);
    reply->deleteLater();
}

} // namespace VEXA_NAMESPACE
