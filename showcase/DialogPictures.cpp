#include "DialogPictures.h"

#include "AboutDlg.h"
#include "CNativeDialogs.h"
#include "HostWarningDlg.h"
#include "MessageBox.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QPointer>
#include <QTimer>

#include <functional>

namespace {

const QString s_sampleText = "The image was changed. Do you want to save the changes before closing it?";

class PictureWriter
{
public:
    explicit PictureWriter(const QString& folder)
        : m_folder(folder)
    {
    }

    void save(QWidget* window, const QString& name)
    {
        QCoreApplication::processEvents();
        const QString file = QDir(m_folder).filePath(name + ".png");
        if (window->grab().save(file))
            m_written << file;
    }

    // Runs a blocking message box entry; its dialog is pictured once shown, then dismissed.
    void saveModal(const QString& name, const std::function<void()>& entry)
    {
        auto* timer = new QTimer;
        timer->setInterval(5);
        QObject::connect(timer, &QTimer::timeout, [this, timer, name]() {
            QWidget* dialog = QApplication::activeModalWidget();
            if (!dialog || !dialog->isVisible())
                return;
            timer->stop();
            timer->deleteLater();
            save(dialog, name);
            dialog->close();
        });
        timer->start();
        entry();
    }

    QStringList written() const { return m_written; }

private:
    QString m_folder;
    QStringList m_written;
};

} // namespace

QStringList renderDialogPictures(const QString& folder)
{
    QDir().mkpath(folder);
    PictureWriter writer(folder);

    writer.saveModal("message_information", [] { CMessageBox::information(nullptr, "The image was saved.", 165); });
    writer.saveModal("message_warning", [] { CMessageBox::warning(nullptr, "The file cannot be opened.", 165); });
    writer.saveModal("message_critical", [] { CMessageBox::critical(nullptr, "The operation failed.", 165); });
    writer.saveModal("message_yes_no", [] { CMessageBox::yesNoMessage(nullptr, s_sampleText, 165); });
    writer.saveModal("message_rotate", [] { CMessageBox::rotateQuestion(nullptr, "Rotate the image?", 165); });
    writer.saveModal("message_save_discard_cancel",
                     [] { CMessageBox::saveDiscardCancelMessage(nullptr, s_sampleText, 165); });
    writer.saveModal("message_background_processing", [] {
        CMessageBox::backgroundProcessingCancelMessage(nullptr, "The image is still being processed.");
    });

    {
        CHostWarningDlg hostWarning(nullptr);
        hostWarning.show();
        writer.save(&hostWarning, "host_warning");
        hostWarning.findChild<QCheckBox*>("showExplanatoryCheckBox")->click();
        writer.save(&hostWarning, "host_warning_expanded");
    }

    QPointer<QWidget> about = new CAboutDlg;
    about->show();
    writer.save(about, "about");
    about->close();
    QPointer<QWidget> sorel = new CAboutSorelDlg;
    sorel->show();
    writer.save(sorel, "about_sorel");
    sorel->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return writer.written();
}

QString renderFolderChooserPicture(const QString& folder, const QString& shownFolder)
{
    QDir().mkpath(folder);
    PictureWriter writer(folder);
    writer.saveModal("folder_chooser", [&shownFolder] {
        Vexa::CNativeDialogs::instance().getExistingDirectory(nullptr, "Choose a folder", shownFolder);
    });
    return writer.written().value(0);
}
