#include "ShowcaseWindow.h"

#include "ShowcaseReport.h"
#include "ShowcaseTranslator.h"
#include "ToolsPage.h"
#include "ArchivePage.h"
#include "SoapPage.h"

#include "AboutDlg.h"
#include "AppBootstrap.h"
#include "CNativeDialogs.h"
#include "HostWarningDlg.h"
#include "LanguageManager.h"
#include "MessageBox.h"
#include "Settings.h"
#include "TemporarySettings.h"
#include "customvexaappstyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Vexa;

namespace {

const char* const s_sampleQuestion =
    QT_TRANSLATE_NOOP("ShowcaseWindow", "The image was changed. Do you want to save the changes before closing it?");

const char* buttonName(QMessageBox::StandardButton button)
{
    switch (button) {
    case QMessageBox::Yes:
        return QT_TRANSLATE_NOOP("ShowcaseWindow", "Yes");
    case QMessageBox::No:
        return QT_TRANSLATE_NOOP("ShowcaseWindow", "No");
    case QMessageBox::Save:
        return QT_TRANSLATE_NOOP("ShowcaseWindow", "Save");
    case QMessageBox::Discard:
        return QT_TRANSLATE_NOOP("ShowcaseWindow", "Don't save");
    case QMessageBox::Cancel:
        return QT_TRANSLATE_NOOP("ShowcaseWindow", "Cancel");
    default:
        return QT_TRANSLATE_NOOP("ShowcaseWindow", "Closed");
    }
}

// The about boxes delete themselves once closed; one merely hidden goes too.
void execAboutBox(QDialog* box)
{
    QPointer<QDialog> dialog = box;
    dialog->exec();
    if (dialog)
        dialog->deleteLater();
}

} // namespace

void dressLikeTheProduct(QApplication& app)
{
    Vexa::setPredefinedAppStyleSheet(QString(), &app);
    Vexa::loadFonts();
    Vexa::loadAppLogoIcon();
    QApplication::setStyle(new Vexa::CustomVexaAppStyle);
}

ShowcaseWindow::ShowcaseWindow(CTemporarySettings* temporaryStore, QWidget* parent)
    : QWidget(parent)
    , m_temporaryStore(temporaryStore)
{
    setObjectName("showcaseWindow");
    auto* layout = new QVBoxLayout(this);

    auto* languageBar = new QHBoxLayout;
    m_languageLabel = new QLabel;
    m_languageLabel->setObjectName("languageLabel");
    m_languages = new QComboBox;
    m_languages->setObjectName("languageComboBox");
    CLanguageManager* languages = CLanguageManager::instance();
    languages->loadLanguages();
    m_languages->setModel(languages->model());
    m_languages->setCurrentIndex(languages->currentLanguageIndex());
    connect(m_languages, QOverload<int>::of(&QComboBox::currentIndexChanged), languages,
            &CLanguageManager::changeLanguage);
    m_translator = new ShowcaseTranslator(this);
    m_translator->follow(languages->currentLanguageAbbrv());
    connect(languages, &CLanguageManager::languageChanged, this, &ShowcaseWindow::followLanguage);
    languageBar->addWidget(m_languageLabel);
    languageBar->addWidget(m_languages, 1);
    layout->addLayout(languageBar);

    m_pages = new QTabWidget;
    m_pages->setObjectName("pages");
    m_pages->addTab(createDialogsPage(), QString());
    m_pages->addTab(createStartupPage(), QString());
    m_tools = new ToolsPage;
    m_pages->addTab(m_tools, QString());
    m_archives = new ArchivePage;
    m_pages->addTab(m_archives, QString());
    m_soap = new SoapPage;
    m_pages->addTab(m_soap, QString());
    layout->addWidget(m_pages, 1);

    resize(760, 560);
    retranslate();
}

ShowcaseWindow::~ShowcaseWindow()
{
    // The temporary store dies with the window: the settings return to the system store.
    delete m_temporaryStore;
}

QTabWidget* ShowcaseWindow::pages() const
{
    return m_pages;
}

bool ShowcaseWindow::usingTemporaryStore() const
{
    return !m_temporaryStore.isNull();
}

QWidget* ShowcaseWindow::createDialogsPage()
{
    m_dialogsPage = new QWidget;
    m_dialogsPage->setLayout(new QGridLayout);

    addDialogEntry("information", QT_TR_NOOP("Information"), [this] {
        CMessageBox::information(this, tr("The image was saved."));
        return Answer{QT_TR_NOOP("OK"), {}};
    });
    addDialogEntry("warning", QT_TR_NOOP("Warning"), [this] {
        CMessageBox::warning(this, tr("The file cannot be opened."));
        return Answer{QT_TR_NOOP("OK"), {}};
    });
    addDialogEntry("critical", QT_TR_NOOP("Critical"), [this] {
        CMessageBox::critical(this, tr("The operation failed."));
        return Answer{QT_TR_NOOP("OK"), {}};
    });
    addDialogEntry("yesNo", QT_TR_NOOP("Yes / No"),
                   [this] { return Answer{buttonName(CMessageBox::yesNoMessage(this, tr(s_sampleQuestion))), {}}; });
    addDialogEntry("rotate", QT_TR_NOOP("Rotate question"), [this] {
        const bool rotate = CMessageBox::rotateQuestion(this, tr("Rotate the image?"));
        return Answer{rotate ? QT_TR_NOOP("Rotate") : QT_TR_NOOP("Cancel"), {}};
    });
    addDialogEntry("saveDiscardCancel", QT_TR_NOOP("Save / Don't save / Cancel"), [this] {
        return Answer{buttonName(CMessageBox::saveDiscardCancelMessage(this, tr(s_sampleQuestion))), {}};
    });
    addDialogEntry("backgroundProcessing", QT_TR_NOOP("Background processing"), [this] {
        const QMessageBox::StandardButton answer =
            CMessageBox::backgroundProcessingCancelMessage(this, tr("The image is still being processed."));
        // The dialog's own buttons read "Quit" / "Don't quit".
        return Answer{answer == QMessageBox::Discard ? QT_TR_NOOP("Quit") : QT_TR_NOOP("Don't quit"), {}};
    });
    addDialogEntry("hostWarning", QT_TR_NOOP("Host warning"), [this] {
        CHostWarningDlg dialog(this);
        dialog.exec();
        return Answer{dialog.hasUserChosenToQuit() ? QT_TR_NOOP("Quit") : QT_TR_NOOP("Continue"), {}};
    });
    addDialogEntry("about", QT_TR_NOOP("About"), [this] {
        execAboutBox(new CAboutDlg(this));
        return Answer{QT_TR_NOOP("Closed"), {}};
    });
    addDialogEntry("aboutSorel", QT_TR_NOOP("About Sorel"), [this] {
        execAboutBox(new CAboutSorelDlg(this));
        return Answer{QT_TR_NOOP("Closed"), {}};
    });
    addDialogEntry("folder", QT_TR_NOOP("Folder chooser"), [this] {
        const QString folder = CNativeDialogs::instance().getExistingDirectory(this, tr("Choose a folder"),
                                                                               QDir::homePath());
        return folder.isEmpty() ? Answer{QT_TR_NOOP("Cancelled"), {}} : Answer{nullptr, folder};
    });
    static_cast<QGridLayout*>(m_dialogsPage->layout())->setRowStretch(m_dialogs.size(), 1);
    return m_dialogsPage;
}

void ShowcaseWindow::addDialogEntry(const char* name, const char* title, std::function<Answer()> open)
{
    auto* grid = static_cast<QGridLayout*>(m_dialogsPage->layout());
    DialogEntry entry{new QPushButton, new QLabel, std::move(open), title, {}};
    entry.button->setObjectName(QString(name) + "Button");
    entry.answerLabel->setObjectName(QString(name) + "Answer");
    const int row = m_dialogs.size();
    grid->addWidget(entry.button, row, 0);
    grid->addWidget(entry.answerLabel, row, 1);
    connect(entry.button, &QPushButton::clicked, this, [this, row] {
        const Answer answer = m_dialogs.at(row).open();
        DialogEntry& clicked = m_dialogs[row];
        clicked.answer = answer;
        clicked.answerLabel->setText(answerText(answer));
    });
    m_dialogs << entry;
}

QString ShowcaseWindow::answerText(const Answer& answer)
{
    return answer.text ? tr(answer.text) : QDir::toNativeSeparators(answer.folder);
}

QWidget* ShowcaseWindow::createStartupPage()
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    m_temporarySwitch = new QCheckBox;
    m_temporarySwitch->setObjectName("temporaryStoreCheckBox");
    connect(m_temporarySwitch, &QCheckBox::toggled, this, &ShowcaseWindow::setTemporaryStore);
    m_report = new QPlainTextEdit;
    m_report->setObjectName("startupReport");
    m_report->setReadOnly(true);
    m_report->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_report->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont)); // the report's columns line up
    layout->addWidget(m_temporarySwitch);
    layout->addWidget(m_report, 1);
    refreshReport();
    return page;
}

void ShowcaseWindow::setTemporaryStore(bool on)
{
    if (on == usingTemporaryStore())
        return;
    if (on) {
        // Seeded from DefaultTemporarySettings.ini beside the executable, when there is one.
        m_temporaryStore = new CTemporarySettings(QCoreApplication::applicationFilePath().toLocal8Bit().constData());
        CSettings::setTemporarySettings(*m_temporaryStore);
    } else {
        // The settings forget a temporary store once it is deleted.
        delete m_temporaryStore;
    }
    const QSignalBlocker blocker(m_temporarySwitch);
    m_temporarySwitch->setChecked(on);
    refreshReport();
}

void ShowcaseWindow::refreshReport()
{
    m_report->setPlainText(showcaseReport(m_temporaryStore));
}

void ShowcaseWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void ShowcaseWindow::followLanguage()
{
    m_translator->follow(CLanguageManager::instance()->currentLanguageAbbrv());
    retranslate();
}

void ShowcaseWindow::retranslate()
{
    setWindowTitle(tr("UtilsDll showcase"));
    CLanguageManager* languages = CLanguageManager::instance();
    m_languageLabel->setText(tr("Language (%1):").arg(languages->currentLanguageAbbrv()));
    {
        const QSignalBlocker blocker(m_languages);
        m_languages->setCurrentIndex(languages->currentLanguageIndex());
    }
    m_pages->setTabText(0, tr("Dialogs"));
    m_pages->setTabText(1, tr("Start-up"));
    m_pages->setTabText(2, tr("Drawing"));
    m_tools->retranslate();
    m_pages->setTabText(3, tr("Archives"));
    m_archives->retranslate();
    m_pages->setTabText(4, tr("SOAP"));
    m_soap->retranslate();
    for (const DialogEntry& entry : qAsConst(m_dialogs)) {
        entry.button->setText(tr(entry.title));
        // An answer already given follows the language too.
        if (!entry.answerLabel->text().isEmpty())
            entry.answerLabel->setText(answerText(entry.answer));
    }
    m_temporarySwitch->setText(tr("Run on a temporary settings store"));
}

QStringList ShowcaseWindow::saveScreenshots(const QString& folder)
{
    QDir().mkpath(folder);
    QStringList written;
    auto save = [&](const QString& name) {
        QCoreApplication::processEvents();
        const QString file = QDir(folder).filePath(name + ".png");
        if (grab().save(file))
            written << file;
    };
    const int shown = m_pages->currentIndex();
    save("gallery");
    for (int page = 0; page < m_pages->count(); ++page) {
        m_pages->setCurrentIndex(page);
        save(QStringLiteral("page_%1").arg(page + 1));
    }
    m_pages->setCurrentIndex(shown);
    return written;
}
