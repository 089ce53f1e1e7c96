// The Linux side of "select files in the file manager": the freedesktop ShowItems
// call on the session bus, and the fallback of opening the folder. A private bus
// daemon and a stand-in file manager on its own thread make both observable.
#include "TestEnvironment.h"
#include "platform/FileManagement.h"

#include <QDBusConnection>
#include <QDesktopServices>
#include <QFile>
#include <QMutex>
#include <QProcess>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <QUrl>

// Stands in for the desktop's file manager; it lives on the service thread.
class FakeFileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList shownUris() const
    {
        QMutexLocker lock(&m_mutex);
        return m_uris;
    }
public slots:
    void ShowItems(const QStringList& uris, const QString&)
    {
        QMutexLocker lock(&m_mutex);
        m_uris += uris;
    }
private:
    mutable QMutex m_mutex;
    QStringList m_uris;
};

class OpenedUrls : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> urls;
public slots:
    void open(const QUrl& url) { urls << url; }
};

class TestFileManagerBus : public QObject
{
    Q_OBJECT
private slots:
    void showItemsOrOpenTheFolder()
    {
        if (QStandardPaths::findExecutable("dbus-daemon").isEmpty())
            QSKIP("dbus-daemon is not installed");
        QProcess daemon;
        daemon.start("dbus-daemon", QStringList() << "--session" << "--nofork" << "--print-address=1");
        QThread serviceThread;
        FakeFileManager fileManager;
        fileManager.moveToThread(&serviceThread);
        serviceThread.start();
        const auto stopService = qScopeGuard([&] {
            QDBusConnection::disconnectFromBus("fakeFileManager");
            serviceThread.quit();
            serviceThread.wait();
            daemon.kill();
            daemon.waitForFinished();
        });
        QTRY_VERIFY(daemon.canReadLine());
        const QByteArray address = daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address); // before the code under test first asks for the bus
        QDBusConnection service = QDBusConnection::connectToBus(QString::fromLatin1(address), "fakeFileManager");
        QVERIFY(service.isConnected());
        QVERIFY(service.registerObject("/org/freedesktop/FileManager1", &fileManager, QDBusConnection::ExportAllSlots));
        QVERIFY(service.registerService("org.freedesktop.FileManager1"));

        QTemporaryDir folder;
        QVERIFY(QFile(folder.filePath("a.jpg")).open(QIODevice::WriteOnly));
        QVERIFY(QFile(folder.filePath("b.jpg")).open(QIODevice::WriteOnly));
        const std::vector<std::wstring> items{folder.filePath("a.jpg").toStdWString(), folder.filePath("b.jpg").toStdWString()};
        QVERIFY(VexaPlatform::showItemsInFileManager(folder.path().toStdWString(), items));
        QCOMPARE(fileManager.shownUris(), QStringList() << QUrl::fromLocalFile(folder.filePath("a.jpg")).toString()
                                                        << QUrl::fromLocalFile(folder.filePath("b.jpg")).toString());
        QVERIFY(!VexaPlatform::showItemsInFileManager(folder.filePath("missing").toStdWString(), items));

        // Without a file manager on the bus, the folder is opened instead.
        QVERIFY(service.unregisterService("org.freedesktop.FileManager1"));
        OpenedUrls opened;
        QDesktopServices::setUrlHandler("file", &opened, "open");
        QVERIFY(VexaPlatform::showItemsInFileManager(folder.path().toStdWString(), {folder.filePath("a.jpg").toStdWString()}));
        QDesktopServices::unsetUrlHandler("file");
        QCOMPARE(opened.urls, QList<QUrl>() << QUrl::fromLocalFile(folder.path()));
    }
};

UTILSDLL_TEST_MAIN(TestFileManagerBus)
#include "tst_filemanagerbus.moc"
