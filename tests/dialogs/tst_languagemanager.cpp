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

namespace {

// Reaches the protected table lookup.
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
        QCOMPARE(manager()->loadedLanguageID(), 0xFFFFFFFFu);
        Vexa::CSettings().setValue("VexaAppLanguage", "not a number");
        QCOMPARE(CLanguageManager::currentLanguageNumber(), 1033u);
        Vexa::CSettings().remove("VexaAppLanguage");
    }

    void modelListsTheProductCatalogues()
    {
        manager()->loadLanguages();
        manager()->loadLanguages(); // built once
        QStandardItemModel* model = manager()->model();
        QCOMPARE(model->columnCount(), 4);
        QStringList rows;
        for (int row = 0; row < model->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < 4; ++column)
                cells << model->index(row, column).data().toString();
            rows << cells.join('|');
        }
        rows.sort();
        QCOMPARE(rows, (QStringList{"Deutsch|1031|:/translations/vexa_de.qm|de", "English|1033|:/translations/vexa_en.qm|en",
                                    "Français|1036|:/translations/vexa_fr.qm|fr", "日本語|1041|:/translations/vexa_ja.qm|ja",
                                    "简体中文|2052|:/translations/vexa_zh-CN.qm|zh-CN"}));
        QCOMPARE(manager()->getLangIdFromIndex(rowOf("fr")), 1036u);
        QCOMPARE(manager()->getLangIdFromIndex(99), 0u);
    }

    void numberAndAbbreviationTable()
    {
        for (const auto& [number, abbreviation] : {qMakePair(1033u, QString("en")), qMakePair(2052u, QString("zh-CN"))}) {
            QCOMPARE(CLanguageManager::stringFromCodeLanguage(number), abbreviation);
            QCOMPARE(LanguageTable::codeLanguageFromString(abbreviation), number);
        }
        try {
            LanguageTable::codeLanguageFromString("EN");
            QFAIL("no exception");
        } catch (const std::invalid_argument& error) {
            QCOMPARE(QString(error.what()), QString("The argument EN does not refer to a valid language, defaulting to English"));
        }
        QVERIFY_EXCEPTION_THROWN(CLanguageManager::stringFromCodeLanguage(1034), std::invalid_argument);
    }

    void loadForAppThenChangeToTheCurrentRow()
    {
        manager()->loadLanguageForApp();
        QCOMPARE(manager()->loadedLanguageID(), 1033u);
        QCOMPARE(installedCatalogues(), QStringList{"vexa_en.qm"});
        QCOMPARE(QCoreApplication::translate("CLanguageManager", "language name"), QStringLiteral("English"));
        QSignalSpy changed(manager(), &CLanguageManager::languageChanged);
        QVERIFY(!manager()->changeLanguage(rowOf("en")));
        QCOMPARE(changed.count(), 0);
        QCOMPARE(installedCatalogues(), QStringList{"vexa_en.qm"});
    }

    void changesLeaveTheApplicationCatalogueBehind()
    {
        QSignalSpy changed(manager(), &CLanguageManager::languageChanged);
        QVERIFY(manager()->changeLanguage(rowOf("fr")));
        QCOMPARE(Vexa::CSettings().value("VexaAppLanguage").toUInt(), 1036u);
        QCOMPARE(installedCatalogues(), QStringList({"vexa_fr.qm", "qt_fr.qm"}));
        QCOMPARE(QLocale().language(), QLocale::French);

        // Only the toolkit catalogue of French goes; its application catalogue stays.
        QVERIFY(manager()->changeLanguage(rowOf("de")));
        QCOMPARE(changed.count(), 2);
        QCOMPARE(installedCatalogues(), QStringList({"vexa_fr.qm", "vexa_de.qm", "qt_de.qm"}));
        QCOMPARE(manager()->currentLanguageAbbrv(), QStringLiteral("de"));
        QCOMPARE(manager()->loadedLanguageID(), 1031u);
        QDialogButtonBox box(QDialogButtonBox::Cancel); // Qt's own widgets are translated too
        QCOMPARE(box.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Abbrechen"));
    }

    void changeToNoRow()
    {
        QSignalSpy changed(manager(), &CLanguageManager::languageChanged);
        const QStringList before = installedCatalogues();
        UtilsDllTest::ScopedTestLogger logger;
        QVERIFY(manager()->changeLanguage(-1));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(CLanguageManager::currentLanguageNumber(), 0u);
        QCOMPARE(installedCatalogues(), before);
        QCOMPARE(manager()->loadedLanguageID(), 1031u);
        QCOMPARE(manager()->currentLanguageIndex(), -1);
        QVERIFY(logger->linesAt('E').contains("Cannot find language with ID: 0"));
        QCOMPARE(manager()->settingsAbbrv(), QString());
        QVERIFY(!manager()->changeLanguage(99)); // the same number again is no change
    }
};

UTILSDLL_TEST_MAIN_WITH(TestLanguageManager, QApplication)
#include "tst_languagemanager.moc"
