#include "TestEnvironment.h"

#include "AboutDlg.h"
#include "DialogDriver.h"
#include "HostWarningDlg.h"
#include "MessageBox.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryFile>
#include <QTranslator>

#include <unistd.h>

using UtilsDllTest::whenModalShown;

namespace {

QString stopMessageOf(const Vexa::CErrStrings& strings)
{
    QTemporaryFile capture;
    if (!capture.open())
        return QString();
    fflush(stderr);
    const int saved = dup(STDERR_FILENO);
    dup2(capture.handle(), STDERR_FILENO);
    strings.ShowOutOfMemoryDialog();
    dup2(saved, STDERR_FILENO);
    close(saved);
    capture.seek(0);
    return QString::fromUtf8(capture.readAll());
}

} // namespace

// The translation contexts are a contract with the catalogues: a test catalogue
// with one entry per context shows that each text is looked up where it should be.
class TestTranslations : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void errorStringsFollowRetranslate();
    void dialogsTranslateAtConstruction();

private:
    QTranslator m_translator;
};

void TestTranslations::initTestCase()
{
    QVERIFY(m_translator.load(QStringLiteral(TEST_CATALOGUE)));
}

void TestTranslations::errorStringsFollowRetranslate()
{
    const Vexa::CErrStrings before;
    QVERIFY(QCoreApplication::installTranslator(&m_translator));
    Vexa::CErrStrings retranslated(before);
    QCOMPARE(stopMessageOf(before), QString("Error: Out of memory. Program will be closed.\n"));
    retranslated.Retranslate();
    QCOMPARE(stopMessageOf(retranslated), QString("Test error: Test: out of memory\n"));
    QCOMPARE(stopMessageOf(before), QString("Error: Out of memory. Program will be closed.\n"));
    QCoreApplication::removeTranslator(&m_translator);
}

void TestTranslations::dialogsTranslateAtConstruction()
{
    CHostWarningDlg constructedBefore(nullptr);
    QVERIFY(QCoreApplication::installTranslator(&m_translator));

    // Applied at construction only: the earlier dialog keeps its text.
    QCOMPARE(constructedBefore.findChild<QPushButton*>("quitButton")->text(), QString("Quit"));
    CHostWarningDlg hostWarning(nullptr);
    QCOMPARE(hostWarning.findChild<QPushButton*>("quitButton")->text(), QString("Test quit"));

    QString yes;
    QString title;
    whenModalShown<CMessageBox>([&yes, &title](CMessageBox* box) {
        yes = box->findChild<QPushButton*>("yesButton")->text();
        title = box->windowTitle();
        box->reject();
    });
    CMessageBox::yesNoMessage(nullptr, "Question", 165);
    QCOMPARE(yes, QString("Test yes"));
    QCOMPARE(title, QString("Test dialog"));

    CAboutDlg about;
    QCOMPARE(about.windowTitle(), QString("Test about Vexa Rectivo 3"));
    QCOMPARE(about.findChild<QLabel*>("aboutLabel")->text(), QString("Test version 3.2.0 / Build 254 / 64 bit"));
    CAboutSorelDlg sorel;
    QCOMPARE(sorel.findChild<QLabel*>("label_sorel")->text(), QString("Test collection"));
    // Its own constructor's texts stand under CAboutSorelDlg, which the catalogue lacks.
    QVERIFY(sorel.findChild<QLabel*>("label_footer")->text().startsWith("Version: 3.2.0.254"));
    QCoreApplication::removeTranslator(&m_translator);
}

UTILSDLL_TEST_MAIN_WITH(TestTranslations, QApplication)
#include "tst_translations.moc"
