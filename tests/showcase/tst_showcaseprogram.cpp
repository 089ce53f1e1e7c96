#include "TestEnvironment.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// The showcase as a new user first runs it: on a machine without a display it must
// print its report, write its pictures, say where they are and end by itself.
class TestShowcaseProgram : public QObject
{
    Q_OBJECT
private slots:
    void runsHeadless_data();
    void runsHeadless();
};

void TestShowcaseProgram::runsHeadless_data()
{
    QTest::addColumn<bool>("folderGiven");
    QTest::newRow("no display") << false;
    QTest::newRow("--screenshots") << true;
}

void TestShowcaseProgram::runsHeadless()
{
    QFETCH(bool, folderGiven);
    QTemporaryDir given;
    const QString folder = folderGiven ? given.path() : QDir(QDir::tempPath()).filePath("utilsdll-showcase");

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    environment.remove("QT_QPA_PLATFORM");
    QProcess showcase;
    showcase.setProcessEnvironment(environment);
    showcase.start(SHOWCASE, folderGiven ? QStringList{"--screenshots", folder} : QStringList());
    // A sanitizer build on a busy machine takes minutes; both rows stay within CTest's limit.
    QVERIFY(showcase.waitForFinished(140000));
    QCOMPARE(showcase.exitStatus(), QProcess::NormalExit);
    QCOMPARE(showcase.exitCode(), 0);

    const QString out = QString::fromLocal8Bit(showcase.readAllStandardOutput());
    QVERIFY2(out.contains("Storage locations") && out.contains("Launch state"), qPrintable(out));
    QVERIFY2(out.contains("Screenshots (" + QDir::toNativeSeparators(folder) + ")"), qPrintable(out));
    for (const char* name : {"gallery.png", "page_1.png", "page_2.png", "page_3.png", "page_4.png", "page_5.png", "dialogs/message_yes_no.png",
                             "dialogs/message_critical.png", "dialogs/host_warning.png", "dialogs/about.png",
                             "dialogs/folder_chooser.png"}) {
        const QString file = QDir(folder).filePath(name);
        QVERIFY2(out.contains(QDir::toNativeSeparators(file)), name);
        QVERIFY2(!QImage(file).isNull(), qPrintable(file));
    }
}

UTILSDLL_TEST_MAIN(TestShowcaseProgram)

#include "tst_showcaseprogram.moc"
