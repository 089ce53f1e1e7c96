#include "MessageBox.h"

#include "Log.h"
#include "platform/StopMessage_p.h"
#include "ui_MessageBox.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>

QScopedPointer<CMessageBox> CMessageBox::m_scriptingInstance;

namespace {

// "://" and ":/" reach the same resource; both spellings are kept as they were.
const char* const s_infoIcon = "://icons/messagebox/info_dark_icon.svg";
const char* const s_alertIcon = "://icons/messagebox/alert_dark_icon.svg";
const char* const s_questionIcon = "://icons/messagebox/question_mark_dark_icon.svg";
const char* const s_saveQuestionIcon = ":/icons/messagebox/question_mark_dark_icon.svg";

const int s_width = 520;
const int s_backgroundProcessingHeight = 165;
const QSize s_smallIconSize(34, 34);
const QSize s_buttonMinimumSize(80, 36);

} // namespace

CMessageBox::CMessageBox(QWidget* parent)
    : CBaseDialog(parent, Qt::WindowFlags())
    , m_ui(std::make_unique<Ui::CMessageBox>())
{
    m_ui->setupUi(this);
}

CMessageBox::~CMessageBox() = default;

void CMessageBox::onButtonClicked()
{
    m_clickedButton = qobject_cast<QPushButton*>(sender());
    done(0);
}

bool CMessageBox::clicked(const QPushButton* button) const
{
    return m_clickedButton && m_clickedButton == button;
}

void CMessageBox::prepareContentWidget(CMessageBox& box, const QString& text)
{
    auto* label = new QLabel(&box);
    label->setObjectName("textLabel");
    label->setWordWrap(true);
    label->setText(text);
    box.m_ui->contentLayout->addWidget(label);
}

QHBoxLayout* CMessageBox::createButtonLayout(CMessageBox& box, bool besideIcon)
{
    auto* bar = new QWidget(&box);
    auto* layout = new QHBoxLayout(bar);
    layout->setSpacing(11);
    layout->setContentsMargins(0, 0, 0, 0);
    if (besideIcon)
        box.m_ui->gridLayout->addWidget(bar, 2, 1);
    else // under the whole dialog, so that the bar is centred
        box.m_ui->gridLayout->addWidget(bar, 2, 0, 2, -1);
    return layout;
}

QPushButton* CMessageBox::addButton(QHBoxLayout* bar, const QString& text, const char* name, bool isDefault)
{
    auto* button = new QPushButton(text, this);
    if (isDefault)
        button->setDefault(true);
    button->setMinimumSize(s_buttonMinimumSize);
    connect(button, &QPushButton::clicked, this, &CMessageBox::onButtonClicked);
    button->setObjectName(name);
    bar->addWidget(button);
    return button;
}

void CMessageBox::showSimpleMessageBox(QWidget* parent, const QString& text, const QIcon& icon,
                                       const QString& buttonText, int height)
{
    CMessageBox box(parent);
    prepareContentWidget(box, text);
    box.m_ui->iconWidget->setMandatoryImageSize(s_smallIconSize);
    box.m_ui->iconWidget->setIcon(icon);
    QHBoxLayout* bar = createButtonLayout(box, false);
    bar->addStretch();
    box.addButton(bar, buttonText, "mbSipleButton", true);
    bar->addStretch();
    box.setFixedSize(s_width, height);
    box.exec();
}

void CMessageBox::prepareQuestion(CMessageBox& box, const QString& text, const QString& iconFile, bool smallIcon)
{
    prepareContentWidget(box, text);
    // Only some questions shrink their icon: the difference is part of the look.
    if (smallIcon)
        box.m_ui->iconWidget->setMandatoryImageSize(s_smallIconSize);
    box.m_ui->iconWidget->setIcon(QIcon(iconFile));
}

void CMessageBox::information(QWidget* parent, const QString& text, int height)
{
    showSimpleMessageBox(parent, text, QIcon(s_infoIcon), tr("OK"), height);
}

void CMessageBox::warning(QWidget* parent, const QString& text, int height)
{
    showSimpleMessageBox(parent, text, QIcon(s_alertIcon), tr("Close"), height);
}

void CMessageBox::critical(QWidget* parent, const QString& text, int height)
{
    // The same dialog as warning, under another name.
    showSimpleMessageBox(parent, text, QIcon(s_alertIcon), tr("Close"), height);
}

QMessageBox::StandardButton CMessageBox::yesNoMessage(QWidget* parent, const QString& text, int height)
{
    CMessageBox box(parent);
    prepareQuestion(box, text, s_questionIcon, true);
    QHBoxLayout* bar = createButtonLayout(box, true);
    bar->addStretch();
    QPushButton* yes = box.addButton(bar, tr("Yes"), "yesButton", true);
    box.addButton(bar, tr("No"), "noButton");
    box.setFixedSize(s_width, height);
    box.exec();
    return box.clicked(yes) ? QMessageBox::Yes : QMessageBox::No;
}

bool CMessageBox::rotateQuestion(QWidget* parent, const QString& text, int height)
{
    CMessageBox box(parent);
    prepareQuestion(box, text, s_questionIcon, false);
    QHBoxLayout* bar = createButtonLayout(box, true);
    bar->addStretch();
    QPushButton* rotate = box.addButton(bar, tr("Rotate"), "rotateButton", true);
    box.addButton(bar, tr("Cancel"), "cancelButton");
    box.setFixedSize(s_width, height);
    box.exec();
    return box.clicked(rotate);
}

QMessageBox::StandardButton CMessageBox::saveDiscardCancelMessage(QWidget* parent, const QString& text, int height)
{
    CMessageBox box(parent);
    prepareQuestion(box, text, s_saveQuestionIcon, false);
    QHBoxLayout* bar = createButtonLayout(box, true);
    QPushButton* discard = box.addButton(bar, tr("Don't save"), "discardButton");
    bar->addStretch();
    QPushButton* save = box.addButton(bar, tr("Save"), "saveButton", true);
    box.addButton(bar, tr("Cancel"), "cancelButton");
    box.setFixedSize(s_width, height);
    box.exec();
    if (box.clicked(save))
        return QMessageBox::Save;
    return box.clicked(discard) ? QMessageBox::Discard : QMessageBox::Cancel;
}

QMessageBox::StandardButton CMessageBox::backgroundProcessingCancelMessage(QWidget* parent, const QString& text)
{
    CMessageBox box(parent);
    prepareQuestion(box, text, s_alertIcon, true);
    QHBoxLayout* bar = createButtonLayout(box, true);
    bar->addStretch();
    box.addButton(bar, tr("Don't quit"), "dontQuitButton");
    QPushButton* quit = box.addButton(bar, tr("Quit without saving"), "quitWithoutSavingButton", true);
    box.setFixedSize(s_width, s_backgroundProcessingHeight);
    box.exec();
    return box.clicked(quit) ? QMessageBox::Discard : QMessageBox::Cancel;
}

void CMessageBox::setRotateQuestion(bool predefinedValue)
{
    m_rotateValues.append(predefinedValue);
}

void CMessageBox::setYesNoMessage(bool predefinedButtonPressed)
{
    m_yesNoValues.append(predefinedButtonPressed ? QMessageBox::Yes : QMessageBox::No);
}

void CMessageBox::setYesNoMessageWithCheckBox(bool, bool)
{
}

void CMessageBox::setSaveDiscardCancelMessage(int predefinedValue)
{
    const auto value = QMessageBox::StandardButton(predefinedValue);
    if (value != QMessageBox::Save && value != QMessageBox::Discard && value != QMessageBox::Cancel) {
        ASSERT(false);
        return;
    }
    m_saveDiscardCancelValues.append(value);
}

namespace VEXA_NAMESPACE {

namespace {

const char* const s_productName = "Vexa Rectivo 3";

// The drive of the temporary folder: cut at the first ':'. Without one the whole
// path stays, since left(-1) keeps everything.
QString temporaryDrive()
{
    const QString temp = QStandardPaths::writableLocation(QStandardPaths::TempLocation);
    return temp.left(temp.indexOf(':')) + ":\\";
}

} // namespace

CErrStrings::CErrStrings()
{
    ClearData();
    Retranslate();
}

void CErrStrings::ClearData()
{
}

void CErrStrings::Retranslate()
{
    // Source texts are keys under the context QObject; the catalogues hold the messages.
    m_title = QObject::tr("Error");
    m_smallFreeSpace = QObject::tr("Windows small space message on drive %1").arg(temporaryDrive());
    m_outOfMemory = QObject::tr("Out of memory. Program will be closed.");
    m_outOfMemoryInPhotoshop =
        QObject::tr("%1 has run out of memory. The application may now become unstable. Please close %2 and "
                    "Photoshop, quit all other programs running, and try again.")
            .arg(s_productName, s_productName);
    m_unhandledException = QObject::tr("Unhandled exception. Program will be closed.");

    m_titleData = m_title.utf16();
    m_smallFreeSpaceData = m_smallFreeSpace.utf16();
    m_outOfMemoryData = m_outOfMemory.utf16();
    m_outOfMemoryInPhotoshopData = m_outOfMemoryInPhotoshop.utf16();
    m_unhandledExceptionData = m_unhandledException.utf16();
}

void CErrStrings::show(const ushort* text) const
{
    if (!m_titleData || !text)
        return;
    std::uintptr_t owner = 0;
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) {
        if (QWidget* active = QApplication::activeWindow())
            owner = std::uintptr_t(active->winId());
    }
    VexaPlatform::showStopMessage(owner, reinterpret_cast<const char16_t*>(m_titleData),
                                  reinterpret_cast<const char16_t*>(text));
}

void CErrStrings::ShowSmallFreeSpaceDialog() const
{
    show(m_smallFreeSpaceData);
}

void CErrStrings::ShowOutOfMemoryDialog() const
{
    show(m_outOfMemoryData);
}

void CErrStrings::ShowOutOfMemoryInPhotoshopDialog() const
{
    show(m_outOfMemoryInPhotoshopData);
}

void CErrStrings::ShowUnhandledExceptionDialog() const
{
    show(m_unhandledExceptionData);
}

} // namespace VEXA_NAMESPACE
