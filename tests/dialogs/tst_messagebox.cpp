#include "TestEnvironment.h"
#include "TestLogger.h"

#include "DialogDriver.h"
#include "MessageBox.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

using UtilsDllTest::whenModalShown;

namespace {

enum Entry { Information, Warning, Critical, YesNo, Rotate, SaveDiscardCancel, BackgroundProcessing };

// Runs the entry and returns its answer as an int (-1 for the entries with none).
int runEntry(Entry entry, const QString& text, int height)
{
    switch (entry) {
    case Information: CMessageBox::information(nullptr, text, height); return -1;
    case Warning: CMessageBox::warning(nullptr, text, height); return -1;
    case Critical: CMessageBox::critical(nullptr, text, height); return -1;
    case YesNo: return CMessageBox::yesNoMessage(nullptr, text, height);
    case Rotate: return CMessageBox::rotateQuestion(nullptr, text, height) ? 1 : 0;
    case SaveDiscardCancel: return CMessageBox::saveDiscardCancelMessage(nullptr, text, height);
    case BackgroundProcessing: return CMessageBox::backgroundProcessingCancelMessage(nullptr, text);
    }
    return -2;
}

// The dialog's buttons from left to right, as "name:text", the default one starred.
QStringList buttonsOf(QWidget* dialog)
{
    QList<QPushButton*> buttons = dialog->findChildren<QPushButton*>();
    std::sort(buttons.begin(), buttons.end(), [dialog](QPushButton* a, QPushButton* b) {
        return a->mapTo(dialog, QPoint()).x() < b->mapTo(dialog, QPoint()).x();
    });
    QStringList result;
    for (QPushButton* button : buttons)
        result << button->objectName() + ':' + button->text() + (button->isDefault() ? "*" : "");
    return result;
}

struct Observed
{
    QSize size;
    QStringList buttons;
    QSize iconSize;
    QString text;
    QString title;
};

} // namespace

Q_DECLARE_METATYPE(Entry)

class TestMessageBox : public QObject
{
    Q_OBJECT
private slots:
    void formOfEachEntry_data();
    void formOfEachEntry();
    void answers_data();
    void answers();
    void scriptedAnswersAreOnlyStored();
};

void TestMessageBox::formOfEachEntry_data()
{
    QTest::addColumn<Entry>("entry");
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<int>("height");
    QTest::addColumn<QSize>("iconSize");

    const QSize small(34, 34);
    const QSize natural(-1, -1);
    QTest::newRow("information") << Information << QStringList{"mbSipleButton:OK*"} << 200 << small;
    QTest::newRow("warning") << Warning << QStringList{"mbSipleButton:Close*"} << 210 << small;
    QTest::newRow("critical") << Critical << QStringList{"mbSipleButton:Close*"} << 220 << small;
    QTest::newRow("yes/no") << YesNo << QStringList{"yesButton:Yes*", "noButton:No"} << 230 << small;
    QTest::newRow("rotate") << Rotate << QStringList{"rotateButton:Rotate*", "cancelButton:Cancel"} << 240
                            << natural;
    QTest::newRow("save/discard/cancel")
        << SaveDiscardCancel << QStringList{"discardButton:Don't save", "saveButton:Save*", "cancelButton:Cancel"}
        << 250 << natural;
    QTest::newRow("background processing")
        << BackgroundProcessing
        << QStringList{"dontQuitButton:Don't quit", "quitWithoutSavingButton:Quit without saving*"} << 165 << small;
}

void TestMessageBox::formOfEachEntry()
{
    QFETCH(Entry, entry);
    QFETCH(QStringList, buttons);
    QFETCH(int, height);
    QFETCH(QSize, iconSize);

    Observed seen;
    whenModalShown<CMessageBox>([&seen](CMessageBox* box) {
        seen.size = box->size();
        seen.buttons = buttonsOf(box);
        seen.iconSize = box->findChild<QWidget*>("iconWidget")->property("mandatoryImageSize").toSize();
        seen.text = box->findChild<QLabel*>("textLabel")->text();
        seen.title = box->windowTitle();
        for (QPushButton* button : box->findChildren<QPushButton*>())
            QVERIFY(button->minimumSize() == QSize(80, 36));
        QVERIFY(box->findChild<QWidget*>("wBackgroundWidget"));
        QTest::keyClick(box, Qt::Key_Escape);
    });
    runEntry(entry, "Some text", height);
    QCOMPARE(seen.size, QSize(520, height));
    QCOMPARE(seen.buttons, buttons);
    QCOMPARE(seen.iconSize, iconSize);
    QCOMPARE(seen.text, QString("Some text"));
    QCOMPARE(seen.title, QString("Dialog"));
}

void TestMessageBox::answers_data()
{
    QTest::addColumn<Entry>("entry");
    QTest::addColumn<QString>("action"); // a button's object name, or "Escape" / "Return"
    QTest::addColumn<int>("answer");

    QTest::newRow("information, OK") << Information << "mbSipleButton" << -1;
    QTest::newRow("warning, Escape") << Warning << "Escape" << -1;
    QTest::newRow("critical, Return") << Critical << "Return" << -1;
    QTest::newRow("yes/no, Yes") << YesNo << "yesButton" << int(QMessageBox::Yes);
    QTest::newRow("yes/no, No") << YesNo << "noButton" << int(QMessageBox::No);
    QTest::newRow("yes/no, Escape") << YesNo << "Escape" << int(QMessageBox::No);
    QTest::newRow("yes/no, Return") << YesNo << "Return" << int(QMessageBox::Yes);
    QTest::newRow("rotate, Rotate") << Rotate << "rotateButton" << 1;
    QTest::newRow("rotate, Cancel") << Rotate << "cancelButton" << 0;
    QTest::newRow("rotate, Escape") << Rotate << "Escape" << 0;
    QTest::newRow("rotate, Return") << Rotate << "Return" << 1;
    QTest::newRow("save, Save") << SaveDiscardCancel << "saveButton" << int(QMessageBox::Save);
    QTest::newRow("save, Don't save") << SaveDiscardCancel << "discardButton" << int(QMessageBox::Discard);
    QTest::newRow("save, Cancel") << SaveDiscardCancel << "cancelButton" << int(QMessageBox::Cancel);
    QTest::newRow("save, Escape") << SaveDiscardCancel << "Escape" << int(QMessageBox::Cancel);
    QTest::newRow("save, Return") << SaveDiscardCancel << "Return" << int(QMessageBox::Save);
    QTest::newRow("background, quit") << BackgroundProcessing << "quitWithoutSavingButton"
                                      << int(QMessageBox::Discard);
    QTest::newRow("background, don't quit") << BackgroundProcessing << "dontQuitButton" << int(QMessageBox::Cancel);
    QTest::newRow("background, Escape") << BackgroundProcessing << "Escape" << int(QMessageBox::Cancel);
    QTest::newRow("background, Return") << BackgroundProcessing << "Return" << int(QMessageBox::Discard);
}

void TestMessageBox::answers()
{
    QFETCH(Entry, entry);
    QFETCH(QString, action);
    QFETCH(int, answer);

    bool closed = false;
    whenModalShown<CMessageBox>([action](CMessageBox* box) {
        // Keys go where a user's keys go: to the widget with the focus.
        QWidget* focus = QApplication::focusWidget() ? QApplication::focusWidget() : box;
        if (action == "Escape")
            QTest::keyClick(focus, Qt::Key_Escape);
        else if (action == "Return")
            QTest::keyClick(focus, Qt::Key_Return);
        else
            QTest::mouseClick(box->findChild<QPushButton*>(action), Qt::LeftButton);
    });
    QCOMPARE(runEntry(entry, "Question?", 200), answer);
    closed = QApplication::activeModalWidget() == nullptr;
    QVERIFY(closed);
}

void TestMessageBox::scriptedAnswersAreOnlyStored()
{
    UtilsDllTest::ScopedTestLogger logger;
    CMessageBox* scripted = nullptr;
    whenModalShown<CMessageBox>([&scripted, &logger](CMessageBox* box) {
        scripted = box;
        // The scripting client reaches the setters by name; they only store.
        QVERIFY(QMetaObject::invokeMethod(box, "setYesNoMessage", Q_ARG(bool, true)));
        QVERIFY(QMetaObject::invokeMethod(box, "setRotateQuestion", Q_ARG(bool, true)));
        QVERIFY(QMetaObject::invokeMethod(box, "setYesNoMessageWithCheckBox", Q_ARG(bool, true), Q_ARG(bool, true)));
        QVERIFY(QMetaObject::invokeMethod(box, "setSaveDiscardCancelMessage", Q_ARG(int, QMessageBox::Save)));
        QVERIFY(logger->lines().isEmpty());
        QVERIFY(QMetaObject::invokeMethod(box, "setSaveDiscardCancelMessage", Q_ARG(int, QMessageBox::Yes)));
        QCOMPARE(logger->linesAt('E').size(), 1);
        QVERIFY(logger->linesAt('E').first().contains("ASSERT in "));
        QTest::mouseClick(box->findChild<QPushButton*>("noButton"), Qt::LeftButton);
    });
    QCOMPARE(CMessageBox::yesNoMessage(nullptr, "First", 200), QMessageBox::No);
    QVERIFY(scripted);

    // A predefined Yes does not answer the next dialog: the user does.
    whenModalShown<CMessageBox>([](CMessageBox* box) {
        QTest::mouseClick(box->findChild<QPushButton*>("noButton"), Qt::LeftButton);
    });
    QCOMPARE(CMessageBox::yesNoMessage(nullptr, "Second", 200), QMessageBox::No);
}

UTILSDLL_TEST_MAIN_WITH(TestMessageBox, QApplication)
#include "tst_messagebox.moc"
