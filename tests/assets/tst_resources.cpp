#include "AppBootstrap.h"
#include "TestEnvironment.h"

#include <QtSql>
#include <QtWidgets>

namespace {

QStringList s_warnings;

QByteArray resourceBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList pathsNamedIn(const QString& root, const QStringList& filters)
{
    // A resource path opens a string literal or a url(); "C:/..." is a drive.
    static const QRegularExpression path(QStringLiteral("(?:\"|url\\()(:/+[A-Za-z0-9_+./%-]+)"));
    QStringList found;
    QDirIterator it(root, filters, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        auto match = path.globalMatch(QString::fromUtf8(resourceBytes(it.next())));
        while (match.hasNext()) {
            const QString p = match.next().captured(1);
            if (!p.contains('%') && p.size() > 2) // patterns are checked where they are expanded
                found << QFileInfo(it.filePath()).fileName() + " names " + p;
        }
    }
    return found;
}

} // namespace

class TestResources : public QObject
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

    void styleSheetsParse_data()
    {
        QTest::addColumn<QByteArray>("sheet");
        QTest::addColumn<bool>("broken");
        for (const char* name : {"custom", "settings", "slider", "message_box", "crash_sender", "win", "mac"})
            QTest::newRow(name) << resourceBytes(QStringLiteral(":/qss/%1.qss").arg(name)) << false;
        QTest::newRow("a broken sheet, to show the check works") << QByteArray("QWidget { color: red; ") << true;
    }
    void styleSheetsParse()
    {
        QFETCH(QByteArray, sheet);
        QFETCH(bool, broken);
        QVERIFY(!sheet.isEmpty());
        s_warnings.clear();
        QtMessageHandler previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (type != QtDebugMsg && type != QtInfoMsg)
                s_warnings << text;
        });
        qApp->setStyleSheet(QString::fromUtf8(sheet));
        QWidget widget;
        widget.ensurePolished(); // the application sheet is parsed whole here
        qInstallMessageHandler(previous);
        qApp->setStyleSheet(QString());
        QCOMPARE(s_warnings.filter("stylesheet", Qt::CaseInsensitive).isEmpty(), !broken);
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
    }

    void countriesList()
    {
        const QStringList lines = QString::fromUtf8(resourceBytes(":/translations/countries.en.txt")).split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 244);
        QCOMPARE(lines.at(6), QStringLiteral("--------------- ; not_selectable")); // after the six frequent ones
        QStringList sorted = lines.mid(7);
        std::sort(sorted.begin(), sorted.end());
        QCOMPARE(lines.mid(7), sorted);
    }

    void calibrationCatalogueIsAReadableDatabase()
    {
        // SQLite cannot read from the resources: a reader copies the file out first.
        QTemporaryDir dir;
        QVERIFY(QFile::copy(":/calibration/db/CAFList4.db", dir.filePath("CAFList4.db")));
        {
            QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "catalogue");
            db.setDatabaseName(dir.filePath("CAFList4.db"));
            QVERIFY(db.open());
            QSqlQuery query(db);
            QVERIFY(query.exec("SELECT value FROM Metadata WHERE key = 'Version'") && query.next());
            QCOMPARE(query.value(0).toString(), QString("400.2.0.2"));
            // "NULL" is text there, not SQL null.
            QVERIFY(query.exec("SELECT count(*) FROM Module WHERE lens_name = 'NULL'") && query.next());
            QCOMPARE(query.value(0).toInt(), 1);
        }
        QSqlDatabase::removeDatabase("catalogue");
    }
};

UTILSDLL_TEST_MAIN_WITH(TestResources, QApplication)
#include "tst_resources.moc"
