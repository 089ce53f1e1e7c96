#include "TestEnvironment.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

// The showcase as a new user first runs it: on a machine without a display it must
// print its report, write its pictures, say where they are and end by itself.
class TestShowcaseProgram : public QObject
{
    Q_OBJECT
private slots:
    void runsHeadless_data()
    {
        QTest::addColumn<bool>("folderGiven");
        QTest::newRow("no display") << false;
        QTest::newRow("--screenshots") << true;
    }

    void runsHeadless()
    {
        QFETCH(bool, folderGiven);
        QTemporaryDir given;
        const QString folder = folderGiven ? given.path() : QDir(QDir::tempPath()).filePath("utilsdll-showcase");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(name);
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
        for (const char* name : {"gallery.png", "page_5.png", "dialogs/about.png", "dialogs/folder_chooser.png"}) {
            const QString file = QDir(folder).filePath(name);
            QVERIFY2(out.contains(QDir::toNativeSeparators(file)), name);
            QVERIFY2(!QImage(file).isNull(), qPrintable(file));
        }
    }
};

UTILSDLL_TEST_MAIN(TestShowcaseProgram)
#include "tst_showcaseprogram.moc"
