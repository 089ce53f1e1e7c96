#include "TestEnvironment.h"

#include "CBaseDialog.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>

namespace {

class HeaderDialog : public CBaseDialog
{
public:
    explicit HeaderDialog(int headerHeight, Qt::WindowFlags flags = {})
        : CBaseDialog(nullptr, flags)
    {
        setHeaderHeight(headerHeight);
        setMinimumSize(200, 120);
        button = new QPushButton("Button", this);
        button->setGeometry(100, 80, 80, 30);
    }
    QPushButton* button;
};

// Mouse events with explicit global positions: the dialog moves under the pointer.
void sendMouse(QWidget* target, QEvent::Type type, const QPoint& local, Qt::MouseButton button,
               Qt::MouseButtons held)
{
    QMouseEvent event(type, local, target->mapToGlobal(local), button, held, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

// Press at 'local', move the pointer by 'delta', release; returns how far the dialog went.
QPoint dragBy(QWidget* dialog, QWidget* pressed, const QPoint& local, const QPoint& delta,
              Qt::MouseButton button = Qt::LeftButton)
{
    const QPoint before = dialog->pos();
    const QPoint global = pressed->mapToGlobal(local);
    sendMouse(pressed, QEvent::MouseButtonPress, local, button, button);
    QMouseEvent move(QEvent::MouseMove, pressed->mapFromGlobal(global + delta), global + delta, Qt::NoButton,
                     button, Qt::NoModifier);
    QApplication::sendEvent(pressed, &move);
    QMouseEvent release(QEvent::MouseButtonRelease, pressed->mapFromGlobal(global + delta), global + delta, button,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(pressed, &release);
    return dialog->pos() - before;
}

QPoint screenCentreFor(const QWidget& window)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    return QPoint(screen.left() + (screen.width() - window.frameGeometry().width()) / 2,
                  screen.top() + (screen.height() - window.frameGeometry().height()) / 2);
}

} // namespace

class TestBaseDialog : public QObject
{
    Q_OBJECT
private slots:
    void windowSetup();
    void dragByHeaderBand_data();
    void dragByHeaderBand();
    void rightButtonAndRelease();
    void centresOnFirstShowOnly();
    void scriptingEntries();
};

void TestBaseDialog::windowSetup()
{
    HeaderDialog dialog(0, Qt::WindowMinMaxButtonsHint | Qt::WindowContextHelpButtonHint);
    QVERIFY(dialog.windowFlags() & Qt::FramelessWindowHint);
    QVERIFY(!(dialog.windowFlags() & (Qt::WindowMinMaxButtonsHint | Qt::WindowContextHelpButtonHint)));
    QVERIFY(dialog.testAttribute(Qt::WA_TranslucentBackground));
}

void TestBaseDialog::dragByHeaderBand_data()
{
    QTest::addColumn<int>("header");
    QTest::addColumn<QPoint>("press");
    QTest::addColumn<bool>("onButton");
    QTest::addColumn<bool>("drags");

    QTest::newRow("band 30, press at 30") << 30 << QPoint(10, 30) << false << true;
    QTest::newRow("band 30, press at 31") << 30 << QPoint(10, 31) << false << false;
    QTest::newRow("band 30, press at 0") << 30 << QPoint(10, 0) << false << true;
    QTest::newRow("no band, press low down") << 0 << QPoint(10, 110) << false << true;
    QTest::newRow("no band, press on a button") << 0 << QPoint(5, 5) << true << false;
}

void TestBaseDialog::dragByHeaderBand()
{
    QFETCH(int, header);
    QFETCH(QPoint, press);
    QFETCH(bool, onButton);
    QFETCH(bool, drags);

    HeaderDialog dialog(header);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QWidget* target = onButton ? static_cast<QWidget*>(dialog.button) : &dialog;
    QCOMPARE(dragBy(&dialog, target, press, QPoint(40, 25)), drags ? QPoint(40, 25) : QPoint(0, 0));
}

void TestBaseDialog::rightButtonAndRelease()
{
    HeaderDialog dialog(0);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dragBy(&dialog, &dialog, QPoint(10, 10), QPoint(30, 30), Qt::RightButton), QPoint(0, 0));

    // A left drag that the right button's release ends.
    const QPoint start = dialog.pos();
    sendMouse(&dialog, QEvent::MouseButtonPress, QPoint(10, 10), Qt::LeftButton, Qt::LeftButton);
    QMouseEvent move(QEvent::MouseMove, QPoint(0, 0), start + QPoint(20, 20), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&dialog, &move);
    QCOMPARE(dialog.pos(), start + QPoint(10, 10));
    sendMouse(&dialog, QEvent::MouseButtonRelease, QPoint(10, 10), Qt::RightButton, Qt::LeftButton);
    QMouseEvent later(QEvent::MouseMove, QPoint(0, 0), start + QPoint(90, 90), Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&dialog, &later);
    QCOMPARE(dialog.pos(), start + QPoint(10, 10));
}

void TestBaseDialog::centresOnFirstShowOnly()
{
    HeaderDialog dialog(0);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.pos(), screenCentreFor(dialog));

    dialog.hide();
    dialog.move(7, 9);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.pos(), QPoint(7, 9));

    QVERIFY(QMetaObject::invokeMethod(&dialog, "moveToScreenCenter"));
    QCOMPARE(dialog.pos(), screenCentreFor(dialog));
}

void TestBaseDialog::scriptingEntries()
{
    HeaderDialog dialog(0);
    dialog.setObjectName("ScriptedDialog");
    QString name;
    QVERIFY(QMetaObject::invokeMethod(&dialog, "getObjectName", Q_RETURN_ARG(QString, name)));
    QCOMPARE(name, QString("ScriptedDialog"));
    QVERIFY(dialog.metaObject()->indexOfSlot("sendNotification()") >= 0);
}

UTILSDLL_TEST_MAIN_WITH(TestBaseDialog, QApplication)
#include "tst_basedialog.moc"
