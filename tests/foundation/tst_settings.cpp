#include "BoundedCall.h"
#include "TestEnvironment.h"
#include "TestLogger.h"

#include "Settings.h"
#include "SharedUtils.h"
#include "TemporarySettings.h"
#include "storageLocation.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>

using namespace Vexa;

namespace {

// The way callers return to the system store: a reference with a null address.
// UBSan rightly calls binding it undefined, so only this helper does it.
__attribute__((no_sanitize("undefined"))) void installSystemStore()
{
    CSettings::setTemporarySettings(*static_cast<CTemporarySettings*>(nullptr));
}

QSettings& systemStore()
{
    static QSettings store("Vexa Labs", "Vexa Rectivo 3");
    return store;
}

// Read as text, bypassing QSettings and its per-process cache.
QString fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

std::unique_ptr<CTemporarySettings> makeStore(const QString& anchorFolder = QDir::tempPath())
{
    return std::make_unique<CTemporarySettings>((anchorFolder + "/anchor.exe").toUtf8().constData());
}

bool runningAsRoot()
{
#ifdef Q_OS_WIN
    return false;
#else
    return ::geteuid() == 0;
#endif
}

// Mounts a 64 KiB tmpfs on folder, which must exist, and fills it but for what is
// already there. False if that cannot be done here: it needs root, as in CI.
bool mountFullFileSystem(const QString& folder, const QString& keptFile = QString(), const QByteArray& kept = {})
{
    if (!runningAsRoot() || QProcess::execute("mount", {"-t", "tmpfs", "-o", "size=64k,nr_inodes=8", "tmpfs", folder}) != 0)
        return false;
    if (!keptFile.isEmpty()) {
        QFile file(keptFile);
        if (!file.open(QIODevice::WriteOnly) || file.write(kept) != kept.size())
            return false;
    }
    QFile filler(folder + "/filler");
    if (!filler.open(QIODevice::WriteOnly))
        return false;
    while (filler.write(QByteArray(4096, 'x')) == 4096 && filler.flush()) {
    }
    return true;
}

QStringList rootEntries()
{
    return QDir("/").entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

} // namespace

class TestSettings : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        systemStore().clear();
        systemStore().sync();
    }
    void cleanup()
    {
        installSystemStore();
        m_store.reset();
    }

    void preferencesFile() // first: no preferences path is set yet
    {
        QVERIFY_EXCEPTION_THROWN(CSettings::getStringFromPreferencesFile("anything", "default"), std::runtime_error);
        QTemporaryDir folder;
        writeFile(folder.filePath("Preferences.ini"), "[General]\nlang=de\nempty=\n");
        CStorageLocation::setPreferencesFilePath(folder.filePath("Preferences.ini"));
        QCOMPARE(CSettings::getStringFromPreferencesFile("lang", "fallback"), QString("de"));
        QCOMPARE(CSettings::getStringFromPreferencesFile("empty", "fallback"), QString("fallback"));
        CStorageLocation::setPreferencesFilePath(folder.path()); // a folder cannot be read
        QCOMPARE(CSettings::getStringFromPreferencesFile("lang", "fallback"), QString("fallback"));
    }

    void backendIsChosenOnEveryCall()
    {
        CSettings builtBefore;
        builtBefore.setValue("where", "system");
        useTemporaryStore();
        QVERIFY(builtBefore.usingTemporarySettings());
        QCOMPARE(builtBefore.value("where", "absent").toString(), QString("absent"));
        QCOMPARE(CSettings(nullptr, true).value("where").toString(), QString("system"));
        CSettings(nullptr, true).setValue("ignoring", 1);
        QVERIFY(systemStore().contains("ignoring") && !m_store->contains("ignoring"));

        CSettings builtDuring;
        builtDuring.setValue("where", "temporary");
        QCOMPARE(m_store->value("where").toString(), QString("temporary"));
        const QString folder = QFileInfo(m_store->tempSettingsPath()).absolutePath();
        m_store.reset();
        QVERIFY(!QDir(folder).exists());
        QCOMPARE(builtDuring.value("where").toString(), QString("system"));
    }

    void groupsPrefixOnlyWritesToTheTemporaryStore()
    {
        useTemporaryStore();
        CSettings settings;
        settings.beginGroup("outer");
        settings.beginGroup("g"); // replaces, does not nest
        settings.setValue("key", 1);
        QCOMPARE(m_store->value("g/key").toInt(), 1);
        QVERIFY(settings.contains("key"));
        QCOMPARE(settings.value("key", 7).toInt(), 7); // reads take the key as given
        settings.remove("key");
        QVERIFY(!m_store->contains("g/key"));
        settings.endGroup();
        QVERIFY(settings.group().isEmpty());
    }

    void temporaryStoreFiles()
    {
        // Seeded from the defaults beside the anchor, which stay untouched.
        QTemporaryDir anchorFolder;
        const QByteArray defaults("[General]\nresellerId=shop\n");
        writeFile(anchorFolder.filePath("DefaultTemporarySettings.ini"), defaults);
        auto first = makeStore(anchorFolder.path());
        CSettings::setTemporarySettings(*first);
        QCOMPARE(CSettings().value("resellerId").toString(), QString("shop"));
        const QString firstPath = first->tempSettingsPath();
        QCOMPARE(QFileInfo(firstPath).fileName(), QString("vrcv3.ini"));
        CSettings().setValue("key", 1); // on disk at once
        QVERIFY(fileText(firstPath).contains("key=1"));
        QCOMPARE(fileText(anchorFolder.filePath("DefaultTemporarySettings.ini")).toUtf8(), defaults);

        // A second store takes over the reported path; each keeps writing its own file.
        auto second = makeStore();
        const QString secondPath = second->tempSettingsPath();
        QVERIFY(firstPath != secondPath);
        QCOMPARE(first->tempSettingsPath(), secondPath);
        first->setValue("owner", "first");
        QVERIFY(fileText(firstPath).contains("owner=first") && !fileText(secondPath).contains("owner"));
        CSettings().remove("key");
        first->clear();
        QVERIFY(!fileText(firstPath).contains("key=") && !fileText(firstPath).contains("owner="));
        second->setSharedSettingsPath("/shared/elsewhere.ini");
        QCOMPARE(second->tempSettingsPath(), QString("/shared/elsewhere.ini"));
    }

    void storeChangesAreLogged()
    {
        UtilsDllTest::ScopedTestLogger logger;
        useTemporaryStore();
        const QString path = m_store->tempSettingsPath();
        installSystemStore();
        QCOMPARE(logger->linesAt('D'), (QStringList{"Info: settings are now stored in file: " + path,
                                                    "Info: settings are now stored in system"}));
        // Each CSettings made while a store is installed reports its end, even one that ignores it.
        CSettings unconnected;
        CSettings::setTemporarySettings(*m_store);
        CSettings connectedA, connectedB(nullptr, true);
        logger->clear();
        m_store.reset();
        const QStringList pair{"Temporary settings file is to be destoyed: " + path, "Persistent settings will be used"};
        QCOMPARE(logger->linesAt('D'), pair + pair);
    }

    void firstLaunchAndCrashCounters()
    {
        QVERIFY(isFirstLaunch());
        setNotFirstLaunch();
        QVERIFY(!isFirstLaunch());
        QVERIFY(systemStore().contains("app_launched"));
        incrementCrashCounter(); // no mode stored: the bare key
        setLastLaunchMode("PS");
        incrementCrashCounter();
        incrementCrashCounter();
        QCOMPARE(crashCounterForPlugin("PS"), 2);
        crashCounterReset("PS");
        QVERIFY(!CSettings().contains("crashCounter_PS"));
        QCOMPARE(crashCounterForPlugin(""), 1);
        // A temporary store starts as a first launch, however often the product ran.
        useTemporaryStore();
        QVERIFY(isFirstLaunch());
    }

    void reseller_data()
    {
        QTest::addColumn<QString>("stored"); // null: nothing stored
        QTest::addColumn<QString>("expected");
        QTest::newRow("absent") << QString() << "vexa";
        QTest::newRow("placeholder") << "VEXA_RESELLER_ID_PLACEHOLDER" << "vexa";
        QTest::newRow("placeholder in lower case") << "vexa_reseller_id_placeholder" << "vexa_reseller_id_placeholder";
        QTest::newRow("empty") << "" << "";
    }
    void reseller()
    {
        QFETCH(QString, stored);
        QFETCH(QString, expected);
        if (!stored.isNull())
            setResellerID(stored);
        QCOMPARE(getResellerID(), expected);
    }

    void flagRule_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<bool>("expected");
        QTest::newRow("absent") << QVariant() << true;
        QTest::newRow("text 0") << QVariant("0") << false;
        QTest::newRow("false") << QVariant("false") << true;
    }
    void flagRule()
    {
        QFETCH(QVariant, stored);
        QFETCH(bool, expected);
        for (const char* key : {"UseActionSave", "loggerEnabled", "VexaSendStat", "VexaSentCrashReport"})
            if (stored.isValid())
                systemStore().setValue(key, stored);
        QCOMPARE((QVector<bool>{useActionSave(), isLoggerEnabled(), isStatisticSent(), crashReportSendingAllowed()}),
                 QVector<bool>(4, expected));
    }

    void settersWriteTheActiveStoreAndLoggerKeysAreReadFromTheSystemOne()
    {
        for (bool on : {false, true}) {
            setStatisticSent(on);
            allowCrashReportSending(on);
            QCOMPARE(systemStore().value("VexaSendStat").toString(), QString(on ? "1" : "0"));
            QVERIFY(isStatisticSent() == on && crashReportSendingAllowed() == on);
        }
        setLogLevel("E");
        setLoggerEnabled(false);
        QCOMPARE(getLogLevel(), QString("E"));
        QVERIFY(!isLoggerEnabled());
        useTemporaryStore();
        setStatisticSent(false);
        QVERIFY(!isStatisticSent());
        setLogLevel("W");
        setLoggerEnabled(true);
        QCOMPARE(m_store->value("loggerLevel").toString(), QString("W"));
        QCOMPARE(getLogLevel(), QString("E"));
        QVERIFY(!isLoggerEnabled());
        m_store->setValue("UseActionSave", "0");
        QVERIFY(useActionSave());
    }

    // TMPDIR where no folder can be made, or on a file system with no room left. Nothing
    // of the store may land outside the temporary folder or outlive the store, and the
    // user's defaults stay as they were.
    void temporaryStoreWhereNoFolderCanBeMade_data()
    {
        QTest::addColumn<QString>("tmpdir");
        QTest::newRow("a plain file") << "file";
        QTest::newRow("missing") << "missing";
        QTest::newRow("read-only") << "read-only";
        QTest::newRow("a full file system") << "full";
    }

    void temporaryStoreWhereNoFolderCanBeMade()
    {
        QFETCH(QString, tmpdir);
        QTemporaryDir folder;
        const QString tmp = folder.filePath("tmp");
        const QByteArray defaults("[General]\nresellerId=shop\n");
        writeFile(folder.filePath("DefaultTemporarySettings.ini"), defaults);
        if (tmpdir == "file") {
            writeFile(tmp, "not a folder");
        } else if (tmpdir == "read-only") {
            QVERIFY(QDir().mkdir(tmp) && QFile::setPermissions(tmp, QFile::ReadOwner | QFile::ExeOwner));
        } else if (tmpdir == "full") {
            QVERIFY(QDir().mkdir(tmp));
            if (!mountFullFileSystem(tmp))
                QSKIP("a full file system needs root and tmpfs");
        }
        const QByteArray savedTmp = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(tmp));
        const auto restore = qScopeGuard([&] {
            qputenv("TMPDIR", savedTmp);
            QFile::setPermissions(tmp, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            if (tmpdir == "full")
                QProcess::execute("umount", {tmp});
        });
        const QStringList rootBefore = rootEntries();
        const QStringList tmpBefore = QDir(tmp).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);

        auto store = makeStore(folder.path());
        CSettings::setTemporarySettings(*store);
        CSettings().setValue("written", "by the first store");
        const QString path = store->tempSettingsPath();
        store.reset();
        QVERIFY2(!QFileInfo::exists(path), qPrintable(path));
        QVERIFY(!makeStore(folder.path())->contains("written")); // the next run starts afresh

        QCOMPARE(rootEntries(), rootBefore);
        QCOMPARE(QDir(tmp).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), tmpBefore);
        QCOMPARE(fileText(folder.filePath("DefaultTemporarySettings.ini")).toUtf8(), defaults);
    }

    // A FIFO where a settings file is expected reads as a file that cannot be read: the
    // call answers its default instead of waiting for a writer, and leaves the FIFO be.
    // On a full file system the write is lost, and the user's file stays as it was.
    void settingsFileThatCannotBeReadOrWritten_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("fault");
        QTest::newRow("preferences, a FIFO") << "preferences" << "fifo";
        QTest::newRow("system store, a FIFO") << "system" << "fifo";
        QTest::newRow("system store of the organisation, a FIFO") << "organisation" << "fifo";
        QTest::newRow("defaults of the temporary store, a FIFO") << "defaults" << "fifo";
        QTest::newRow("system store, a full file system") << "system" << "full";
    }

    void settingsFileThatCannotBeReadOrWritten()
    {
#ifdef Q_OS_WIN
        QSKIP("no FIFOs, and no tmpfs to fill");
#else
        QFETCH(QString, file);
        QFETCH(QString, fault);
        QTemporaryDir folder;
        const QString systemFile = systemStore().fileName();
        const QString path = file == "preferences" ? folder.filePath("Preferences.ini")
                             : file == "system"     ? systemFile
                             : file == "defaults"   ? folder.filePath("DefaultTemporarySettings.ini")
                                                    : QFileInfo(systemFile).absolutePath() + ".conf";
        const QByteArray userFile("[General]\nresellerId=shop\n");
        QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
        QFile::remove(path);
        const auto undo = qScopeGuard([&] {
            if (fault == "full")
                QProcess::execute("umount", {QFileInfo(path).absolutePath()});
            QFile::remove(path);
        });
        if (fault == "fifo")
            QVERIFY(UtilsDllTest::makeFifo(path));
        else if (!mountFullFileSystem(QFileInfo(path).absolutePath(), path, userFile))
            QSKIP("a full file system needs root and tmpfs");

        QString answer;
        QString storeFolder;
        const bool returned = UtilsDllTest::returnsWithoutBlocking(path, [&] {
            if (file == "preferences") {
                CStorageLocation::setPreferencesFilePath(path);
                answer = CSettings::getStringFromPreferencesFile("lang", "fallback");
            } else if (file == "defaults") {
                CTemporarySettings store((folder.path() + "/anchor.exe").toUtf8().constData());
                answer = store.value("resellerId", "empty").toString();
                storeFolder = QFileInfo(store.tempSettingsPath()).absolutePath();
            } else {
                answer = isFirstLaunch() ? "first launch" : "launched before";
                setNotFirstLaunch();
                setResellerID("another");
            }
        });
        QVERIFY2(returned, "the call waited on the FIFO");
        const QString expected = file == "preferences" ? "fallback" : file == "defaults" ? "empty" : "first launch";
        QCOMPARE(answer, expected);
        if (fault == "fifo")
            QVERIFY(QFileInfo(path).exists() && !QFileInfo(path).isFile());
        else
            QCOMPARE(fileText(path).toUtf8(), userFile);
        if (!storeFolder.isEmpty())
            QVERIFY(!QDir(storeFolder).exists());
#endif
    }

private:
    void useTemporaryStore()
    {
        m_store = makeStore();
        CSettings::setTemporarySettings(*m_store);
    }
    std::unique_ptr<CTemporarySettings> m_store;
};

UTILSDLL_TEST_MAIN(TestSettings)
#include "tst_settings.moc"
