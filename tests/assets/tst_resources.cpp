#include "AppBootstrap.h"
#include "CorrectionsReader.h"
#include "TestEnvironment.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDirIterator>
#include <QFontDatabase>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QRegularExpression>
#include <QResource>
#include <QSlider>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QVBoxLayout>

using namespace CorrectionsReader;

namespace {

QStringList s_warnings;

void recordWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        s_warnings << message;
}

QByteArray resourceBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A window that carries the class and object names the sheets address.
QWidget* buildStyledWindow()
{
    auto* window = new QMainWindow;
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    layout->addWidget(new QLabel("text"));
    layout->addWidget(new QCheckBox("check"));
    auto* combo = new QComboBox;
    combo->addItems({"a", "b"});
    layout->addWidget(combo);
    layout->addWidget(new QSlider(Qt::Horizontal));
    for (const char* name : {"cancelButton", "saveButton", "mbSipleButton", "closeButton"}) {
        auto* button = new QPushButton(name);
        button->setObjectName(name);
        layout->addWidget(button);
    }
    window->setCentralWidget(central);
    return window;
}

QStringList pathsNamedIn(const QString& root, const QStringList& filters)
{
    // A resource path opens a string literal or a url(); "C:/..." is a drive.
    static const QRegularExpression path(QStringLiteral("(?:\"|url\\()(:/+[A-Za-z0-9_+./%-]+)"));
    QStringList found;
    QDirIterator it(root, filters, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            continue;
        const QString text = QString::fromUtf8(file.readAll());
        auto match = path.globalMatch(text);
        while (match.hasNext()) {
            const QString p = match.next().captured(1);
            // Patterns with an argument are checked where they are expanded.
            if (!p.contains('%') && p.size() > 2)
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
    void everyNamedPathResolves_data();
    void everyNamedPathResolves();
    void styleSheetsParse_data();
    void styleSheetsParse();
    void fontsRegisterWithTheirFamilies();
    void resourceSetsAreRegistered();
    void countriesList();
    void stateMachineDocumentForm();
    void stateMachineCases_data();
    void stateMachineCases();
    void stateMachineRuleNeedsNoOrder();
    void calibrationCatalogue();
};

void TestResources::everyNamedPathResolves_data()
{
    QTest::addColumn<QString>("path");
    const QString source = QStringLiteral(UTILSDLL_SOURCE_DIR);
    QStringList named = pathsNamedIn(source + "/modules", {"*.cpp", "*.h", "*.ui"});
    named += pathsNamedIn(source + "/resources/qss", {"*.qss"});
    QVERIFY(named.size() > 20);
    for (const QString& entry : named)
        QTest::newRow(qPrintable(entry)) << entry.section(" names ", 1);
}

void TestResources::everyNamedPathResolves()
{
    QFETCH(QString, path);
    QVERIFY2(QFileInfo::exists(path), qPrintable(path));
}

void TestResources::styleSheetsParse_data()
{
    QTest::addColumn<QByteArray>("sheet");
    QTest::addColumn<bool>("broken");
    for (const char* name : {"custom", "settings", "slider", "message_box", "crash_sender", "win", "mac"}) {
        const QByteArray sheet = resourceBytes(QStringLiteral(":/qss/%1.qss").arg(name));
        QVERIFY2(!sheet.isEmpty(), name);
        QTest::newRow(name) << sheet << false;
    }
    // Shows that the check below notices a sheet that does not parse.
    QTest::newRow("a broken sheet") << QByteArray("QWidget { color: red; ") << true;
}

void TestResources::styleSheetsParse()
{
    QFETCH(QByteArray, sheet);
    QFETCH(bool, broken);
    s_warnings.clear();
    QtMessageHandler previous = qInstallMessageHandler(recordWarning);
    qApp->setStyleSheet(QString::fromUtf8(sheet));
    QScopedPointer<QWidget> window(buildStyledWindow());
    window->show();
    QCoreApplication::processEvents();
    for (QWidget* widget : window->findChildren<QWidget*>())
        widget->ensurePolished();
    qInstallMessageHandler(previous);
    qApp->setStyleSheet(QString());
    QCOMPARE(s_warnings.filter("stylesheet", Qt::CaseInsensitive).isEmpty(), !broken);
}

void TestResources::fontsRegisterWithTheirFamilies()
{
    const QMap<QString, QString> families = {
        {"MavenProLight-300.otf", "Maven Pro"}, {"MavenPro-Medium.ttf", "Maven Pro"},
        {"MavenPro-Regular.ttf", "Maven Pro"},  {"OpenSans-Light.ttf", "OpenSansLight"},
        {"Roboto-Bold.ttf", "RobotoBold"},      {"Roboto-Light.ttf", "RobotoLight"},
        {"Roboto-Regular.ttf", "RobotoRegular"}, {"Roboto-Medium.ttf", "RobotoMedium"},
        {"Segoe+UI.ttf", "Open Sans"},
    };
    Vexa::loadFonts();
    const QStringList known = QFontDatabase().families();
    for (auto it = families.cbegin(); it != families.cend(); ++it) {
        QVERIFY2(known.contains(it.value()), qPrintable(it.value()));
        const int id = QFontDatabase::addApplicationFont(":/fonts/" + it.key());
        QVERIFY2(id >= 0, qPrintable(it.key()));
        QVERIFY2(QFontDatabase::applicationFontFamilies(id).contains(it.value()), qPrintable(it.key()));
    }
}

void TestResources::resourceSetsAreRegistered()
{
    // One file of each set: the four sets merge into one tree.
    for (const char* path : {":/qss/custom.qss", ":/calibration/db/CAFList4.db", ":/translations/vexa_de.qm",
                             ":/translations/qt_de.qm", ":/icons/app_icon_rectivo/logo_1024.png"})
        QVERIFY2(QResource(path).isValid(), path);
    QCOMPARE(QDir(":/qss").entryList(QDir::Files).size(), 7);
    QCOMPARE(QDir(":/fonts").entryList(QDir::Files).size(), 9);
    QCOMPARE(QDir(":/translations").entryList({"*.qm"}, QDir::Files).size(), 9);
    QCOMPARE(QDir(":/calibration/caf").entryList({"*.caf"}, QDir::Files),
             QStringList({"C35830b_002.caf", "C36841a_000.caf"}));
    QVERIFY(Vexa::loadAppLogoIcon());
    QCOMPARE(QApplication::windowIcon().availableSizes().size(), 8);
    QCOMPARE(QImage(":/icons/app_icon_rectivo/logo_48.png").size(), QSize(48, 48));
}

void TestResources::countriesList()
{
    const QStringList lines = QString::fromUtf8(resourceBytes(":/translations/countries.en.txt"))
                                  .split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 244);
    QCOMPARE(lines.at(6), QStringLiteral("--------------- ; not_selectable"));
    QCOMPARE(lines.filter(" ; ").size(), 1);
    QStringList alphabetical = lines.mid(7);
    QStringList sorted = alphabetical;
    std::sort(sorted.begin(), sorted.end());
    QCOMPARE(alphabetical, sorted);
    for (const QString& frequent : lines.mid(0, 6))
        QVERIFY2(alphabetical.contains(frequent), qPrintable(frequent));
}

void TestResources::stateMachineDocumentForm()
{
    const QByteArray data = resourceBytes(":/other/CorrectionsStateMachine.xml");
    QVERIFY(!data.isEmpty());
    QVERIFY(!data.startsWith("<?xml"));
    QVERIFY(data.startsWith("<modules xmlns=\"\">"));
    QCOMPARE(data.count('\n'), data.count("\r\n"));
    for (char c : data)
        QVERIFY(static_cast<unsigned char>(c) < 0x80);
    QVERIFY(data.count("<!--") >= 50);

    const QMap<QByteArray, int> counts = {
        {"<module ", 7}, {"<action>", 50}, {"<userActivity>", 59}, {"<conditions>", 36}, {"<changes>", 49},
        {"<moduleActivity ", 41}, {"<currentCorrection>", 35}, {"<moduleApply/>", 10},
    };
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        QVERIFY2(data.count(it.key()) == it.value(), it.key().constData());

    Document document;
    QString error;
    QVERIFY2(document.parse(data, &error), qPrintable(error));
    QCOMPARE(document.moduleNames(), QStringList({"Empty_Correction_ID", "Anamorphosis", "Distortion", "TiltShift",
                                                  "Crop", "Horizon", "Keystoning"}));
    int absentConditions = 0, emptyConditions = 0, absentChanges = 0, emptyChanges = 0;
    for (const QString& module : document.moduleNames()) {
        for (const Action& action : document.actions(module)) {
            absentConditions += !action.hasConditionsElement;
            emptyConditions += action.hasConditionsElement && action.conditions.isEmpty();
            absentChanges += !action.hasChangesElement;
            emptyChanges += action.hasChangesElement && action.changes.isEmpty();
            for (const Item& change : action.changes)
                QVERIFY2(change.value != QLatin1String("True"), "changes write the lower-case word");
            const bool applies = std::any_of(action.changes.cbegin(), action.changes.cend(),
                                             [](const Item& item) { return item.kind == Item::ModuleApply; });
            if (applies)
                QVERIFY2(action.changes.first().kind == Item::ModuleApply, "moduleApply stands first");
            for (const Item& condition : action.conditions) {
                if (condition.value == QLatin1String("True"))
                    QCOMPARE(condition.module, QStringLiteral("Crop"));
            }
        }
    }
    QVERIFY(absentConditions > 0 && emptyConditions > 0 && absentChanges > 0 && emptyChanges > 0);
    QCOMPARE(absentConditions + emptyConditions, 35);
    QVERIFY(data.contains("\tTrue\r\n"));
}

void TestResources::stateMachineCases_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("activity");
    QTest::addColumn<QStringList>("activeBefore");
    QTest::addColumn<QString>("currentBefore");
    QTest::addColumn<QStringList>("activeAfter");
    QTest::addColumn<QString>("currentAfter");
    QTest::addColumn<QStringList>("commits");

    const QStringList none;
    QTest::newRow("slider on Anamorphosis, Crop active") << "Anamorphosis" << "AdditionalControlTouched"
        << QStringList{"Crop", "Anamorphosis"} << "None" << QStringList{"Crop", "Anamorphosis"} << "None" << none;
    QTest::newRow("slider on Anamorphosis, Crop inactive") << "Anamorphosis" << "AdditionalControlTouched"
        << QStringList{"Anamorphosis"} << "None" << QStringList{"Anamorphosis"} << "None" << none;
    QTest::newRow("Horizon off while Keystoning current") << "Horizon" << "ModuleDeactivate"
        << QStringList{"Horizon", "Keystoning"} << "Keystoning" << QStringList{"Keystoning"} << "Keystoning" << none;
    QTest::newRow("Horizon off while current") << "Horizon" << "ModuleDeactivate"
        << QStringList{"Horizon"} << "Horizon" << none << "None" << QStringList{"Horizon"};
    QTest::newRow("Horizon applied while not current") << "Horizon" << "CorrectionApplyed"
        << QStringList{"Horizon", "Crop"} << "Crop" << QStringList{"Horizon", "Crop"} << "Crop" << none;
    QTest::newRow("Horizon applied while current") << "Horizon" << "CorrectionApplyed"
        << QStringList{"Horizon"} << "Horizon" << QStringList{"Horizon"} << "None" << QStringList{"Horizon"};
    QTest::newRow("TiltShift applied, other current") << "TiltShift" << "CorrectionApplyed"
        << QStringList{"TiltShift"} << "Horizon" << QStringList{"TiltShift"} << "None" << none;
    QTest::newRow("Crop applied, other current") << "Crop" << "CorrectionApplyed"
        << QStringList{"Crop"} << "TiltShift" << QStringList{"Crop"} << "None" << none;
    QTest::newRow("Horizon icon, nothing current") << "Horizon" << "SpecificCorrectionActivated"
        << none << "None" << QStringList{"Horizon"} << "Horizon" << none;
    QTest::newRow("Horizon icon while Keystoning current") << "Horizon" << "SpecificCorrectionActivated"
        << QStringList{"Keystoning"} << "Keystoning" << QStringList{"Keystoning", "Horizon"} << "Horizon"
        << QStringList{"Keystoning"};
    QTest::newRow("Horizon icon while Crop current") << "Horizon" << "SpecificCorrectionActivated"
        << QStringList{"Crop"} << "Crop" << QStringList{"Crop", "Horizon"} << "Horizon" << none;
    QTest::newRow("Keystoning icon while Horizon current") << "Keystoning" << "SpecificCorrectionActivated"
        << QStringList{"Horizon"} << "Horizon" << QStringList{"Horizon", "Keystoning"} << "Keystoning"
        << QStringList{"Horizon"};
    QTest::newRow("Crop icon") << "Crop" << "SpecificCorrectionActivated"
        << none << "None" << QStringList{"Crop"} << "Crop" << QStringList{"None"};
    QTest::newRow("TiltShift icon while Crop current") << "TiltShift" << "SpecificCorrectionActivated"
        << QStringList{"Crop"} << "Crop" << QStringList{"Crop", "TiltShift"} << "TiltShift" << QStringList{"Crop"};
    QTest::newRow("Horizon cancel") << "Horizon" << "CorrectionCancel"
        << none << "Horizon" << QStringList{"Horizon"} << "Horizon" << none;
    QTest::newRow("Keystoning cancel") << "Keystoning" << "CorrectionCancel"
        << none << "Keystoning" << QStringList{"Keystoning"} << "Keystoning" << none;
    QTest::newRow("Crop cancel") << "Crop" << "CorrectionCancel"
        << none << "Crop" << QStringList{"Crop"} << "Crop" << none;
    QTest::newRow("Horizon slider, Crop active") << "Horizon" << "AdditionalControlTouched"
        << QStringList{"Crop"} << "None" << QStringList{"Crop", "Horizon"} << "None" << none;
    QTest::newRow("Keystoning slider while current") << "Keystoning" << "AdditionalControlTouched"
        << none << "Keystoning" << QStringList{"Keystoning"} << "Keystoning" << none;
    QTest::newRow("TiltShift off while current") << "TiltShift" << "ModuleDeactivate"
        << QStringList{"TiltShift"} << "TiltShift" << none << "None" << QStringList{"TiltShift"};
    QTest::newRow("reset all keeps Crop") << "Empty_Correction_ID" << "resetAll"
        << QStringList{"Crop", "Horizon", "TiltShift", "Anamorphosis"} << "Horizon" << QStringList{"Crop"} << "None"
        << none;
    QTest::newRow("reset and close keeps Crop") << "Empty_Correction_ID" << "resetAndCloseAllTools"
        << QStringList{"Crop", "Distortion", "Keystoning"} << "Crop" << QStringList{"Crop"} << "None" << none;
    QTest::newRow("activity of another module does nothing") << "Anamorphosis" << "CorrectionCancel"
        << QStringList{"Crop"} << "Crop" << QStringList{"Crop"} << "Crop" << none;
}

void TestResources::stateMachineCases()
{
    QFETCH(QString, module);
    QFETCH(QString, activity);
    QFETCH(QStringList, activeBefore);
    QFETCH(QString, currentBefore);
    QFETCH(QStringList, activeAfter);
    QFETCH(QString, currentAfter);
    QFETCH(QStringList, commits);

    Document document;
    QVERIFY(document.parse(resourceBytes(":/other/CorrectionsStateMachine.xml"), nullptr));
    State state;
    for (const QString& name : document.moduleNames().mid(1))
        state.active[name] = activeBefore.contains(name);
    state.current = currentBefore;
    document.apply(module, activity, state);

    QStringList active;
    for (auto it = state.active.cbegin(); it != state.active.cend(); ++it) {
        if (it.value())
            active << it.key();
    }
    activeAfter.sort();
    QCOMPARE(active, activeAfter);
    QCOMPARE(state.current, currentAfter);
    QCOMPARE(state.commits, commits);
}

void TestResources::stateMachineRuleNeedsNoOrder()
{
    // Over every state: no two conditional actions of one module and activity hold at
    // once, and carrying out all that hold ends where the reader's rule ends.
    Document document;
    QVERIFY(document.parse(resourceBytes(":/other/CorrectionsStateMachine.xml"), nullptr));
    const QStringList tools = document.moduleNames().mid(1);
    const QStringList currents = {"None", "TiltShift", "Crop", "Horizon", "Keystoning"};
    for (const QString& module : document.moduleNames()) {
        QStringList activities;
        for (const Action& action : document.actions(module))
            activities += action.activities;
        activities.removeDuplicates();
        for (const QString& activity : activities) {
            int unconditional = 0;
            for (const Action& action : document.actions(module))
                unconditional += action.activities.contains(activity) && action.conditions.isEmpty();
            QVERIFY(unconditional <= 1);
            for (int flags = 0; flags < (1 << tools.size()); ++flags) {
                for (const QString& current : currents) {
                    State state;
                    for (int i = 0; i < tools.size(); ++i)
                        state.active[tools.at(i)] = flags & (1 << i);
                    state.current = current;
                    int holding = 0;
                    for (const Action& action : document.actions(module))
                        holding += action.activities.contains(activity) && !action.conditions.isEmpty()
                            && Document::holds(action, state);
                    QVERIFY(holding <= 1);
                    State byRule = state, byAll = state;
                    document.apply(module, activity, byRule);
                    document.applyAllThatHold(module, activity, byAll);
                    QCOMPARE(byAll.active, byRule.active);
                    QCOMPARE(byAll.current, byRule.current);
                }
            }
        }
    }
}

void TestResources::calibrationCatalogue()
{
    // SQLite cannot read from the resources: a reader copies the file out first.
    QTemporaryDir dir;
    const QString path = dir.filePath("CAFList4.db");
    QVERIFY(QFile::copy(":/calibration/db/CAFList4.db", path));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "catalogue");
        db.setDatabaseName(path);
        QVERIFY(db.open());
        auto rows = [&db](const QString& sql) {
            QSqlQuery query(db);
            if (!query.exec(sql))
                return QStringList{"error: " + sql};
            QStringList result;
            while (query.next()) {
                QStringList fields;
                for (int i = 0; i < query.record().count(); ++i)
                    fields << query.value(i).toString();
                result << fields.join('|');
            }
            return result;
        };
        QCOMPARE(rows("PRAGMA page_size"), QStringList{"4096"});
        QCOMPARE(rows("PRAGMA encoding"), QStringList{"UTF-8"});
        QCOMPARE(rows("SELECT key, value FROM Metadata"), QStringList{"Version|400.2.0.2"});
        const QStringList makers = rows("SELECT name FROM Maker ORDER BY id");
        QCOMPARE(makers.size(), 18);
        QCOMPARE(makers.at(3), QStringLiteral("Vexa"));
        QCOMPARE(makers.at(17), QStringLiteral("Sony"));
        QCOMPARE(rows("SELECT identifier FROM Body WHERE id = 491 ORDER BY identifier"),
                 QStringList({"DJIPhantom4", "Phantom4"}));
        QCOMPARE(rows("SELECT maker, model, identifier FROM Body WHERE id = 389"),
                 QStringList{"2|EOS 5DS|Canon5DS"});
        QCOMPARE(rows("SELECT id, cid, body, name, fmin, fmax, amin, amax, lens_id, lens_name, bridge, raw_only, "
                      "rgb_only, lens_id_thumbnail FROM Module ORDER BY id"),
                 QStringList({"10592|C36841a_000|389|Sigma 15mm f/2.8 EX Diagonal Fisheye|15|15|0|0|32|NULL|0|0|0|15",
                              "10598|C35830b_002|389|Canon EF16-35mm f/2.8L II USM|16|35|0|0|246|"
                              "EF16-35mm f/2.8L II USM|0|0|0|112"}));
        // "NULL" is text: a test for SQL null does not find it.
        QCOMPARE(rows("SELECT count(*) FROM Module WHERE lens_name IS NULL"), QStringList{"0"});
        QCOMPARE(rows("SELECT count(*) FROM Module WHERE lens_name = 'NULL'"), QStringList{"1"});
        QCOMPARE(rows("SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY name"),
                 QStringList({"body_id_idx", "body_identifier_idx", "body_maker_idx", "module_body_idx",
                              "module_bridge_idx", "module_cid_idx", "module_fmax_idx", "module_fmin_idx",
                              "module_lens_id_idx", "module_raw_only_idx", "module_rgb_only_idx"}));
        QCOMPARE(rows("SELECT count(*) FROM sqlite_stat1"), QStringList{"13"});
        QCOMPARE(rows("SELECT name || ':' || type FROM pragma_table_info('Module')").join(','),
                 QStringLiteral("id:INTEGER,cid:TEXT,body:INTEGER,name:TEXT,fmin:FLOAT,fmax:FLOAT,amin:FLOAT,"
                                "amax:FLOAT,lens_id:TEXT,lens_name:TEXT,bridge:INTEGER,raw_only:INTEGER,"
                                "rgb_only:INTEGER,lens_id_thumbnail:INTEGER"));
        QCOMPARE(rows("SELECT count(*) FROM Module m LEFT JOIN Body b ON b.id = m.body WHERE b.id IS NULL"),
                 QStringList{"0"});
        db.close();
    }
    QSqlDatabase::removeDatabase("catalogue");
}

UTILSDLL_TEST_MAIN_WITH(TestResources, QApplication)
#include "tst_resources.moc"
