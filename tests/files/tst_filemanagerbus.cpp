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
    void initTestCase();
    void cleanupTestCase();
    void showItemsOrOpenTheFolder();

private:
    QProcess m_daemon;
    QThread m_serviceThread;
    FakeFileManager* m_fileManager = nullptr;
    QTemporaryDir m_folder;
};

void TestFileManagerBus::initTestCase()
{
    if (QStandardPaths::findExecutable("dbus-daemon").isEmpty())
        QSKIP("dbus-daemon is not installed");
    m_daemon.start("dbus-daemon", QStringList() << "--session" << "--nofork" << "--print-address=1");
    QTRY_VERIFY(m_daemon.canReadLine());
    const QByteArray address = m_daemon.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address); // before the code under test first asks for the bus

    m_serviceThread.start();
    m_fileManager = new FakeFileManager;
    m_fileManager->moveToThread(&m_serviceThread);
    QDBusConnection service = QDBusConnection::connectToBus(QString::fromLatin1(address), "fakeFileManager");
    QVERIFY(service.isConnected());
    QVERIFY(service.registerObject("/org/freedesktop/FileManager1", m_fileManager, QDBusConnection::ExportAllSlots));
    QVERIFY(service.registerService("org.freedesktop.FileManager1"));

    QVERIFY(QFile(m_folder.filePath("a.jpg")).open(QIODevice::WriteOnly));
    QVERIFY(QFile(m_folder.filePath("b.jpg")).open(QIODevice::WriteOnly));
}

void TestFileManagerBus::cleanupTestCase()
{
    QDBusConnection::disconnectFromBus("fakeFileManager");
    m_serviceThread.quit();
    m_serviceThread.wait();
    delete m_fileManager;
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void TestFileManagerBus::showItemsOrOpenTheFolder()
{
    const std::vector<std::wstring> items{m_folder.filePath("a.jpg").toStdWString(),
                                          m_folder.filePath("b.jpg").toStdWString()};
    QVERIFY(VexaPlatform::showItemsInFileManager(m_folder.path().toStdWString(), items));
    QCOMPARE(m_fileManager->shownUris(), QStringList() << QUrl::fromLocalFile(m_folder.filePath("a.jpg")).toString()
                                                       << QUrl::fromLocalFile(m_folder.filePath("b.jpg")).toString());

    QVERIFY(!VexaPlatform::showItemsInFileManager(m_folder.filePath("missing").toStdWString(), items));

    // Without a file manager on the bus, the folder is opened instead.
    QVERIFY(QDBusConnection(QStringLiteral("fakeFileManager")).unregisterService("org.freedesktop.FileManager1"));
    OpenedUrls opened;
    QDesktopServices::setUrlHandler("file", &opened, "open");

    QVERIFY(VexaPlatform::showItemsInFileManager(m_folder.path().toStdWString(),
                                                 {m_folder.filePath("a.jpg").toStdWString()}));
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(opened.urls, QList<QUrl>() << QUrl::fromLocalFile(m_folder.path()));
}

UTILSDLL_TEST_MAIN(TestFileManagerBus)
#include "tst_filemanagerbus.moc"
