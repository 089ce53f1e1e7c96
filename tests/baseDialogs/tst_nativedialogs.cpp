#include "CNativeDialogs.h"
#include "DialogDriver.h"
#include "TestEnvironment.h"

#include <QtWidgets>

using namespace VEXA_NAMESPACE;
using UtilsDllTest::whenModalShown;

namespace {

// The names that the dialog's file view shows, once its folder is loaded.
QStringList shownNames(QFileDialog* dialog)
{
    QAbstractItemView* view = dialog->findChild<QAbstractItemView*>(QStringLiteral("listView"));
    QStringList names;
    const QModelIndex root = view ? view->rootIndex() : QModelIndex();
    for (int row = 0; view && row < view->model()->rowCount(root); ++row)
        names << view->model()->index(row, 0, root).data().toString();
    names.sort();
    return names;
}

// Runs action on the file dialog shown next; a failed check must not leave it waiting.
void whenDialogShows(const std::function<void(QFileDialog*)>& action)
{
    whenModalShown<QFileDialog>([action](QFileDialog* dialog) {
        action(dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
}

} // namespace

class TestNativeDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        QVERIFY(QDir(m_folder.path()).mkdir("sub"));
        for (const char* name : {"a.jpg", "b.tif", "notes.txt", "sub/c.jpg"})
            QVERIFY(QFile(m_folder.filePath(QLatin1String(name))).open(QIODevice::WriteOnly));
        m_parent.show();
    }

    void folderChooserAnswersTheFolderShown()
    {
        QStringList shown;
        QString title;
        whenDialogShows([&](QFileDialog* dialog) {
            title = dialog->windowTitle();
            QTRY_COMPARE(shownNames(dialog).size(), 3);
            shown = shownNames(dialog);
            dialog->setDirectory(m_folder.filePath("sub"));
            QTRY_COMPARE(shownNames(dialog), QStringList() << "c.jpg");
            // A selected file does not change the answer: the folder does. Return, or a double
            // click on a file, lands in accept(): it must not confirm.
            dialog->selectFile(m_folder.filePath("sub/c.jpg"));
            QMetaObject::invokeMethod(dialog, "accept");
            QVERIFY(dialog->isVisible());
            QPushButton* button = dialog->findChild<QPushButton*>(QStringLiteral("selectFolderButton"));
            QVERIFY(button);
            QCOMPARE(button->text(), QStringLiteral("Select Folder"));
            QTest::mouseClick(button, Qt::LeftButton);
        });
        const QString answer = CNativeDialogs::instance().getFileBrowserDirectory(&m_parent, "Choose the photos",
                                                                                  m_folder.path(), "*.jpg *.tif");
        QCOMPARE(answer, QDir::toNativeSeparators(m_folder.filePath("sub")));
        QCOMPARE(title, QStringLiteral("Choose the photos"));
        QCOMPARE(shown, QStringList() << "a.jpg" << "b.tif" << "sub");
    }

    // The caller's options have no effect: only the folder chooser keeps one option of its own.
    // The scripting setters only store: the call whose answer was set still shows a dialog.
    void fileDialogsIgnoreOptionsAndStoredAnswers()
    {
        const QFileDialog::Options callerOptions = QFileDialog::ReadOnly | QFileDialog::HideNameFilterDetails;
        CNativeDialogs& dialogs = CNativeDialogs::instance();
        const QString folder = m_folder.path();
        QVERIFY(QMetaObject::invokeMethod(&dialogs, "setOpenFileName", Q_ARG(QString, m_folder.filePath("a.jpg"))));
        const QList<std::function<QVariant()>> calls = {
            [&] { return dialogs.getOpenFileName(&m_parent, "Open", folder, "*.jpg", nullptr, callerOptions); },
            [&] { return dialogs.getOpenFileNames(&m_parent, "Open", folder, "*.jpg", nullptr, callerOptions); },
            [&] { return dialogs.getSaveFileName(&m_parent, "Save", folder, "*.jpg", nullptr, callerOptions); },
            [&] { return dialogs.getExistingDirectory(&m_parent, "Folder", folder, callerOptions); },
        };
        for (int i = 0; i < calls.size(); ++i) {
            QFileDialog::Options seen = QFileDialog::DontConfirmOverwrite; // never asked for: shows a missed dialog
            whenDialogShows([&seen](QFileDialog* dialog) {
                seen = dialog->options() & ~QFileDialog::Options(QFileDialog::DontUseNativeDialog);
            });
            const QVariant answer = calls[i]();
            QVERIFY2(answer.toStringList().join(QString()).isEmpty(), qPrintable(answer.toStringList().join('|')));
            QCOMPARE(seen, i == 3 ? QFileDialog::Options(QFileDialog::ShowDirsOnly) : QFileDialog::Options());
        }
    }

private:
    QTemporaryDir m_folder;
    QWidget m_parent;
};

UTILSDLL_TEST_MAIN_WITH(TestNativeDialogs, QApplication)
#include "tst_nativedialogs.moc"
