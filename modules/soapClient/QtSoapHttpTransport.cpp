#include "QtSoapHttpTransport.h"

#include <QNetworkRequest>
#include <QTimer>

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

// Collects one reply's body as it arrives, within the size limit and the deadline,
// so that no more than the limit is ever held. A child of the reply, so it goes with
// it. A refusal aborts the reply, and readResponse turns it into the fault.
class ReplyReader : public QObject
{
public:
    ReplyReader(QNetworkReply* reply, qint64 limit, int deadlineMsecs)
        : QObject(reply)
        , reply(reply)
        , limit(limit)
    {
        connect(reply, &QNetworkReply::metaDataChanged, this, [this] { checkHeaders(); });
        connect(reply, &QNetworkReply::readyRead, this, [this] { take(); });
        if (deadlineMsecs > 0) {
            deadline.setSingleShot(true);
            deadline.setTimerType(Qt::PreciseTimer); // a coarse timer may fire 5% early
            connect(&deadline, &QTimer::timeout, this, [this, deadlineMsecs] {
                refuse(QStringLiteral("Response not complete within the deadline of %1 ms").arg(deadlineMsecs));
            });
            deadline.start(deadlineMsecs);
        }
    }

    // Reads what has arrived; past the limit the reply is refused and nothing more
    // is read.
    void take()
    {
        if (!refusal.isEmpty())
            return;
        const qint64 available = reply->bytesAvailable();
        if (limit > 0 && body.size() + available > limit) {
            refuse(sizeRefusal());
            return;
        }
        if (available > 0)
            body += reply->read(available);
    }

    void finish()
    {
        take();
        deadline.stop();
    }

    QNetworkReply* const reply;
    const qint64 limit;
    QByteArray body;
    QString refusal; // empty while the reply is accepted
    QTimer deadline;

private:
    // We ask for "identity", so Qt leaves the body as it came: a server that
    // compresses anyway is refused before a byte is inflated, since its expansion
    // could not be bounded here.
    void checkHeaders()
    {
        const QByteArray encoding = reply->rawHeader("Content-Encoding").trimmed().toLower();
        bool known = false;
        const qint64 length = reply->header(QNetworkRequest::ContentLengthHeader).toLongLong(&known);
        if (!encoding.isEmpty() && encoding != "identity")
            refusal = QStringLiteral("Response refused: compressed with \"%1\", which was not asked for")
                          .arg(QString::fromLatin1(encoding));
        else if (known && limit > 0 && length > limit)
            refusal = sizeRefusal();
        else
            return;
        // Qt goes on with its own header handling after this signal; the abort waits
        // until that is done, and take() reads nothing meanwhile.
        QMetaObject::invokeMethod(reply, &QNetworkReply::abort, Qt::QueuedConnection);
    }

    QString sizeRefusal() const
    {
        return QStringLiteral("Response exceeds the size limit of %1 bytes").arg(limit);
    }

    void refuse(const QString& text)
    {
        if (!refusal.isEmpty())
            return;
        refusal = text;
        body = QByteArray();
        deadline.stop();
        if (!reply->isFinished())
            reply->abort(); // finishes the reply at once: readResponse runs inside this call
    }
};

} // namespace

QtSoapHttpTransport::QtSoapHttpTransport(QObject* parent)
    : QObject(parent)
    , accessManager(new QNetworkAccessManager(this))
{
    connect(accessManager, &QNetworkAccessManager::finished, this, &QtSoapHttpTransport::readResponse);
    // Queued connections look the argument type up by the name in the signature.
    qRegisterMetaType<QtSoapMessage>("QtSoapMessage");
}

QtSoapHttpTransport::~QtSoapHttpTransport()
{
    if (deliveries == 0)
        return; // the manager goes with the other children
    // Deleted from a slot of responseReady: Qt's reply and manager code resumes when
    // the slot returns, so both must outlive this object until the event loop.
    accessManager->disconnect(this);
    accessManager->setParent(nullptr);
    accessManager->deleteLater();
}

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
    // Qt inflates gzip and deflate without a bound when it asks for them itself, and
    // leaves the body alone when the request names its own encodings.
    networkRequest.setRawHeader("Accept-Encoding", "identity");
    // A redirection is the server's answer, given to the caller as it is: following it
    // would send the envelope somewhere else (Qt 6 follows by default, Qt 5 does not).
    networkRequest.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    endpoint.setPath(path, QUrl::DecodedMode);
    networkRequest.setUrl(endpoint);

    response.clear();
    currentReply = accessManager->post(networkRequest, request.toXmlString(0).toUtf8());
    new ReplyReader(currentReply, responseSizeLimit, deadlineMsecs);
}

const QtSoapMessage& QtSoapHttpTransport::getResponse() const
{
    return response;
}

QNetworkAccessManager* QtSoapHttpTransport::networkAccessManager()
{
    return accessManager;
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

void QtSoapHttpTransport::setMaximumResponseSize(qint64 bytes)
{
    responseSizeLimit = bytes;
}

qint64 QtSoapHttpTransport::maximumResponseSize() const
{
    return responseSizeLimit;
}

void QtSoapHttpTransport::setRequestDeadline(int msecs)
{
    deadlineMsecs = msecs;
}

int QtSoapHttpTransport::requestDeadline() const
{
    return deadlineMsecs;
}

// The body is read into a message of its own, through the same setContent as any
// reply (so the same guards against hostile input apply), and replaces the response
// only if it holds a fault: anything else must leave the response exactly as the
// transport fault would find it.
bool QtSoapHttpTransport::readFaultReply(QNetworkReply* reply, const QByteArray& body)
{
    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid() || status.toInt() < 400 || status.toInt() > 599)
        return false;
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
    // A reply that another caller made on this manager has no reader yet; its body is
    // still taken within the limit.
    ReplyReader* reader = nullptr;
    for (QObject* child : reply->children()) // no meta-object of its own, so no findChild
        if ((reader = dynamic_cast<ReplyReader*>(child)))
            break;
    if (!reader)
        reader = new ReplyReader(reply, responseSizeLimit, 0);
    reader->finish();
    if (!reader->refusal.isEmpty()) {
        response.setFaultCode(QtSoapMessage::Client);
        response.setFaultString(reader->refusal);
    } else if (carriesReadableBody(reply->error())) {
        response.setContent(reader->body);
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (status != 200 && status != 100 && response.faultCode() == QtSoapMessage::Other)
            response.setFaultCode(QtSoapMessage::Client);
    } else if (!(faultRepliesParsed && readFaultReply(reply, reader->body))) {
        // Server errors (5xx) land here too: unless asked for, their body is not
        // read, even if it holds a fault envelope.
        response.setFaultCode(QtSoapMessage::Client);
        response.setFaultString(QStringLiteral("Network transport error (%1): %2")
                                    .arg(int(reply->error()), 0, 10)
                                    .arg(reply->errorString()));
    }
    reader->body = QByteArray();

    // A slot may delete this transport: nothing of it is touched after that.
    const QPointer<QtSoapHttpTransport> alive(this);
    ++deliveries;
    emit responseReady();
    if (alive)
        emit responseReady(response);
    if (!alive)
        return;
    --deliveries;
    reply->deleteLater();
}

} // namespace VEXA_NAMESPACE
