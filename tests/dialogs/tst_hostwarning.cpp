#include "TestEnvironment.h"

#include "DialogDriver.h"
#include "HostWarningDlg.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

using UtilsDllTest::whenModalShown;

class TestHostWarning : public QObject
{
    Q_OBJECT
private slots:
    void endings_data();
    void endings();
    void explanationGrowsAndShrinks();
    void tabOrderAndTexts();
};

void TestHostWarning::endings_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("quits");

    QTest::newRow("Quit button") << "quitButton" << true;
    QTest::newRow("Try button") << "tryButton" << false;
    QTest::newRow("Escape") << "Escape" << false;
    // The focus starts on Quit, so Return at once quits.
    QTest::newRow("Return") << "Return" << true;
}

void TestHostWarning::endings()
{
    QFETCH(QString, action);
    QFETCH(bool, quits);

    CHostWarningDlg dialog(nullptr);
    QString focused;
    whenModalShown<CHostWarningDlg>([&focused, action](CHostWarningDlg* shown) {
        QWidget* focus = QApplication::focusWidget();
        focused = focus ? focus->objectName() : QString();
        if (action == "Escape" || action == "Return")
            QTest::keyClick(focus ? focus : shown, action == "Escape" ? Qt::Key_Escape : Qt::Key_Return);
        else
            QTest::mouseClick(shown->findChild<QPushButton*>(action), Qt::LeftButton);
    });
    const int code = dialog.exec();
    QCOMPARE(focused, QString("quitButton"));
    QCOMPARE(dialog.hasUserChosenToQuit(), quits);
    QCOMPARE(code, 0);
    QVERIFY(!dialog.isVisible());
}

void TestHostWarning::explanationGrowsAndShrinks()
{
    CHostWarningDlg dialog(nullptr);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto* frame = dialog.findChild<QWidget*>("wRoundedFrame");
    auto* explanation = dialog.findChild<QWidget*>("explanationWidget");
    auto* checkBox = dialog.findChild<QCheckBox*>("showExplanatoryCheckBox");
    QCOMPARE(dialog.height(), 180);
    QCOMPARE(frame->height(), 180);
    QVERIFY(!explanation->isVisible());
    QCOMPARE(dialog.findChild<QWidget*>("wUpdateIcon")->size(), QSize(34, 34));

    const QPoint topLeft = dialog.pos();
    QTest::mouseClick(checkBox, Qt::LeftButton, {}, QPoint(5, checkBox->height() / 2));
    QVERIFY(checkBox->isChecked());
    QCOMPARE(dialog.height(), 315);
    QCOMPARE(frame->height(), 315);
    QVERIFY(explanation->isVisible());
    QCOMPARE(dialog.pos(), topLeft);

    QTest::mouseClick(checkBox, Qt::LeftButton, {}, QPoint(5, checkBox->height() / 2));
    QCOMPARE(dialog.height(), 180);
    QVERIFY(!explanation->isVisible());
    QVERIFY(!dialog.hasUserChosenToQuit());
}

void TestHostWarning::tabOrderAndTexts()
{
    CHostWarningDlg dialog(nullptr);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QStringList order;
    for (int i = 0; i < 3; ++i) {
        order << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QStringList{"quitButton", "tryButton", "showExplanatoryCheckBox"}));

    QCOMPARE(dialog.objectName(), QString("HostWarningDlg"));
    QCOMPARE(dialog.windowTitle(), QString("Open original image"));
    QCOMPARE(dialog.findChild<QLabel*>("mainTextLabel")->text(), QString("Your image cannot be modified."));
    QCOMPARE(dialog.findChild<QPushButton*>("tryButton")->text(), QString("Try"));
    QCOMPARE(dialog.minimumWidth(), 600);
}

UTILSDLL_TEST_MAIN_WITH(TestHostWarning, QApplication)
#include "tst_hostwarning.moc"
