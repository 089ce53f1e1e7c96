#include "HostWarningDlg.h"

#include "ui_HostWarningDlg.h"

namespace {
const int s_collapsedHeight = 180;
const int s_expandedHeight = 315;
} // namespace

CHostWarningDlg::CHostWarningDlg(QWidget* parent)
    : CBaseDialog(parent, Qt::WindowFlags())
    , m_ui(std::make_unique<Ui::HostWarningDlg>())
{
    // The language is applied here only: the dialog does not retranslate itself later.
    m_ui->setupUi(this);
    m_ui->explanationWidget->hide();
    connect(m_ui->showExplanatoryCheckBox, &QCheckBox::clicked, this, &CHostWarningDlg::onShowExplanatoryCheckBox);
    connect(m_ui->quitButton, &QPushButton::clicked, this, &CHostWarningDlg::onQuitClicked);
    connect(m_ui->tryButton, &QPushButton::clicked, this, &CHostWarningDlg::reject);
    fitHeight(m_ui->showExplanatoryCheckBox->isChecked());
    m_ui->quitButton->setFocus();
    m_ui->wUpdateIcon->setMandatoryImageSize(QSize(34, 34));
    m_ui->wUpdateIcon->setPixmap(QString(":/icons/messagebox/alert_icon.svg"));
}

CHostWarningDlg::~CHostWarningDlg() = default;

bool CHostWarningDlg::hasUserChosenToQuit() const
{
    return m_hasUserChosenToQuit;
}

void CHostWarningDlg::fitHeight(bool expanded)
{
    const int height = expanded ? s_expandedHeight : s_collapsedHeight;
    m_ui->wRoundedFrame->setFixedHeight(height);
    setFixedHeight(height);
}

void CHostWarningDlg::onShowExplanatoryCheckBox(bool show)
{
    // Grows downwards without re-centring: the top edge stays.
    m_ui->explanationWidget->setVisible(show);
    fitHeight(show);
}

void CHostWarningDlg::onQuitClicked()
{
    m_hasUserChosenToQuit = true;
    done(0);
}
