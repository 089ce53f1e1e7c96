#include "AppBootstrap.h"
#include "TestEnvironment.h"

#include <QtSql>
#include <QtWidgets>
#include <QtXml>

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
        auto match = path.globalMatch(QString::fromUtf8(file.readAll()));
        while (match.hasNext()) {
            const QString p = match.next().captured(1);
            // Patterns with an argument are checked where they are expanded.
            if (!p.contains('%') && p.size() > 2)
                found << QFileInfo(it.filePath()).fileName() + " names " + p;
        }
    }
    return found;
}

// A reader of the correction state machine document by its rules: the activities of an
// action are alternatives, a conditional action that holds wins over the unconditional
// one, changes run in document order, booleans compare without case.
const QStringList s_tools = {"Anamorphosis", "Distortion", "TiltShift", "Crop", "Horizon", "Keystoning"};

struct State
{
    QMap<QString, bool> active;
    QString current = QStringLiteral("None");
    QStringList commits; // the correction that each moduleApply committed
};

QString word(const QDomElement& element)
{
    return element.text().trimmed();
}

// An absent and an empty list element mean the same: no items.
QList<QDomElement> itemsOf(const QDomElement& parent, const char* list = nullptr)
{
    QList<QDomElement> items;
    for (QDomElement e = (list ? parent.firstChildElement(list) : parent).firstChildElement(); !e.isNull();
         e = e.nextSiblingElement())
        items << e;
    return items;
}

bool isTrue(const QDomElement& item)
{
    return word(item).compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
}

QList<QDomElement> actionsFor(const QDomElement& module, const QString& activity)
{
    QList<QDomElement> found;
    for (const QDomElement& action : itemsOf(module, "actions")) {
        const QList<QDomElement> listed = itemsOf(action, "userActivities");
        if (std::any_of(listed.cbegin(), listed.cend(), [&](const QDomElement& e) { return word(e) == activity; }))
            found << action;
    }
    return found;
}

bool holds(const QDomElement& action, const State& state)
{
    for (const QDomElement& condition : itemsOf(action, "conditions")) {
        if (condition.tagName() == QLatin1String("moduleActivity")
                ? state.active.value(condition.attribute("name")) != isTrue(condition)
                : state.current != word(condition))
            return false;
    }
    return true;
}

void carryOut(const QDomElement& action, State& state)
{
    for (const QDomElement& change : itemsOf(action, "changes")) {
        if (change.tagName() == QLatin1String("moduleApply"))
            state.commits << state.current;
        else if (change.tagName() == QLatin1String("moduleActivity"))
            state.active[change.attribute("name")] = isTrue(change);
        else
            state.current = word(change);
    }
}

// The rule that a reader applies: a conditional action that holds, else the unconditional.
void apply(const QDomElement& module, const QString& activity, State& state)
{
    QDomElement unconditional;
    for (const QDomElement& action : actionsFor(module, activity)) {
        if (itemsOf(action, "conditions").isEmpty())
            unconditional = action;
        else if (holds(action, state))
            return carryOut(action, state);
    }
    if (!unconditional.isNull())
        carryOut(unconditional, state);
}

// "Crop Horizon | Keystoning": the active tools, then the current correction.
State stateFrom(const QString& text)
{
    State state;
    for (const QString& tool : s_tools)
        state.active[tool] = text.section('|', 0, 0).split(' ', Qt::SkipEmptyParts).contains(tool);
    state.current = text.section('|', 1).trimmed();
    return state;
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
        QVERIFY2(QFileInfo::exists(path), qPrintable(path));
    }

    void styleSheetsParse_data()
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

    void styleSheetsParse()
    {
        QFETCH(QByteArray, sheet);
        QFETCH(bool, broken);
        s_warnings.clear();
        QtMessageHandler previous = qInstallMessageHandler(recordWarning);
        qApp->setStyleSheet(QString::fromUtf8(sheet));
        // The application sheet is parsed whole when the first widget is polished.
        QWidget widget;
        widget.ensurePolished();
        qInstallMessageHandler(previous);
        qApp->setStyleSheet(QString());
        QCOMPARE(s_warnings.filter("stylesheet", Qt::CaseInsensitive).isEmpty(), !broken);
    }

    void fontsRegisterWithTheirFamilies()
    {
        // The file named for Segoe UI holds Open Sans: the styles ask for that family.
        const QStringList families = {"Maven Pro", "OpenSansLight", "RobotoBold", "RobotoLight", "RobotoRegular",
                                      "RobotoMedium", "Open Sans"};
        Vexa::loadFonts();
        const QStringList known = QFontDatabase().families();
        for (const QString& family : families)
            QVERIFY2(known.contains(family), qPrintable(family));
        QVERIFY(QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(":/fonts/Segoe+UI.ttf"))
                    .contains("Open Sans"));
    }

    void resourceSetsAreRegistered()
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

    // Compiled in format version 1, which stores no modification times.
    void setsCarryNoModificationTimes()
    {
        for (const char* path : {":/qss/custom.qss", ":/calibration/db/CAFList4.db", ":/translations/vexa_de.qm",
                                 ":/icons/app_icon_rectivo/logo_16.png"})
            QVERIFY2(!QFileInfo(path).lastModified().isValid(), path);
    }

    void countriesList()
    {
        const QStringList lines = QString::fromUtf8(resourceBytes(":/translations/countries.en.txt"))
                                      .split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 244);
        QCOMPARE(lines.at(6), QStringLiteral("--------------- ; not_selectable"));
        QCOMPARE(lines.filter(" ; ").size(), 1);
        const QStringList alphabetical = lines.mid(7);
        QStringList sorted = alphabetical;
        std::sort(sorted.begin(), sorted.end());
        QCOMPARE(alphabetical, sorted);
        for (const QString& frequent : lines.mid(0, 6))
            QVERIFY2(alphabetical.contains(frequent), qPrintable(frequent));
    }

    void stateMachineDocument()
    {
        const QByteArray data = resourceBytes(":/other/CorrectionsStateMachine.xml");
        QVERIFY(data.startsWith("<modules xmlns=\"\">")); // no XML declaration
        QCOMPARE(data.count('\n'), data.count("\r\n"));
        QVERIFY(std::all_of(data.cbegin(), data.cend(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
        QVERIFY(data.count("<!--") >= 50);
        QVERIFY(data.contains("\tTrue\r\n"));
        const QMap<QByteArray, int> counts = {
            {"<module ", 7}, {"<action>", 50}, {"<userActivity>", 59}, {"<conditions>", 36}, {"<changes>", 49},
            {"<moduleActivity ", 41}, {"<currentCorrection>", 35}, {"<moduleApply/>", 10},
        };
        for (auto it = counts.cbegin(); it != counts.cend(); ++it)
            QVERIFY2(data.count(it.key()) == it.value(), it.key().constData());

        QDomDocument document;
        QString error;
        QVERIFY2(document.setContent(data, &error), qPrintable(error));
        QStringList names;
        int absentConditions = 0, emptyConditions = 0, absentChanges = 0, emptyChanges = 0;
        for (const QDomElement& module : itemsOf(document.documentElement())) {
            names << module.attribute("name");
            QSet<QString> activities;
            for (const QDomElement& action : itemsOf(module, "actions")) {
                const QDomElement conditions = action.firstChildElement("conditions");
                const QDomElement changes = action.firstChildElement("changes");
                absentConditions += conditions.isNull();
                emptyConditions += !conditions.isNull() && itemsOf(conditions).isEmpty();
                absentChanges += changes.isNull();
                emptyChanges += !changes.isNull() && itemsOf(changes).isEmpty();
                const QList<QDomElement> items = itemsOf(changes);
                for (int i = 0; i < items.size(); ++i) {
                    QVERIFY2(word(items[i]) != "True", "changes write the lower-case word");
                    QVERIFY2(i == 0 || items[i].tagName() != "moduleApply", "moduleApply stands first");
                }
                for (const QDomElement& condition : itemsOf(conditions)) {
                    if (word(condition) == "True")
                        QCOMPARE(condition.attribute("name"), QStringLiteral("Crop"));
                }
                for (const QDomElement& activity : itemsOf(action, "userActivities"))
                    activities << word(activity);
            }
            // Over every state: no activity has two unconditional actions or two conditional
            // ones that hold at once, and carrying out all that hold, each judged against the
            // state before any change, ends where the reader's rule ends.
            for (const QString& activity : activities) {
                const QList<QDomElement> actions = actionsFor(module, activity);
                QVERIFY(std::count_if(actions.cbegin(), actions.cend(),
                                      [](const QDomElement& a) { return itemsOf(a, "conditions").isEmpty(); }) <= 1);
                for (int flags = 0; flags < (1 << s_tools.size()); ++flags) {
                    for (const char* current : {"None", "TiltShift", "Crop", "Horizon", "Keystoning"}) {
                        State state;
                        for (int i = 0; i < s_tools.size(); ++i)
                            state.active[s_tools.at(i)] = flags & (1 << i);
                        state.current = current;
                        State byRule = state, byAll = state;
                        apply(module, activity, byRule);
                        int conditionalHolding = 0;
                        for (const QDomElement& action : actions) {
                            if (holds(action, state)) {
                                conditionalHolding += !itemsOf(action, "conditions").isEmpty();
                                carryOut(action, byAll);
                            }
                        }
                        QVERIFY(conditionalHolding <= 1);
                        QCOMPARE(byAll.active, byRule.active);
                        QCOMPARE(byAll.current, byRule.current);
                    }
                }
            }
        }
        QCOMPARE(names, QStringList({"Empty_Correction_ID", "Anamorphosis", "Distortion", "TiltShift", "Crop", "Horizon",
                                     "Keystoning"}));
        QVERIFY(absentConditions > 0 && emptyConditions > 0 && absentChanges > 0 && emptyChanges > 0);
        QCOMPARE(absentConditions + emptyConditions, 35);
    }

    void stateMachineCases_data()
    {
        QTest::addColumn<QString>("module");
        QTest::addColumn<QString>("activity");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("commits");
        const auto row = [](const char* name, const char* module, const char* activity, const char* before,
                            const char* after, const char* commits = "") {
            QTest::newRow(name) << module << activity << before << after << commits;
        };
        row("Anamorphosis slider, Crop on", "Anamorphosis", "AdditionalControlTouched", "Crop Anamorphosis | None",
            "Crop Anamorphosis | None");
        row("Anamorphosis slider, Crop off", "Anamorphosis", "AdditionalControlTouched", "Anamorphosis | None",
            "Anamorphosis | None");
        row("Horizon off, Keystoning current", "Horizon", "ModuleDeactivate", "Horizon Keystoning | Keystoning",
            "Keystoning | Keystoning");
        row("Horizon off while current", "Horizon", "ModuleDeactivate", "Horizon | Horizon", "| None", "Horizon");
        row("Horizon applied, not current", "Horizon", "CorrectionApplyed", "Horizon Crop | Crop", "Horizon Crop | Crop");
        row("TiltShift applied, other current", "TiltShift", "CorrectionApplyed", "TiltShift | Horizon",
            "TiltShift | None");
        row("Crop applied, other current", "Crop", "CorrectionApplyed", "Crop | TiltShift", "Crop | None");
        row("Horizon icon, nothing current", "Horizon", "SpecificCorrectionActivated", "| None", "Horizon | Horizon");
        row("Crop icon", "Crop", "SpecificCorrectionActivated", "| None", "Crop | Crop", "None");
        row("TiltShift icon, Crop current", "TiltShift", "SpecificCorrectionActivated", "Crop | Crop",
            "Crop TiltShift | TiltShift", "Crop");
        row("Horizon cancel", "Horizon", "CorrectionCancel", "| Horizon", "Horizon | Horizon");
        row("Keystoning cancel", "Keystoning", "CorrectionCancel", "| Keystoning", "Keystoning | Keystoning");
        row("Crop cancel", "Crop", "CorrectionCancel", "| Crop", "Crop | Crop");
        row("reset all keeps Crop", "Empty_Correction_ID", "resetAll", "Crop Horizon Anamorphosis | Horizon",
            "Crop | None");
        row("reset and close keeps Crop", "Empty_Correction_ID", "resetAndCloseAllTools",
            "Crop Distortion TiltShift Keystoning | Crop", "Crop | None");
        row("another module's activity", "Anamorphosis", "CorrectionCancel", "Crop | Crop", "Crop | Crop");
    }

    void stateMachineCases()
    {
        QFETCH(QString, module);
        QFETCH(QString, activity);
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(QString, commits);
        QDomDocument document;
        QVERIFY(document.setContent(resourceBytes(":/other/CorrectionsStateMachine.xml")));
        const QList<QDomElement> modules = itemsOf(document.documentElement());
        const auto named = std::find_if(modules.cbegin(), modules.cend(),
                                        [&](const QDomElement& m) { return m.attribute("name") == module; });
        QVERIFY(named != modules.cend());
        State state = stateFrom(before);
        apply(*named, activity, state);
        QCOMPARE(state.active, stateFrom(after).active);
        QCOMPARE(state.current, stateFrom(after).current);
        QCOMPARE(state.commits, commits.split(' ', Qt::SkipEmptyParts));
    }

    void calibrationCatalogue()
    {
        // SQLite cannot read from the resources: a reader copies the file out first.
        QTemporaryDir dir;
        const QString path = dir.filePath("CAFList4.db");
        QVERIFY(QFile::copy(":/calibration/db/CAFList4.db", path));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        // Each query's rows, fields joined by "|" and rows by ",".
        const QList<QPair<QString, QString>> expected = {
            {"PRAGMA encoding", "UTF-8"},
            {"SELECT key, value FROM Metadata", "Version|400.2.0.2"},
            {"SELECT count(*) FROM Maker", "18"},
            {"SELECT name FROM Maker WHERE id IN (4, 18) ORDER BY id", "Vexa,Sony"},
            // A camera may be known under two identifiers.
            {"SELECT identifier FROM Body WHERE id = 491 ORDER BY identifier", "DJIPhantom4,Phantom4"},
            {"SELECT maker, model, identifier FROM Body WHERE id = 389", "2|EOS 5DS|Canon5DS"},
            {"SELECT id, cid, body, name, fmin, fmax, amin, amax, lens_id, lens_name, bridge, raw_only, rgb_only, "
             "lens_id_thumbnail FROM Module ORDER BY id",
             "10592|C36841a_000|389|Sigma 15mm f/2.8 EX Diagonal Fisheye|15|15|0|0|32|NULL|0|0|0|15,"
             "10598|C35830b_002|389|Canon EF16-35mm f/2.8L II USM|16|35|0|0|246|EF16-35mm f/2.8L II USM|0|0|0|112"},
            // "NULL" is text: a test for SQL null does not find it.
            {"SELECT count(*) FROM Module WHERE lens_name IS NULL", "0"},
            {"SELECT count(*) FROM Module WHERE lens_name = 'NULL'", "1"},
            {"SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY name",
             "body_id_idx,body_identifier_idx,body_maker_idx,module_body_idx,module_bridge_idx,module_cid_idx,"
             "module_fmax_idx,module_fmin_idx,module_lens_id_idx,module_raw_only_idx,module_rgb_only_idx"},
            {"SELECT name || ':' || type FROM pragma_table_info('Module')",
             "id:INTEGER,cid:TEXT,body:INTEGER,name:TEXT,fmin:FLOAT,fmax:FLOAT,amin:FLOAT,amax:FLOAT,lens_id:TEXT,"
             "lens_name:TEXT,bridge:INTEGER,raw_only:INTEGER,rgb_only:INTEGER,lens_id_thumbnail:INTEGER"},
        };
        {
            QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "catalogue");
            db.setDatabaseName(path);
            QVERIFY(db.open());
            for (const auto& [sql, rows] : expected) {
                QSqlQuery query(db);
                QVERIFY2(query.exec(sql), qPrintable(sql));
                QStringList found;
                while (query.next()) {
                    QStringList fields;
                    for (int i = 0; i < query.record().count(); ++i)
                        fields << query.value(i).toString();
                    found << fields.join('|');
                }
                QCOMPARE(found.join(','), rows);
            }
            db.close();
        }
        QSqlDatabase::removeDatabase("catalogue");
    }
};

UTILSDLL_TEST_MAIN_WITH(TestResources, QApplication)
#include "tst_resources.moc"
