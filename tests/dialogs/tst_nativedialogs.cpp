#include "CNativeDialogs.h"
#include "DialogDriver.h"
#include "TestEnvironment.h"

#include <QtWidgets>

using namespace VEXA_NAMESPACE;
using UtilsDllTest::whenModalShown;

namespace {

// The names that the dialog's file view shows, once its folder is loaded (Qt's own dialog only).
[[maybe_unused]] QStringList shownNames(QFileDialog* dialog)
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

#ifdef Q_OS_WIN
BOOL CALLBACK typeIntoEdit(HWND window, LPARAM text)
{
    wchar_t className[8] = {};
    GetClassNameW(window, className, 8);
    return lstrcmpiW(className, L"Edit") != 0 || !SendMessageW(window, WM_SETTEXT, 0, text);
}

// The system's folder dialog, driven from a Qt timer: Return on the sub-folder's path goes
// into it, then a mouse release over OK confirms.
void driveSystemFolderDialog(const QString& subFolder, QString* title)
{
    auto* timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, [=, step = 0, text = subFolder.toStdWString()]() mutable {
        const HWND dialog = UtilsDllTest::shownSystemDialog();
        if (dialog && step++ == 0) {
            wchar_t caption[64] = {};
            *title = QString::fromWCharArray(caption, GetWindowTextW(dialog, caption, 64));
            EnumChildWindows(dialog, typeIntoEdit, reinterpret_cast<LPARAM>(text.c_str()));
            SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), LPARAM(GetDlgItem(dialog, IDOK)));
        } else if (dialog) {
            SendMessageW(GetDlgItem(dialog, IDOK), WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
            timer->deleteLater();
        }
    });
    timer->start(200);
}
#endif

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
        QString title;
        UTILSDLL_NEEDS_NATIVE_WINDOWS("the system's folder dialog needs the windows plug-in");
#ifdef Q_OS_WIN
        driveSystemFolderDialog(QDir::toNativeSeparators(m_folder.filePath("sub")), &title);
#else
        QStringList shown;
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
            // Only the mouse confirms: Space on the focused button does not.
            button->setFocus();
            QTest::keyClick(button, Qt::Key_Space);
            QVERIFY(dialog->isVisible());
            QTest::mouseClick(button, Qt::LeftButton);
        });
#endif
        const QString answer = CNativeDialogs::instance().getFileBrowserDirectory(&m_parent, "Choose the photos",
                                                                                  m_folder.path(), "*.jpg *.tif");
        QCOMPARE(answer, QDir::toNativeSeparators(m_folder.filePath("sub")));
        QCOMPARE(title, QStringLiteral("Choose the photos"));
#ifndef Q_OS_WIN // the system's list view is not read
        QCOMPARE(shown, QStringList() << "a.jpg" << "b.tif" << "sub");
#endif
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
