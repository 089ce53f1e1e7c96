#include "AppBootstrap.h"
#include "TestEnvironment.h"

#include <QLibrary>

// getQtPluginsDir(true) decides once per process, so each scenario runs in a process
// of its own: with CONNECTOR_MODULE set, that module is loaded first.
class TestPluginsDir : public QObject
{
    Q_OBJECT
private slots:
    void hostPluginFolder()
    {
        const QByteArray connector = qgetenv("CONNECTOR_MODULE");
        const QString hostFolder = QDir::toNativeSeparators(QFileInfo(QCoreApplication::applicationFilePath()).canonicalPath() + '/');
        QString expected = hostFolder;
        if (!connector.isEmpty()) {
            QLibrary module(QString::fromLocal8Bit(connector));
            QVERIFY2(module.load(), qPrintable(module.errorString()));
            expected = QDir::toNativeSeparators(QFileInfo(QString::fromLocal8Bit(connector)).canonicalPath() + '/');
            QVERIFY(expected != hostFolder);
        }
        QCOMPARE(Vexa::getQtPluginsDir(true), expected);
        // Decided: the other argument changes nothing.
        QCOMPARE(Vexa::getQtPluginsDir(false), expected);
    }
};

UTILSDLL_TEST_MAIN(TestPluginsDir)
#include "tst_pluginsdir.moc"
