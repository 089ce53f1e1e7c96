#pragma once

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>

class CTemporarySettings;
class QApplication;
class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class ToolsPage;
class ArchivePage;
class SoapPage;
class ShowcaseTranslator;

// The last steps of the product's start-up: its style sheets, fonts, logo icon and style.
void dressLikeTheProduct(QApplication& app);

// The gallery: one window that shows what the library offers an embedding
// executable, in the product's look. It starts nothing itself: the caller starts the
// library first, in the product's order.
class ShowcaseWindow : public QWidget
{
    Q_OBJECT
public:
    // Takes 'temporaryStore', the one installed at start-up, if any.
    explicit ShowcaseWindow(CTemporarySettings* temporaryStore = nullptr, QWidget* parent = nullptr);
    ~ShowcaseWindow() override;

    QTabWidget* pages() const;
    bool usingTemporaryStore() const;

    // Writes "gallery.png" and one "page_<n>.png" per page to 'folder'. Returns the files.
    QStringList saveScreenshots(const QString& folder);

public slots:
    void setTemporaryStore(bool on);

protected:
    void changeEvent(QEvent* event) override;

private:
    // What the user answered: a text to translate, or a folder shown as it is.
    struct Answer
    {
        const char* text = nullptr;
        QString folder;
    };

    struct DialogEntry
    {
        QPushButton* button;
        QLabel* answerLabel;
        std::function<Answer()> open; // shows the dialog, returns the user's answer
        const char* title;
        Answer answer;
    };

    QWidget* createDialogsPage();
    QWidget* createStartupPage();
    void addDialogEntry(const char* name, const char* title, std::function<Answer()> open);
    static QString answerText(const Answer& answer);
    void followLanguage();
    void retranslate();
    void refreshReport();

    QComboBox* m_languages = nullptr;
    QLabel* m_languageLabel = nullptr;
    QTabWidget* m_pages = nullptr;
    QList<DialogEntry> m_dialogs;
    QWidget* m_dialogsPage = nullptr;
    QCheckBox* m_temporarySwitch = nullptr;
    QPlainTextEdit* m_report = nullptr;
    ToolsPage* m_tools = nullptr;
    ArchivePage* m_archives = nullptr;
    SoapPage* m_soap = nullptr;
    ShowcaseTranslator* m_translator = nullptr;
    QPointer<CTemporarySettings> m_temporaryStore;
};
