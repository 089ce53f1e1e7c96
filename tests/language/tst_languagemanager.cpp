#include "LanguageManager.h"
#include "Settings.h"
#include "TestEnvironment.h"
#include "TestLogger.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTranslator>

#include <stdexcept>

using Vexa::CLanguageManager;
using UtilsDllTest::ScopedTestLogger;

namespace {

// Reaches the protected table lookups.
class LanguageTable : public CLanguageManager
{
public:
    using CLanguageManager::codeLanguageFromString;
};

CLanguageManager* manager() { return CLanguageManager::instance(); }

int rowOf(const QString& abbreviation)
{
    QStandardItemModel* model = manager()->model();
    return model->match(model->index(0, 3), Qt::DisplayRole, abbreviation, 1, Qt::MatchExactly).value(0).row();
}

// The catalogues installed in the application, by file name, oldest first.
QStringList installedCatalogues()
{
    QStringList files;
    for (QTranslator* translator : qApp->findChildren<QTranslator*>(QString(), Qt::FindDirectChildrenOnly))
        files << QFileInfo(translator->filePath()).fileName();
    return files;
}

} // namespace

class TestLanguageManager : public QObject
{
    Q_OBJECT
private slots:
    void englishBeforeAnyModel()
    {
        QCOMPARE(CLanguageManager::currentLanguageNumber(), 1033u);
        QCOMPARE(manager()->settingsAbbrv(), QStringLiteral("en"));
        QCOMPARE(manager()->langCount(), 0);
        QCOMPARE(manager()->loadedLanguageID(), 0xFFFFFFFFu);
    }

    void modelListsTheProductCatalogues()
    {
        manager()->loadLanguages();
        manager()->loadLanguages(); // built once: the second call adds nothing
        QStandardItemModel* model = manager()->model();
        QCOMPARE(model->columnCount(), 4);
        QCOMPARE(manager()->langCount(), 5);
        QMap<QString, QString> rows;
        for (int row = 0; row < model->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < 4; ++column)
                cells << model->index(row, column).data().toString();
            rows[cells.at(3)] = cells.join('|');
        }
        QCOMPARE(rows.value("en"), QStringLiteral("English|1033|:/translations/vexa_en.qm|en"));
        QCOMPARE(rows.value("de"), QStringLiteral("Deutsch|1031|:/translations/vexa_de.qm|de"));
        QCOMPARE(rows.value("fr"), QStringLiteral("Français|1036|:/translations/vexa_fr.qm|fr"));
        QCOMPARE(rows.value("ja"), QStringLiteral("日本語|1041|:/translations/vexa_ja.qm|ja"));
        QCOMPARE(rows.value("zh-CN"), QStringLiteral("简体中文|2052|:/translations/vexa_zh-CN.qm|zh-CN"));
        QCOMPARE(manager()->getLangIdFromIndex(rowOf("fr")), 1036u);
        QCOMPARE(manager()->getLangIdFromIndex(99), 0u);
    }

    // The model pins every pair; here the lookups both ways and their refusals.
    void numberAndAbbreviationTable_data()
    {
        QTest::addColumn<unsigned>("number");
        QTest::addColumn<QString>("abbreviation");
        QTest::newRow("en") << 1033u << "en";
        QTest::newRow("zh-CN") << 2052u << "zh-CN";
    }
    void numberAndAbbreviationTable()
    {
        QFETCH(unsigned, number);
        QFETCH(QString, abbreviation);
        QCOMPARE(CLanguageManager::stringFromCodeLanguage(number), abbreviation);
        QCOMPARE(LanguageTable::codeLanguageFromString(abbreviation), number);
        QVERIFY_EXCEPTION_THROWN(LanguageTable::codeLanguageFromString(abbreviation.toUpper() + "x"),
                                 std::invalid_argument);
        try {
            CLanguageManager::stringFromCodeLanguage(number + 1);
            QFAIL("no exception");
        } catch (const std::invalid_argument& error) {
            QCOMPARE(QString(error.what()), QString("The argument %1 does not refer to a valid language").arg(number + 1));
        }
    }

    void loadForAppThenChangeToTheCurrentRow()
    {
        manager()->loadLanguageForApp();
        QCOMPARE(manager()->loadedLanguageID(), 1033u);
        QCOMPARE(installedCatalogues(), QStringList{"vexa_en.qm"});
        QCOMPARE(QLocale().language(), QLocale::English);
        QCOMPARE(QCoreApplication::translate("CLanguageManager", "language name"), QStringLiteral("English"));

        QSignalSpy changed(manager(), &CLanguageManager::languageChanged);
        QVERIFY(!manager()->changeLanguage(rowOf("en")));
        QCOMPARE(changed.count(), 0);
        QCOMPARE(installedCatalogues(), QStringList{"vexa_en.qm"});
    }

    void changesLeaveTheApplicationCatalogueBehind()
    {
        QSignalSpy changed(manager(), &CLanguageManager::languageChanged);

        // English has no toolkit catalogue: its application catalogue is the tracked one.
        QVERIFY(manager()->changeLanguage(rowOf("fr")));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(CLanguageManager::currentLanguageNumber(), 1036u);
        QCOMPARE(Vexa::CSettings().value("VexaAppLanguage").toUInt(), 1036u);
        QCOMPARE(installedCatalogues(), QStringList({"vexa_fr.qm", "qt_fr.qm"}));
        QCOMPARE(QCoreApplication::translate("QObject", "MB"), QStringLiteral("Mo"));
        QCOMPARE(QLocale().language(), QLocale::French);

        // Only the toolkit catalogue of French goes; its application catalogue stays.
        QVERIFY(manager()->changeLanguage(rowOf("de")));
        QCOMPARE(changed.count(), 2);
        QCOMPARE(installedCatalogues(), QStringList({"vexa_fr.qm", "vexa_de.qm", "qt_de.qm"}));
        QCOMPARE(QCoreApplication::translate("QObject", "in"), QStringLiteral("Zoll"));
        QCOMPARE(manager()->currentLanguageAbbrv(), QStringLiteral("de"));
        QCOMPARE(manager()->currentLanguageIndex(), rowOf("de"));
        QCOMPARE(manager()->loadedLanguageID(), 1031u);
        // The embedded toolkit catalogue reaches Qt's own widgets.
        QDialogButtonBox box(QDialogButtonBox::Cancel);
        QCOMPARE(box.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Abbrechen"));

        QVERIFY(manager()->changeLanguage(rowOf("ja")));
        QCOMPARE(manager()->loadedLanguageID(), 1041u);
        QCOMPARE(QLocale().language(), QLocale::Japanese);
        QCOMPARE(installedCatalogues(), QStringList({"vexa_fr.qm", "vexa_de.qm", "vexa_ja.qm", "qt_ja.qm"}));
        QCOMPARE(manager()->settingsAbbrv(), QStringLiteral("ja"));
    }

    void changeToNoRow()
    {
        QSignalSpy changed(manager(), &CLanguageManager::languageChanged);
        const QStringList before = installedCatalogues();
        ScopedTestLogger logger;

        QVERIFY(manager()->changeLanguage(-1));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(CLanguageManager::currentLanguageNumber(), 0u);
        QCOMPARE(installedCatalogues(), before);
        QCOMPARE(manager()->loadedLanguageID(), 1041u);
        QCOMPARE(QLocale().language(), QLocale::Japanese);

        QCOMPARE(manager()->currentLanguageIndex(), -1);
        QVERIFY(logger->linesAt('E').contains("Cannot find language with ID: 0"));
        QCOMPARE(manager()->currentLanguageAbbrv(), QString());
        logger->clear();
        QCOMPARE(manager()->settingsAbbrv(), QString());
        QCOMPARE(logger->linesAt('D'), QStringList{"The argument 0 does not refer to a valid language"});

        // The same number again is no change.
        QVERIFY(!manager()->changeLanguage(99));
    }
};

UTILSDLL_TEST_MAIN_WITH(TestLanguageManager, QApplication)
#include "tst_languagemanager.moc"
