#include "CNativeDialogs.h"
#include "TestEnvironment.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

using namespace VEXA_NAMESPACE;

namespace {

// Runs action on the file dialog that the next modal call shows.
void whenDialogShows(const std::function<void(QFileDialog*)>& action)
{
    QTimer::singleShot(0, [action]() {
        QFileDialog* dialog = nullptr;
        QTRY_VERIFY((dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) != nullptr);
        action(dialog);
        // A failed check above must not leave the modal dialog waiting forever.
        if (dialog->isVisible())
            dialog->reject();
    });
}

// The names that the dialog's file view shows, once its folder is loaded.
QStringList shownNames(QFileDialog* dialog)
{
    QAbstractItemView* view = dialog->findChild<QAbstractItemView*>(QStringLiteral("listView"));
    QStringList names;
    if (!view)
        return names;
    const QModelIndex root = view->rootIndex();
    for (int row = 0; row < view->model()->rowCount(root); ++row)
        names << view->model()->index(row, 0, root).data().toString();
    names.sort();
    return names;
}

void clickSelectFolder(QFileDialog* dialog)
{
    QPushButton* button = dialog->findChild<QPushButton*>(QStringLiteral("selectFolderButton"));
    QVERIFY(button);
    QCOMPARE(button->text(), QStringLiteral("Select Folder"));
    QTest::mouseClick(button, Qt::LeftButton);
}

bool touch(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly);
}

} // namespace

class TestNativeDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void singleInstance();
    void folderChooserShowsImagesAndAnswersFolder();
    void folderChooserAnswersFolderShown();
    void folderChooserCancelAndKeyboard();
    void folderChooserDefaults();
    void fileDialogsIgnoreOptions();
    void settersDoNotReplaceTheDialog();

private:
    QTemporaryDir m_folder;
    QWidget m_parent;
};

void TestNativeDialogs::initTestCase()
{
    QVERIFY(m_folder.isValid());
    for (const char* name : {"a.jpg", "b.tif", "notes.txt"})
        QVERIFY(touch(m_folder.filePath(QLatin1String(name))));
    QVERIFY(QDir(m_folder.path()).mkdir("sub"));
    QVERIFY(touch(m_folder.filePath("sub/c.jpg")));
    m_parent.show();
}

void TestNativeDialogs::singleInstance()
{
    QCOMPARE(&CNativeDialogs::instance(), &CNativeDialogs::instance());
}

void TestNativeDialogs::folderChooserShowsImagesAndAnswersFolder()
{
    QStringList shown;
    QString title;
    whenDialogShows([&](QFileDialog* dialog) {
        title = dialog->windowTitle();
        QTRY_COMPARE(shownNames(dialog).size(), 3);
        shown = shownNames(dialog);
        // A selected file does not change the answer: the folder does.
        dialog->selectFile(m_folder.filePath("a.jpg"));
        clickSelectFolder(dialog);
    });
    const QString answer = CNativeDialogs::instance().getFileBrowserDirectory(&m_parent, "Choose the photos",
                                                                              m_folder.path(), "*.jpg *.tif");
    QCOMPARE(answer, QDir::toNativeSeparators(m_folder.path()));
    QCOMPARE(title, QStringLiteral("Choose the photos"));
    QCOMPARE(shown, QStringList() << "a.jpg" << "b.tif" << "sub");
}

void TestNativeDialogs::folderChooserAnswersFolderShown()
{
    whenDialogShows([&](QFileDialog* dialog) {
        dialog->setDirectory(m_folder.filePath("sub"));
        QTRY_COMPARE(shownNames(dialog), QStringList() << "c.jpg");
        clickSelectFolder(dialog);
    });
    const QString answer =
        CNativeDialogs::instance().getFileBrowserDirectory(&m_parent, "Photos", m_folder.path(), "*.jpg");
    QCOMPARE(answer, QDir::toNativeSeparators(m_folder.filePath("sub")));
}

void TestNativeDialogs::folderChooserCancelAndKeyboard()
{
    bool stayedOpen = false;
    whenDialogShows([&](QFileDialog* dialog) {
        // Return, or a double click on a file, lands in accept(): it must not confirm.
        dialog->selectFile(m_folder.filePath("a.jpg"));
        QMetaObject::invokeMethod(dialog, "accept");
        stayedOpen = dialog->isVisible();
        dialog->setDirectory(m_folder.filePath("sub"));
        dialog->reject();
    });
    const QString answer =
        CNativeDialogs::instance().getFileBrowserDirectory(&m_parent, "Photos", m_folder.path(), "*.jpg");
    QVERIFY(stayedOpen);
    QCOMPARE(answer, QString());
}

void TestNativeDialogs::folderChooserDefaults()
{
    QString title;
    QString directory;
    whenDialogShows([&](QFileDialog* dialog) {
        title = dialog->windowTitle();
        directory = dialog->directory().absolutePath();
        dialog->reject();
    });
    CNativeDialogs::instance().getFileBrowserDirectory(&m_parent, QString(), m_folder.filePath("missing"), "*.jpg");
    QVERIFY(!title.isEmpty());
    QVERIFY(directory != m_folder.filePath("missing"));
}

void TestNativeDialogs::fileDialogsIgnoreOptions()
{
    const QFileDialog::Options callerOptions = QFileDialog::ReadOnly | QFileDialog::HideNameFilterDetails;
    QFileDialog::Options seen;
    const auto record = [&seen](QFileDialog* dialog) {
        seen = dialog->options() & ~QFileDialog::Options(QFileDialog::DontUseNativeDialog);
        dialog->reject();
    };

    whenDialogShows(record);
    QCOMPARE(CNativeDialogs::instance().getOpenFileName(&m_parent, "Open", m_folder.path(), "*.jpg", nullptr,
                                                        callerOptions),
             QString());
    QCOMPARE(seen, QFileDialog::Options());

    whenDialogShows(record);
    QCOMPARE(CNativeDialogs::instance().getOpenFileNames(&m_parent, "Open", m_folder.path(), "*.jpg", nullptr,
                                                         callerOptions),
             QStringList());
    QCOMPARE(seen, QFileDialog::Options());

    whenDialogShows(record);
    CNativeDialogs::instance().getSaveFileName(&m_parent, "Save", m_folder.path(), "*.jpg", nullptr, callerOptions);
    QCOMPARE(seen, QFileDialog::Options());

    whenDialogShows(record);
    CNativeDialogs::instance().getExistingDirectory(&m_parent, "Folder", m_folder.path(), callerOptions);
    QCOMPARE(seen, QFileDialog::Options(QFileDialog::ShowDirsOnly));
}

void TestNativeDialogs::settersDoNotReplaceTheDialog()
{
    CNativeDialogs& dialogs = CNativeDialogs::instance();
    QVERIFY(QMetaObject::invokeMethod(&dialogs, "setOpenFileName", Q_ARG(QString, m_folder.filePath("a.jpg"))));
    QVERIFY(QMetaObject::invokeMethod(&dialogs, "setOpenFileNames",
                                      Q_ARG(QVariantList, QVariantList() << m_folder.filePath("a.jpg"))));
    bool shown = false;
    whenDialogShows([&shown](QFileDialog* dialog) {
        shown = true;
        dialog->reject();
    });
    QCOMPARE(dialogs.getOpenFileName(&m_parent, "Open", m_folder.path(), "*.jpg"), QString());
    QVERIFY(shown);
}

UTILSDLL_TEST_MAIN_WITH(TestNativeDialogs, QApplication)
#include "tst_nativedialogs.moc"
