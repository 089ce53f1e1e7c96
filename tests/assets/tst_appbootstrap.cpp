#include "AppBootstrap.h"
#include "Settings.h"
#include "TestEnvironment.h"
#include "TestLogger.h"

#include <QtSql>
#include <QtWidgets>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using UtilsDllTest::ScopedTestLogger;

namespace {

class EventRecorder : public QWidget
{
public:
    QList<QEvent::Type> events;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::Enter || event->type() == QEvent::Leave || event->type() == QEvent::MouseMove)
            events << event->type();
        return QWidget::event(event);
    }
};

QString writeFile(const QTemporaryDir& dir, const QString& name, const QByteArray& content)
{
    QFile file(dir.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? file.fileName() : QString();
}

QString resourceText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList pathsNamedIn(const QString& root, const QStringList& filters)
{
    // A resource path opens a string literal or a url(); "C:/..." is a drive.
    static const QRegularExpression path(QStringLiteral("(?:\"|url\\()(:/+[A-Za-z0-9_+./%-]+)"));
    QStringList found;
    QDirIterator it(root, filters, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        auto match = path.globalMatch(resourceText(it.next()));
        while (match.hasNext()) {
            const QString p = match.next().captured(1);
            if (!p.contains('%') && p.size() > 2) // patterns are checked where they are expanded
                found << QFileInfo(it.filePath()).fileName() + " names " + p;
        }
    }
    return found;
}

} // namespace

class TestAppBootstrap : public QObject
{
    Q_OBJECT
private slots:
    void everyNamedPathResolves_data()
    {
        QTest::addColumn<QString>("path");
        const QString source = QStringLiteral(UTILSDLL_SOURCE_DIR);
        const QStringList named = pathsNamedIn(source + "/modules", {"*.cpp", "*.h", "*.ui"})
            + pathsNamedIn(source + "/resources/qss", {"*.qss"});
        QVERIFY(named.size() > 20);
        for (const QString& entry : named)
            QTest::newRow(qPrintable(entry)) << entry.section(" names ", 1);
    }
    void everyNamedPathResolves()
    {
        QFETCH(QString, path);
        QVERIFY(QFileInfo::exists(path));
    }

    void fontsAndIconsRegister()
    {
        // The file named for Segoe UI holds Open Sans: the styles ask for that family.
        Vexa::loadFonts();
        const QStringList known = QFontDatabase().families();
        for (const char* family : {"Maven Pro", "OpenSansLight", "RobotoBold", "RobotoLight", "RobotoRegular",
                                   "RobotoMedium", "Open Sans"})
            QVERIFY2(known.contains(family), family);
        QVERIFY(Vexa::loadAppLogoIcon());
        QCOMPARE(QApplication::windowIcon().availableSizes().size(), 8);
        QCOMPARE(QDir(":/calibration/caf").entryList({"*.caf"}, QDir::Files),
                 QStringList({"C35830b_002.caf", "C36841a_000.caf"}));
        QVERIFY(QFileInfo(":/calibration/db/CAFList4.db").size() > 0); // built from its SQL by the build
    }

    // What a reader of the catalogue must be ready for. SQLite cannot read from the
    // resources: the file is copied out first.
    void calibrationCatalogueEdgeCases()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("CAFList4.db");
        QVERIFY(QFile::copy(":/calibration/db/CAFList4.db", path));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        {
            QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "catalogue");
            db.setDatabaseName(path);
            QVERIFY(db.open());
            const QList<QPair<QString, QString>> expected = {
                // One camera under two identifiers: a body id that is not unique.
                {"SELECT identifier FROM Body WHERE id = 491 ORDER BY identifier", "DJIPhantom4,Phantom4"},
                // "NULL" is a text standing for no name, which a test for SQL null misses.
                {"SELECT count(*) FROM Module WHERE lens_name IS NULL", "0"},
                {"SELECT count(*) FROM Module WHERE lens_name = 'NULL'", "1"},
            };
            for (const auto& [sql, rows] : expected) {
                QSqlQuery query(db);
                QVERIFY2(query.exec(sql), qPrintable(sql));
                QStringList found;
                while (query.next())
                    found << query.value(0).toString();
                QCOMPARE(found.join(','), rows);
            }
        }
        QSqlDatabase::removeDatabase("catalogue");
    }

    void styleSheets()
    {
        ScopedTestLogger logger;
        // Nothing to apply: an ASSERT line each, and the sheet stays.
        qApp->setStyleSheet("QWidget { color: #ababab; }");
        QVERIFY(Vexa::setAppStyleSheet({}, qApp).isEmpty());
        QVERIFY(Vexa::setAppStyleSheet({":/qss/custom.qss"}, nullptr).isEmpty());
        QCOMPARE(logger->linesAt('E').size(), 2);
        QCOMPARE(qApp->styleSheet(), QStringLiteral("QWidget { color: #ababab; }"));
        logger->clear();

        // Unreadable and empty names are skipped silently; the rest is joined with nothing between.
        QTemporaryDir dir;
        const QString first = writeFile(dir, "first.qss", "QLabel { color: #ffffff; }");
        const QString second = writeFile(dir, "second.qss", "QWidget { background: #1b1b1b; }");
        const QString missing = dir.filePath("missing.qss");
        QCOMPARE(Vexa::setAppStyleSheet({first, missing, QString(), second}, qApp), QStringList({first, second}));
        QCOMPARE(qApp->styleSheet(), QStringLiteral("QLabel { color: #ffffff; }QWidget { background: #1b1b1b; }"));
        QVERIFY(Vexa::setAppStyleSheet({missing}, qApp).isEmpty()); // still applied, and so empty
        QCOMPARE(qApp->styleSheet(), QString());
        QVERIFY(logger->lines().isEmpty());

        // The predefined set: later sheets override earlier ones, so the order is binding.
        const QString rest = resourceText(":/qss/slider.qss") + resourceText(":/qss/settings.qss")
            + resourceText(":/qss/message_box.qss") + resourceText(":/qss/win.qss");
        Vexa::setPredefinedAppStyleSheet(QString(), qApp);
        QCOMPARE(qApp->styleSheet(), resourceText(":/qss/custom.qss") + rest);
        Vexa::setPredefinedAppStyleSheet(first, qApp);
        QCOMPARE(qApp->styleSheet(), QStringLiteral("QLabel { color: #ffffff; }") + rest);
        qApp->setStyleSheet(QString());
    }

    void fileSizeToString_data()
    {
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("exactly 1024 is still bytes") << qint64(1024) << "1024B";
        QTest::newRow("one more is kilobytes") << qint64(1025) << "1.0KB";
        QTest::newRow("exactly 1048576 is still kilobytes") << qint64(1048576) << "1024.0KB";
        QTest::newRow("one more is megabytes") << qint64(1048577) << "1.0MB";
        QTest::newRow("a negative count in the g form") << qint64(-1234567) << "-1.23457e+06B";
    }

    void fileSizeToString()
    {
        QFETCH(qint64, bytes);
        QFETCH(QString, text);
        QCOMPARE(Vexa::fileSizeToString(bytes), text);
    }

    void sizeToString_data()
    {
        QTest::addColumn<int>("unit");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("asserts");
        // At the offscreen screen's 100 physical dots per inch.
        QTest::newRow("pixels") << 0 << "640 x 480 px" << 0;
        QTest::newRow("inches") << 1 << "6.40 x 4.80 in" << 0;
        QTest::newRow("centimetres, one decimal") << 2 << "16.3 x 12.2 cm" << 0;
        QTest::newRow("millimetres, whole") << 3 << "163 x 122 mm" << 0;
        QTest::newRow("unknown unit") << 4 << "640 x 480 " << 2;
    }

    void sizeToString()
    {
        QFETCH(int, unit);
        QFETCH(QString, text);
        QFETCH(int, asserts);
        if (qRound(QGuiApplication::primaryScreen()->physicalDotsPerInchX()) != 100)
            QSKIP("the expected texts are for a screen of 100 physical dots per inch");
        Vexa::CSettings().setValue("imageSizeUnits", unit);
        ScopedTestLogger logger;
        QCOMPARE(Vexa::sizeToString(QSize(640, 480)), text);
        QCOMPARE(logger->linesAt('E').size(), asserts);
    }

    // As on Windows, a crash sender beside the program is run before one on PATH. Copies of
    // the probe stand in for both, and each prints its folder.
    void crashSenderBesideTheProgramFirst()
    {
        QTemporaryDir programFolder, pathFolder;
        const QString program = programFolder.filePath("process_probe");
        const QString suffix = QFileInfo(PROCESS_PROBE).suffix(), name = "CrashSender" + (suffix.isEmpty() ? "" : '.' + suffix);
        const QString beside = programFolder.filePath(name);
        for (const QString& copy : {program, beside, pathFolder.filePath(name)})
            QVERIFY(QFile::copy(PROCESS_PROBE, copy));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("PATH", QDir::toNativeSeparators(pathFolder.path()) + QDir::listSeparator() + environment.value("PATH"));

        for (const QTemporaryDir* expected : {&programFolder, &pathFolder}) {
            QProcess probe;
            probe.setProcessEnvironment(environment);
            probe.setWorkingDirectory(QFileInfo(PROCESS_PROBE).path()); // where Windows finds the DLLs
            probe.start(program, {"crash-sender"});
            QVERIFY(probe.waitForFinished(60000));
            QCOMPARE(QString::fromLocal8Bit(probe.readAllStandardOutput().trimmed()),
                     QFileInfo(expected->path()).canonicalFilePath());
            QFile::remove(beside);
        }
    }

    // Only the close button changes, and the widget's flags stay those of its native window;
    // another handle leaves the window alone.
    void closeButtonToggles()
    {
        QDialog dialog;
        dialog.show();
        QWindow* window = dialog.windowHandle();
        UTILSDLL_NEEDS_NATIVE_WINDOWS(
            "Windows greys the close item of a native window's system menu: the run under the windows plug-in");
#ifdef Q_OS_WIN
        // The title bar's button follows the system menu's item.
        const auto closeEnabled = [&dialog] {
            return !(GetMenuState(GetSystemMenu(HWND(dialog.winId()), FALSE), SC_CLOSE, MF_BYCOMMAND) & MF_GRAYED);
        };
#else
        const auto closeEnabled = [window] { return window->flags().testFlag(Qt::WindowCloseButtonHint); };
#endif
        const Qt::WindowFlags others = ~Qt::WindowFlags(Qt::CustomizeWindowHint | Qt::WindowCloseButtonHint);
        const Qt::WindowFlags before = window->flags() & others;
        for (const bool enable : {false, true}) {
            Vexa::enableWindowCloseButton(dialog.winId(), enable);
            Vexa::enableWindowCloseButton(dialog.winId() + 1000, !enable);
            QCOMPARE(window->flags() & others, before);
            QCOMPARE(closeEnabled(), enable);
            QCOMPARE(dialog.windowFlags(), window->flags());
        }
    }

    void flickHoverEvent()
    {
        EventRecorder widget;
        widget.setGeometry(100, 100, 200, 100);
        widget.show();
        QApplication::setActiveWindow(&widget);
        QVERIFY(QTest::qWaitForWindowActive(&widget));

        // Outside: one Leave, and the cursor stays where it was.
        QCursor::setPos(10, 10);
        const QPoint outside = QCursor::pos();
        widget.events.clear();
        Vexa::flickHoverEvent(&widget);
        QCOMPARE(widget.events, QList<QEvent::Type>{QEvent::Leave});
        QCOMPARE(QCursor::pos(), outside);

        // Inside a widget that is no menu: Leave then Enter, no mouse event, cursor put back.
        const QPoint inside = widget.mapToGlobal(QPoint(50, 50));
        QCursor::setPos(inside);
        widget.events.clear();
        Vexa::flickHoverEvent(&widget);
        QCOMPARE(widget.events, QList<QEvent::Type>({QEvent::Leave, QEvent::Enter}));
        QCOMPARE(QCursor::pos(), inside);

        widget.setMouseTracking(true); // else Qt delivers no move without buttons
        widget.events.clear();
        Vexa::synthesizeMouseEvent(&widget, inside);
        Vexa::synthesizeMouseEvent(nullptr, inside);
        QCOMPARE(widget.events, QList<QEvent::Type>{QEvent::MouseMove});
    }
};

UTILSDLL_TEST_MAIN_WITH(TestAppBootstrap, QApplication)
#include "tst_appbootstrap.moc"
