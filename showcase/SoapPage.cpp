#include "SoapPage.h"

#include "QtSoapHttpTransport.h"
#include "QtSoapMessage.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace Vexa;

namespace {

QPlainTextEdit* envelopeView(const char* name)
{
    auto* view = new QPlainTextEdit;
    view->setObjectName(name);
    view->setReadOnly(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return view;
}

} // namespace

SoapPage::SoapPage(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    m_form = new QFormLayout;
    m_host = addField("hostField", "localhost");
    m_port = new QSpinBox;
    m_port->setObjectName("portSpinBox");
    m_port->setRange(0, 65535);
    m_port->setValue(8000);
    m_form->addRow(new QLabel, m_port);
    m_https = new QCheckBox;
    m_https->setObjectName("httpsCheckBox");
    m_form->addRow(new QLabel, m_https);
    m_path = addField("pathField", "/");
    m_action = addField("actionField", "say_hello");
    m_method = addField("methodField", "say_hello");
    m_namespace = addField("namespaceField", "spyne.examples.hello");
    // "name=value" pairs separated by ';', in the method's namespace.
    m_arguments = addField("argumentsField", "name=Vexa;times=2");
    layout->addLayout(m_form);

    m_send = new QPushButton;
    m_send->setObjectName("sendButton");
    connect(m_send, &QPushButton::clicked, this, &SoapPage::send);
    layout->addWidget(m_send);

    m_request = envelopeView("requestEnvelope");
    m_response = envelopeView("responseEnvelope");
    auto* envelopes = new QHBoxLayout;
    envelopes->addWidget(m_request);
    envelopes->addWidget(m_response);
    layout->addLayout(envelopes, 1);
    m_fault = new QLabel;
    m_fault->setObjectName("faultLabel");
    m_fault->setWordWrap(true);
    layout->addWidget(m_fault);

    m_transport = new QtSoapHttpTransport(this);
    connect(m_transport, QOverload<const QtSoapMessage&>::of(&QtSoapHttpTransport::responseReady), this,
            &SoapPage::showResponse);
    retranslate();
}

QLineEdit* SoapPage::addField(const char* name, const QString& value)
{
    auto* field = new QLineEdit(value);
    field->setObjectName(name);
    m_form->addRow(new QLabel, field);
    return field;
}

void SoapPage::send()
{
    QtSoapMessage request;
    request.setMethod(m_method->text(), m_namespace->text());
    for (const QString& pair : m_arguments->text().split(';', Qt::SkipEmptyParts)) {
        const int equals = pair.indexOf('=');
        if (equals > 0)
            request.addMethodArgument(pair.left(equals).trimmed(), m_namespace->text(), pair.mid(equals + 1).trimmed());
    }
    m_request->setPlainText(request.toXmlString(2));
    m_response->clear();
    showFault([] { return tr("Waiting for the answer..."); });
    m_transport->setHost(m_host->text(), m_https->isChecked(), m_port->value());
    m_transport->setAction(m_action->text());
    m_transport->submitRequest(request, m_path->text());
}

void SoapPage::showResponse(const QtSoapMessage& response)
{
    m_response->setPlainText(response.toXmlString(2));
    if (response.isFault()) {
        const QString fault = response.faultString().toString();
        showFault([fault] { return tr("Fault: %1").arg(fault); });
    } else {
        showFault([] { return tr("No fault."); });
    }
}

void SoapPage::showFault(std::function<QString()> describe)
{
    m_describeFault = std::move(describe);
    m_fault->setText(m_describeFault());
}

void SoapPage::retranslate()
{
    const QStringList labels{tr("Host"), tr("Port"), tr("HTTPS"), tr("Path"), tr("Action"), tr("Method"),
                             tr("Namespace"), tr("Arguments")};
    for (int row = 0; row < labels.size(); ++row) {
        QLayoutItem* item = m_form->itemAt(row, QFormLayout::LabelRole);
        if (auto* label = qobject_cast<QLabel*>(item ? item->widget() : nullptr))
            label->setText(labels.at(row));
    }
    m_https->setText(tr("Use HTTPS"));
    m_send->setText(tr("Send the request"));
    m_request->setPlaceholderText(tr("The request envelope"));
    m_response->setPlaceholderText(tr("The response envelope"));
    if (m_describeFault)
        m_fault->setText(m_describeFault());
}
