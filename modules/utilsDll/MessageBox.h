#pragma once

#include "UtilsDllGlobal.h"

#include "CBaseDialog.h"

#include <QList>
#include <QMessageBox>
#include <QScopedPointer>

#include <memory>

class QHBoxLayout;
class QPushButton;
namespace Ui {
class CMessageBox;
}

// The product's modal message dialog, used instead of QMessageBox. Only the static
// entries create it, on their own stack; each blocks until the user answers.
class UTILSDLL_EXPORT CMessageBox : public CBaseDialog
{
    Q_OBJECT
public:
    ~CMessageBox() override;

    static void information(QWidget* parent, const QString& text, int height = 165);
    static void warning(QWidget* parent, const QString& text, int height = 165);
    static void critical(QWidget* parent, const QString& text, int height = 165);
    // Yes on the Yes button, No for any other ending.
    static QMessageBox::StandardButton yesNoMessage(QWidget* parent, const QString& text, int height = 165);
    // True on the Rotate button only.
    static bool rotateQuestion(QWidget* parent, const QString& text, int height = 165);
    // Save or Discard on their buttons, Cancel for any other ending.
    static QMessageBox::StandardButton saveDiscardCancelMessage(QWidget* parent, const QString& text,
                                                                int height = 165);
    // Discard on "Quit without saving", Cancel for any other ending.
    static QMessageBox::StandardButton backgroundProcessingCancelMessage(QWidget* parent, const QString& text);

    // Predefined answers of a scripted run, one list per kind of dialog. Stored
    // only: the static entries always show a real dialog.
    Q_INVOKABLE void setRotateQuestion(bool predefinedValue);
    Q_INVOKABLE void setYesNoMessage(bool predefinedButtonPressed);
    Q_INVOKABLE void setYesNoMessageWithCheckBox(bool predefinedButtonPressed, bool predefinedCheckBox);
    Q_INVOKABLE void setSaveDiscardCancelMessage(int predefinedValue);

private Q_SLOTS:
    void onButtonClicked();

private:
    explicit CMessageBox(QWidget* parent);

    static QHBoxLayout* createButtonLayout(CMessageBox& box, bool besideIcon);
    static void prepareContentWidget(CMessageBox& box, const QString& text);
    static void showSimpleMessageBox(QWidget* parent, const QString& text, const QIcon& icon,
                                     const QString& buttonText, int height);
    // Question dialogs: the form, the text and the icon, ready for the button bar.
    static void prepareQuestion(CMessageBox& box, const QString& text, const QString& iconFile, bool smallIcon);
    QPushButton* addButton(QHBoxLayout* bar, const QString& text, const char* name, bool isDefault = false);
    bool clicked(const QPushButton* button) const;

    std::unique_ptr<Ui::CMessageBox> m_ui;
    QPushButton* m_clickedButton = nullptr; // a child of the dialog
    QList<QMessageBox::StandardButton> m_saveDiscardCancelValues;
    QList<QMessageBox::StandardButton> m_yesNoValues;
    QList<bool> m_rotateValues;

    // Stands ready for a scripting client; nothing in the library assigns it.
    static QScopedPointer<CMessageBox> m_scriptingInstance;
};

namespace VEXA_NAMESPACE {

// The texts of the fatal error messages, prepared ahead of time: showing one
// creates no string and no widget, so it works with the heap exhausted.
class UTILSDLL_EXPORT CErrStrings
{
public:
    CErrStrings();
    // Member by member: the raw pointers stay valid only while the source's strings live.
    CErrStrings(const CErrStrings& other) = default;
    CErrStrings& operator=(const CErrStrings& other) = default;

    // Recomputes every text; the host calls it after a change of language.
    void Retranslate();

    void ShowSmallFreeSpaceDialog() const;
    void ShowOutOfMemoryDialog() const;
    void ShowOutOfMemoryInPhotoshopDialog() const;
    void ShowUnhandledExceptionDialog() const;

private:
    void ClearData();
    void show(const ushort* text) const;

    QString m_title;
    QString m_smallFreeSpace;
    QString m_outOfMemory;
    QString m_outOfMemoryInPhotoshop;
    QString m_unhandledException;
    const ushort* m_titleData = nullptr;
    const ushort* m_smallFreeSpaceData = nullptr;
    const ushort* m_outOfMemoryData = nullptr;
    const ushort* m_outOfMemoryInPhotoshopData = nullptr;
    const ushort* m_unhandledExceptionData = nullptr;
};

} // namespace VEXA_NAMESPACE
