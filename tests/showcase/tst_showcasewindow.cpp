#include "TestEnvironment.h"

#include "ShowcaseWindow.h"

#include "DialogDriver.h"

#include "LanguageManager.h"
#include "storageLocation.h"

#include <QtWidgets>

#include <memory>

using namespace Vexa;

namespace {

// Every text the window shows, each under a key of its own.
QMap<QString, QString> shownTexts(QWidget* window)
{
    QMap<QString, QString> texts{{"window title", window->windowTitle()}};
    auto* pages = window->findChild<QTabWidget*>("pages");
    for (int page = 0; page < pages->count(); ++page)
        texts.insert(QStringLiteral("tab %1").arg(page), pages->tabText(page));
    int index = 0;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        const QString key = QStringLiteral("%1 #%2").arg(widget->objectName()).arg(index++);
        if (auto* label = qobject_cast<QLabel*>(widget))
            texts.insert(key, label->text());
        else if (auto* button = qobject_cast<QAbstractButton*>(widget))
            texts.insert(key, button->text());
        else if (auto* edit = qobject_cast<QPlainTextEdit*>(widget))
            texts.insert(key, edit->placeholderText());
        else if (auto* spinBox = qobject_cast<QSpinBox*>(widget))
            texts.insert(key, spinBox->suffix());
    }
    return texts;
}

int rowOfLanguage(const QString& abbreviation)
{
    QStandardItemModel* model = CLanguageManager::instance()->model();
    for (int row = 0; row < model->rowCount(); ++row)
        if (model->index(row, 3).data().toString() == abbreviation)
            return row;
    return -1;
}

} // namespace

// The gallery follows the language chosen in its combo, live, together with the library's own dialogs.
class TestShowcaseWindow : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        CStorageLocation::setPreferencesFilePath(CStorageLocation::getDefaultPreferencesFilePath());
        CLanguageManager::instance()->loadLanguageForApp();
        dressLikeTheProduct(*qApp);
        m_window = std::make_unique<ShowcaseWindow>();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void switchesLanguageLive()
    {
        auto* combo = m_window->findChild<QComboBox*>("languageComboBox");
        QCOMPARE(combo->count(), CLanguageManager::instance()->langCount());
        const auto answerYes = [this](QString* yesText) {
            UtilsDllTest::whenModalShown<QDialog>([yesText](QDialog* dialog) {
                auto* button = dialog->findChild<QPushButton*>("yesButton");
                *yesText = button->text();
                QTest::mouseClick(button, Qt::LeftButton);
            });
            QTest::mouseClick(m_window->findChild<QPushButton*>("yesNoButton"), Qt::LeftButton);
        };
        QString yesText;
        answerYes(&yesText); // the answer shown is translated too
        const QMap<QString, QString> inEnglish = shownTexts(m_window.get());
        combo->setCurrentIndex(rowOfLanguage("de"));
        QCoreApplication::processEvents(); // the LanguageChange events are posted
        const QMap<QString, QString> inGerman = shownTexts(m_window.get());
        QCOMPARE(inGerman.keys(), inEnglish.keys());
        for (auto it = inGerman.cbegin(); it != inGerman.cend(); ++it)
            QVERIFY2(!it.value().contains(QRegularExpression("%\\d|%n")), qPrintable(it.key() + ": " + it.value()));
        QVERIFY(m_window->findChild<QLabel*>("languageLabel")->text().contains("(de)"));

        // The library's own texts follow too: the message box opened now speaks the language.
        answerYes(&yesText);
        QCOMPARE(yesText, QString("Ja"));

        combo->setCurrentIndex(rowOfLanguage("en"));
        QCoreApplication::processEvents();
        QCOMPARE(shownTexts(m_window.get()), inEnglish);
    }

private:
    std::unique_ptr<ShowcaseWindow> m_window;
};

UTILSDLL_TEST_MAIN_WITH(TestShowcaseWindow, QApplication)
#include "tst_showcasewindow.moc"
