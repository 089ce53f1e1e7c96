#include "../../WindowsNativeSelectFolderDialog_p.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPushButton>
#include <QWidget>

#include <functional>
#include <utility>

namespace {

// Confirms only on a left mouse button released over it, never from the keyboard:
// Space, or a shortcut, does nothing, as with the Windows dialog's button.
class MouseOnlyButton : public QPushButton
{
public:
    MouseOnlyButton(const QString& text, std::function<void()> released)
        : QPushButton(text)
        , m_released(std::move(released))
    {
    }

protected:
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        const bool over = event->button() == Qt::LeftButton && isDown() && hitButton(event->pos());
        QPushButton::mouseReleaseEvent(event);
        if (over)
            m_released();
    }

private:
    std::function<void()> m_released;
};

// A file-open dialog whose confirming button answers the folder being shown, never
// the selected file: the user sees the image files while choosing their folder.
class SelectFolderDialog : public QFileDialog
{
public:
    SelectFolderDialog(QWidget* parent, const QString& buttonText)
        : QFileDialog(parent)
    {
        // Qt's own dialog, so that the files stay visible and the button is ours.
        setOption(QFileDialog::DontUseNativeDialog, true);
        setFileMode(QFileDialog::ExistingFile);
        setAcceptMode(QFileDialog::AcceptOpen);
        replaceOpenButton(buttonText);
    }

    QString answer() const { return m_answer; }

    void accept() override
    {
        // Return and a double click on a file do not confirm, as on Windows; a typed
        // or chosen folder is entered.
        const QStringList selected = selectedFiles();
        if (!selected.isEmpty() && QFileInfo(selected.first()).isDir())
            setDirectory(selected.first());
    }

protected:
    void showEvent(QShowEvent* event) override
    {
        QFileDialog::showEvent(event);
        // The dialog shows its buttons again as it opens; the Open button stays away.
        if (QDialogButtonBox* buttons = findChild<QDialogButtonBox*>()) {
            if (QPushButton* open = buttons->button(QDialogButtonBox::Open))
                open->hide();
        }
    }

private:
    // The dialog's own Open button is enabled only with a file selected; the
    // replacement is always available and confirms the folder shown.
    void replaceOpenButton(const QString& buttonText)
    {
        QDialogButtonBox* buttons = findChild<QDialogButtonBox*>();
        if (!buttons)
            return;
        auto* select = new MouseOnlyButton(buttonText, [this]() {
            m_answer = QDir::toNativeSeparators(directory().absolutePath());
            done(QDialog::Accepted);
        });
        select->setObjectName(QStringLiteral("selectFolderButton"));
        select->setDefault(false);
        select->setAutoDefault(false);
        buttons->addButton(select, QDialogButtonBox::ActionRole);
    }

    QString m_answer;
};

} // namespace

namespace VexaPlatform {

std::wstring runSelectFolderDialog(std::uintptr_t parentWindow, const std::wstring& buttonText,
                                   const std::wstring& typeName, const std::wstring& patterns,
                                   const std::wstring& title, const std::wstring& folder)
{
    QWidget* parent = QWidget::find(static_cast<WId>(parentWindow));
    SelectFolderDialog dialog(parent, QString::fromStdWString(buttonText));

    // The pattern list comes ';'-separated, the form of a Windows file type list.
    const QString patternList = QString::fromStdWString(patterns).split(QLatin1Char(';'), Qt::SkipEmptyParts)
                                    .join(QLatin1Char(' '));
    dialog.setNameFilter(QStringLiteral("%1 (%2)").arg(QString::fromStdWString(typeName), patternList));
    if (!title.empty())
        dialog.setWindowTitle(QString::fromStdWString(title));
    const QString startFolder = QString::fromStdWString(folder);
    if (!startFolder.isEmpty() && QFileInfo(startFolder).isDir())
        dialog.setDirectory(startFolder);

    if (dialog.exec() != QDialog::Accepted)
        return std::wstring();
    return dialog.answer().toStdWString();
}

} // namespace VexaPlatform
