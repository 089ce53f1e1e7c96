#pragma once

#include "UtilsDllGlobal.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

namespace VEXA_NAMESPACE {
class QtSoapHttpTransport;
class QtSoapMessage;
} // namespace VEXA_NAMESPACE

// The gallery's SOAP page: a call form that sends one request through the library's
// HTTP transport and shows both envelopes and the fault, if any.
class SoapPage : public QWidget
{
    Q_OBJECT
public:
    explicit SoapPage(QWidget* parent = nullptr);

    void retranslate();

private slots:
    void send();
    void showResponse(const Vexa::QtSoapMessage& response);

private:
    QLineEdit* addField(const char* name, const QString& value);
    // The fault line is kept as a description, so that it follows the language.
    void showFault(std::function<QString()> describe);

    QFormLayout* m_form = nullptr;
    QLineEdit* m_host = nullptr;
    QSpinBox* m_port = nullptr;
    QCheckBox* m_https = nullptr;
    QLineEdit* m_path = nullptr;
    QLineEdit* m_action = nullptr;
    QLineEdit* m_method = nullptr;
    QLineEdit* m_namespace = nullptr;
    QLineEdit* m_arguments = nullptr;
    QPushButton* m_send = nullptr;
    QPlainTextEdit* m_request = nullptr;
    QPlainTextEdit* m_response = nullptr;
    QLabel* m_fault = nullptr;
    std::function<QString()> m_describeFault;
    Vexa::QtSoapHttpTransport* m_transport = nullptr;
};
