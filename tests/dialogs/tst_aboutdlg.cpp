#include "TestEnvironment.h"

#include "AboutDlg.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QThread>

using Files = QMap<QString, QByteArray>;

// The licence folder sits beside the test program, which has a folder of its own.
namespace {

const QString s_separator = "<br>******************************************************<br>";

QString licencesFolder()
{
    return QCoreApplication::applicationDirPath() + "/Licenses";
}

void writeLicences(const Files& files)
{
    QDir(licencesFolder()).removeRecursively();
    QDir().mkpath(licencesFolder());
    for (auto it = files.begin(); it != files.end(); ++it) {
        QFile file(licencesFolder() + '/' + it.key());
        file.open(QIODevice::WriteOnly);
        file.write(it.value());
    }
}

QList<QLabel*> licenceLabels(QWidget* dialog)
{
    return dialog->findChildren<QLabel*>("lbVisitVexaPatentsPage");
}

QString textOf(QWidget* dialog, const char* name)
{
    return dialog->findChild<QLabel*>(name)->text();
}

} // namespace

class TestAboutDlg : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QDir(licencesFolder()).removeRecursively(); }

    void licencesReadAtOnce_data()
    {
        QTest::addColumn<Files>("files");
        QTest::addColumn<QStringList>("texts"); // the texts shown, in either order
        QTest::addColumn<int>("separators");

        QTest::newRow("no folder") << Files() << QStringList() << -1;
        QTest::newRow("one file") << Files{{"one.txt", "first line\nsecond line\n"}}
                                  << QStringList{"first line<br>second line<br>"} << 0;
        QTest::newRow("two files") << Files{{"one.txt", "A\n"}, {"two.txt", "B\n"}} << QStringList{"A<br>", "B<br>"}
                                   << 1;
        // An empty file drops out of the join, and is taken off the list all the same.
        QTest::newRow("one of two empty") << Files{{"one.txt", ""}, {"two.txt", "B\n"}} << QStringList{"B<br>"} << 0;
        QTest::newRow("other files ignored") << Files{{"one.txt", "A\n"}, {"notes.md", "M\n"}} << QStringList{"A<br>"}
                                             << 0;
    }

    void licencesReadAtOnce()
    {
        QFETCH(Files, files);
        QFETCH(QStringList, texts);
        QFETCH(int, separators);

        if (separators >= 0)
            writeLicences(files);
        CAboutDlg dialog;
        QVERIFY(!dialog.findChild<QThread*>());
        QCOMPARE(licenceLabels(&dialog).size(), 1);
        const QString shown = licenceLabels(&dialog).first()->text();
        QVERIFY(shown.startsWith("Vexa Rectivo and the Vexa logo"));
        for (const QString& text : texts)
            QVERIFY2(shown.contains(text), qPrintable(shown));
        QCOMPARE(shown.count(s_separator), qMax(separators, 0));
        QCOMPARE(shown.contains(s_separator + "<br>"), separators > 0);
        QVERIFY(!shown.endsWith(s_separator));
    }

    void thirdLicenceArrivesFromItsThread()
    {
        writeLicences({{"one.txt", "A\n"}, {"two.txt", "B\n"}, {"three.txt", "C\n"}});
        CAboutDlg dialog;
        auto* thread = dialog.findChild<QThread*>();
        QVERIFY(thread);
        QVERIFY(thread->wait(5000));
        QTRY_COMPARE(licenceLabels(&dialog).size(), 2);

        // The first label holds two texts and ends with the separator; the last file's has none.
        const QString first = licenceLabels(&dialog).at(0)->text();
        QLabel* added = licenceLabels(&dialog).at(1);
        QVERIFY(first.endsWith(s_separator));
        QCOMPARE(first.count(s_separator), 2);
        QVERIFY(QStringList({"A<br>", "B<br>", "C<br>"}).contains(added->text()));
        QVERIFY(!first.contains(added->text()));
        QCOMPARE(added->parentWidget()->objectName(), QString("scrollAreaWidgetContents"));
        QVERIFY(added->wordWrap() && added->openExternalLinks());
    }

    void fixedTextsOfBothBoxes()
    {
        CAboutDlg about;
        QCOMPARE(about.windowTitle(), QString("About Vexa Rectivo 3"));
        QCOMPARE(textOf(&about, "aboutLabel"), QString("Version 3.2.0 / Build 254 / 64 bit"));
        QCOMPARE(textOf(&about, "label_3"), QString("Shift your perspective"));
        QVERIFY(textOf(&about, "lbVisitVexaHomePage")
                    .contains("?utm_source=Rectivo3&utm_medium=software&utm_content=empty"));
        QVERIFY(about.findChild<QWidget*>("label_3")->styleSheet().endsWith(
            "font-size: 20px; font-weight: bold; font-family: \"OpenSansLight\";"));
        QCOMPARE(about.findChild<QWidget*>("grayWidget")->styleSheet(), QString("background:#262626"));
        QCOMPARE(about.findChild<QWidget*>("blackWidget")->styleSheet(), QString("background:black"));
        about.updateProductName("");
        QCOMPARE(textOf(&about, "label_1"), QString("Vexa Rectivo 3"));
        about.updateProductName("Pro");
        QCOMPARE(textOf(&about, "label_1"), QString("Vexa Rectivo 3 Pro"));

        CAboutSorelDlg sorel;
        QCOMPARE(sorel.size(), QSize(417, 500));
        QCOMPARE(sorel.minimumSize(), sorel.maximumSize());
        QCOMPARE(sorel.windowTitle(), QString("About"));
        QCOMPARE(textOf(&sorel, "label_sorel"), QString("Sorel Collection by Vexa"));
        QVERIFY(textOf(&sorel, "label_product_name").contains(">Vexa Rectivo 3<sup>&reg;</sup></p>"));
        QCOMPARE(textOf(&sorel, "label_footer"), QString("Version: 3.2.0.254 x64 (v0.0.0.0)"));
        const QString link = textOf(&sorel, "label_acknowledgements");
        QVERIFY2(link.startsWith("<a href=\"file:///" + licencesFolder() + "/acknowledgments.html\""),
                 qPrintable(link));
        QCOMPARE(sorel.findChild<QLabel*>("label_acknowledgements")->textInteractionFlags(),
                 Qt::TextBrowserInteraction);
    }

    // Runs again under Xvfb, by name, since a real X server delivers activation differently.
    // Closing is also how both boxes are deleted: they delete themselves on close.
    void closesWhenAnotherWindowIsActivated()
    {
        QWidget other;
        other.resize(200, 200);
        other.show();
        QVERIFY(QTest::qWaitForWindowExposed(&other));

        for (int variant = 0; variant < 2; ++variant) {
            QPointer<QWidget> about = variant == 0 ? static_cast<QWidget*>(new CAboutDlg)
                                                   : static_cast<QWidget*>(new CAboutSorelDlg);
            // Hidden and shown again, it keeps one filter: one loss of activation still closes it.
            for (int round = 0; round < 2; ++round) {
                about->hide();
                about->show();
                about->activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(about));
            }
            QVERIFY(about);
            other.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&other));
            QTRY_VERIFY(about.isNull());
        }
    }
};

UTILSDLL_TEST_MAIN_WITH(TestAboutDlg, QApplication)
#include "tst_aboutdlg.moc"
