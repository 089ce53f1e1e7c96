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

/// \file
/// \brief The product's message boxes and the prepared fatal error messages.

/// \brief The product's modal message dialog, used instead of QMessageBox.
///
/// Only the static entries create it, on their own stack; each blocks until the user
/// answers. GUI thread only. \p text may be rich text; \p height is the dialog's fixed
/// height in pixels.
class UTILSDLL_EXPORT CMessageBox : public CBaseDialog
{
    Q_OBJECT
public:
    ~CMessageBox() override;

    /// Shows \p text with the information icon and an OK button.
    static void information(QWidget* parent, const QString& text, int height = 165);
    /// Shows \p text with the alert icon and a Close button.
    static void warning(QWidget* parent, const QString& text, int height = 165);
    /// Shows \p text with the alert icon and a Close button, as warning() does.
    static void critical(QWidget* parent, const QString& text, int height = 165);
    /// Asks Yes or No: Yes on the Yes button, No for any other ending.
    static QMessageBox::StandardButton yesNoMessage(QWidget* parent, const QString& text, int height = 165);
    /// Asks Rotate or Cancel: true on the Rotate button only.
    static bool rotateQuestion(QWidget* parent, const QString& text, int height = 165);
    /// Asks "Don't save", Save or Cancel: Save or Discard on their buttons, Cancel for
    /// any other ending.
    static QMessageBox::StandardButton saveDiscardCancelMessage(QWidget* parent, const QString& text,
                                                                int height = 165);
    /// Asks "Don't quit" or "Quit without saving": Discard on "Quit without saving",
    /// Cancel for any other ending.
    static QMessageBox::StandardButton backgroundProcessingCancelMessage(QWidget* parent, const QString& text);

    /// \brief Stores a predefined answer of rotateQuestion() for a scripted run.
    ///
    /// The predefined answers are kept in one list per kind of dialog. Stored only: the
    /// static entries always show a real dialog.
    Q_INVOKABLE void setRotateQuestion(bool predefinedValue);
    /// Stores a predefined answer of yesNoMessage(); stored only.
    Q_INVOKABLE void setYesNoMessage(bool predefinedButtonPressed);
    /// Does nothing: the dialog with a check box has no entry here.
    Q_INVOKABLE void setYesNoMessageWithCheckBox(bool predefinedButtonPressed, bool predefinedCheckBox);
    /// Stores a predefined answer of saveDiscardCancelMessage(): Save, Discard or Cancel
    /// as a QMessageBox::StandardButton value, anything else refused with an ASSERT line.
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

/// \brief The texts of the fatal error messages, prepared ahead of time.
///
/// Showing one creates no string and no widget, so it works with the heap exhausted:
/// the message is the system's own stop message box, owned by the active window.
class UTILSDLL_EXPORT CErrStrings
{
public:
    /// Prepares every text in the language in force.
    CErrStrings();
    /// Member by member: the raw pointers stay valid only while the source's strings live.
    CErrStrings(const CErrStrings& other) = default;
    /// Member by member, as the copy constructor.
    CErrStrings& operator=(const CErrStrings& other) = default;

    /// Recomputes every text; the host calls it after a change of language.
    void Retranslate();

    /// Shows that the drive of the temporary folder is short of space.
    void ShowSmallFreeSpaceDialog() const;
    /// Shows that memory ran out and the program will be closed.
    void ShowOutOfMemoryDialog() const;
    /// Shows that the host ran out of memory and should be closed.
    void ShowOutOfMemoryInPhotoshopDialog() const;
    /// Shows that an unhandled exception will close the program.
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
