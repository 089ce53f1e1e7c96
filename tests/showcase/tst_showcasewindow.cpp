#include "TestEnvironment.h"

#include "ShowcaseWindow.h"

#include "DialogDriver.h"

#include "HostWarningDlg.h"
#include "LanguageManager.h"
#include "MessageBox.h"
#include "Settings.h"
#include "storageLocation.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QImage>
#include <QFormLayout>
#include <QLabel>
#include <QProgressBar>
#include <QSpinBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QProcess>
#include <QXmlStreamReader>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QAbstractButton>

#include <memory>

using namespace Vexa;

class TestShowcaseWindow : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void eachDialogAnswers_data();
    void eachDialogAnswers();
    void switchesLanguageLive_data();
    void switchesLanguageLive();
    void switchesTemporaryStoreAndBack();
    void savesItsPictures();
    void drawingPage();
    void compressesAndExtracts();
    void soapCallAgainstSpyne();

private:
    std::unique_ptr<ShowcaseWindow> m_window;
};

namespace {

// Stands in for the user on the next modal dialog: clicks its child button 'button',
// or closes the dialog when 'button' is empty. Records the dialog's class.
void answerNextModal(const QString& button, QString* seenClass)
{
    UtilsDllTest::whenModalShown<QDialog>([button, seenClass](QDialog* dialog) {
        *seenClass = dialog->metaObject()->className();
        auto* target = button.isEmpty() ? nullptr : dialog->findChild<QPushButton*>(button);
        if (target)
            QTest::mouseClick(target, Qt::LeftButton);
        else
            dialog->close(); // a missing button leaves the answer wrong: the comparison fails
    });
}

QString backendInForce(const QString& report)
{
    for (const QString& line : report.split('\n')) {
        if (line.trimmed().startsWith("backend in force:"))
            return line.trimmed();
    }
    return QString();
}

// Every text the window shows, each under a key of its own.
QMap<QString, QString> shownTexts(QWidget* window)
{
    QMap<QString, QString> texts;
    texts.insert("window title", window->windowTitle());
    auto* pages = window->findChild<QTabWidget*>("pages");
    for (int page = 0; page < pages->count(); ++page)
        texts.insert(QStringLiteral("tab %1").arg(page), pages->tabText(page));
    int index = 0;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        const QString key = QStringLiteral("%1 #%2 %3").arg(widget->metaObject()->className()).arg(index++).arg(widget->objectName());
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

// The sources that the gallery's catalogue for 'language' leaves as they are.
QSet<QString> keptAsTheyAre(const QString& language)
{
    QSet<QString> kept;
    QFile file(QStringLiteral(SHOWCASE_TS_DIR "/showcase_%1.ts").arg(language));
    if (!file.open(QIODevice::ReadOnly))
        return kept;
    QXmlStreamReader xml(&file);
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("source"))
            source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation") && xml.readElementText() == source)
            kept.insert(source);
    }
    return kept;
}

int rowOfLanguage(const QString& abbreviation)
{
    QStandardItemModel* model = CLanguageManager::instance()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, 3).data().toString() == abbreviation)
            return row;
    }
    return -1;
}

} // namespace

void TestShowcaseWindow::initTestCase()
{
    CStorageLocation::setPreferencesFilePath(CStorageLocation::getDefaultPreferencesFilePath());
    CLanguageManager::instance()->loadLanguageForApp();
    dressLikeTheProduct(*qApp);
    m_window = std::make_unique<ShowcaseWindow>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestShowcaseWindow::eachDialogAnswers_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("dialogButton");
    QTest::addColumn<QString>("dialogClass");
    QTest::addColumn<QString>("answer");

    QTest::newRow("information") << "information" << "mbSipleButton" << "CMessageBox" << "OK";
    QTest::newRow("warning") << "warning" << "mbSipleButton" << "CMessageBox" << "OK";
    QTest::newRow("critical") << "critical" << "mbSipleButton" << "CMessageBox" << "OK";
    QTest::newRow("yes") << "yesNo" << "yesButton" << "CMessageBox" << "Yes";
    QTest::newRow("no") << "yesNo" << "noButton" << "CMessageBox" << "No";
    QTest::newRow("rotate") << "rotate" << "rotateButton" << "CMessageBox" << "Rotate";
    QTest::newRow("rotate cancelled") << "rotate" << "cancelButton" << "CMessageBox" << "Cancel";
    QTest::newRow("save") << "saveDiscardCancel" << "saveButton" << "CMessageBox" << "Save";
    QTest::newRow("discard") << "saveDiscardCancel" << "discardButton" << "CMessageBox" << "Don't save";
    QTest::newRow("cancel") << "saveDiscardCancel" << "cancelButton" << "CMessageBox" << "Cancel";
    QTest::newRow("quit") << "backgroundProcessing" << "quitWithoutSavingButton" << "CMessageBox" << "Quit";
    QTest::newRow("don't quit") << "backgroundProcessing" << "dontQuitButton" << "CMessageBox" << "Don't quit";
    QTest::newRow("host quit") << "hostWarning" << "quitButton" << "CHostWarningDlg" << "Quit";
    QTest::newRow("host try") << "hostWarning" << "tryButton" << "CHostWarningDlg" << "Continue";
    QTest::newRow("about") << "about" << "" << "CAboutDlg" << "Closed";
    QTest::newRow("about sorel") << "aboutSorel" << "" << "CAboutSorelDlg" << "Closed";
    QTest::newRow("folder") << "folder" << "" << "QFileDialog" << "Cancelled";
}

void TestShowcaseWindow::eachDialogAnswers()
{
    QFETCH(QString, entry);
    QFETCH(QString, dialogButton);
    QFETCH(QString, dialogClass);
    QFETCH(QString, answer);

    auto* button = m_window->findChild<QPushButton*>(entry + "Button");
    auto* label = m_window->findChild<QLabel*>(entry + "Answer");
    QVERIFY(button && label);
    label->clear();
    QString seenClass;
    answerNextModal(dialogButton, &seenClass);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(seenClass, dialogClass);
    QCOMPARE(label->text(), answer);
}

void TestShowcaseWindow::switchesLanguageLive_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("yes"); // the library's own message box button
    QTest::newRow("de") << "de" << "Ja";
    QTest::newRow("fr") << "fr" << "Oui";
    QTest::newRow("ja") << "ja" << QString::fromUtf8("\xe3\x81\xaf\xe3\x81\x84");
    QTest::newRow("zh-CN") << "zh-CN" << QString::fromUtf8("\xe6\x98\xaf");
}

void TestShowcaseWindow::switchesLanguageLive()
{
    QFETCH(QString, language);
    QFETCH(QString, yes);
    const int row = rowOfLanguage(language);
    const int english = rowOfLanguage("en");
    QVERIFY(row >= 0 && english >= 0);
    auto* combo = m_window->findChild<QComboBox*>("languageComboBox");
    QCOMPARE(combo->count(), CLanguageManager::instance()->langCount());
    QString seenClass;
    answerNextModal("yesButton", &seenClass);
    QTest::mouseClick(m_window->findChild<QPushButton*>("yesNoButton"), Qt::LeftButton); // an answer on show
    const QMap<QString, QString> inEnglish = shownTexts(m_window.get());

    combo->setCurrentIndex(row);
    QCOMPARE(CLanguageManager::instance()->currentLanguageAbbrv(), language);
    QCoreApplication::processEvents(); // the LanguageChange events are posted
    const QMap<QString, QString> translated = shownTexts(m_window.get());
    QCOMPARE(translated.keys(), inEnglish.keys());
    const QSet<QString> kept = keptAsTheyAre(language);
    QVERIFY2(kept.contains("SOAP"), "the gallery's catalogue was not found");
    for (auto it = inEnglish.cbegin(); it != inEnglish.cend(); ++it) {
        const QString now = translated.value(it.key());
        QVERIFY2(!now.contains(QRegularExpression("%\\d|%n")), qPrintable(it.key() + ": " + now));
        if (!it.value().isEmpty() && !kept.contains(it.value()))
            QVERIFY2(now != it.value(), qPrintable(it.key() + " stayed \"" + now + '"'));
    }
    QVERIFY(m_window->findChild<QLabel*>("languageLabel")->text().contains("(" + language + ")"));

    // The library's own texts follow too: the message box opened now speaks the language.
    QString yesText;
    UtilsDllTest::whenModalShown<QDialog>([&yesText](QDialog* dialog) {
        auto* button = dialog->findChild<QPushButton*>("yesButton");
        yesText = button->text();
        QTest::mouseClick(button, Qt::LeftButton);
    });
    QTest::mouseClick(m_window->findChild<QPushButton*>("yesNoButton"), Qt::LeftButton);
    QCOMPARE(yesText, yes);

    // Back to English, every text is what it was.
    combo->setCurrentIndex(english);
    QCoreApplication::processEvents();
    QCOMPARE(shownTexts(m_window.get()), inEnglish);
}

void TestShowcaseWindow::switchesTemporaryStoreAndBack()
{
    auto* store = m_window->findChild<QCheckBox*>("temporaryStoreCheckBox");
    auto* report = m_window->findChild<QPlainTextEdit*>("startupReport");
    QVERIFY(!CSettings().usingTemporarySettings());
    QVERIFY(backendInForce(report->toPlainText()).endsWith("system store"));

    store->setChecked(true);
    QVERIFY(CSettings().usingTemporarySettings());
    CSettings().setValue("showcase/probe", 42);
    QVERIFY(backendInForce(report->toPlainText()).endsWith("temporary store"));

    store->setChecked(false);
    QVERIFY(!CSettings().usingTemporarySettings());
    // What was written to the temporary store went with it.
    QVERIFY(!CSettings().contains("showcase/probe"));
    QVERIFY(backendInForce(report->toPlainText()).endsWith("system store"));
}

void TestShowcaseWindow::savesItsPictures()
{
    QTemporaryDir folder;
    const QStringList written = m_window->saveScreenshots(folder.path());
    QCOMPARE(written.size(), 1 + m_window->pages()->count());
    QImage gallery(written.first());
    QCOMPARE(gallery.size(), m_window->size() * m_window->devicePixelRatioF());
    // The product's look is dark: most of the gallery is a dark background.
    const QColor corner = gallery.pixelColor(gallery.width() - 3, gallery.height() - 3);
    QVERIFY2(corner.lightness() < 100, qPrintable(corner.name()));
    // Each page picture differs from the others.
    QVERIFY(QImage(written.at(1)) != QImage(written.at(2)));
}

void TestShowcaseWindow::drawingPage()
{
    for (int type = 0; type < 7; ++type) {
        auto* cursor = m_window->findChild<QLabel*>(QStringLiteral("cursor%1").arg(type));
        QVERIFY(cursor && !cursor->pixmap(Qt::ReturnByValue).isNull());
    }

    // Typing re-arms the debounced call: one showing after the pause, not one per key.
    auto* field = m_window->findChild<QLineEdit*>("debouncedField");
    auto* shown = m_window->findChild<QLabel*>("debouncedText");
    QTest::keyClicks(field, "abc");
    QCOMPARE(shown->text(), QString());
    QTRY_VERIFY_WITH_TIMEOUT(!shown->text().isEmpty(), 5000);
    QCOMPARE(shown->text(), QString("\"abc\" (shown 1 time(s))"));
}

void TestShowcaseWindow::compressesAndExtracts()
{
    auto* count = m_window->findChild<QSpinBox*>("fileCountSpinBox");
    auto* compress = m_window->findChild<QPushButton*>("compressButton");
    auto* extract = m_window->findChild<QPushButton*>("extractButton");
    auto* progress = m_window->findChild<QProgressBar*>("archiveProgress");
    auto* status = m_window->findChild<QLabel*>("archiveStatus");
    count->setValue(300);

    // The bar counts files, not time: it ends full at the set's size after each run.
    QTest::mouseClick(compress, Qt::LeftButton);
    QVERIFY(!compress->isEnabled() && !extract->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(compress->isEnabled(), 30000);
    QVERIFY2(status->text().startsWith("300 files compressed"), qPrintable(status->text()));
    QCOMPARE(progress->maximum(), 300);
    QCOMPARE(progress->value(), 300);

    QVERIFY(extract->isEnabled());
    count->setValue(7); // the archive, not the box, tells how many files come out
    QTest::mouseClick(extract, Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(extract->isEnabled() && status->text().contains("extracted"), 30000);
    QVERIFY2(status->text().startsWith("300 files extracted"), qPrintable(status->text()));
    QCOMPARE(progress->maximum(), 300);
    QCOMPARE(progress->value(), 300);
}

// The form against a real SOAP service: an answer, then a fault.
void TestShowcaseWindow::soapCallAgainstSpyne()
{
    // A service that is already running is named by its port (the Windows build's
    // run under Wine reaches the one started on the Linux side).
    int port = qEnvironmentVariableIntValue("UTILSDLL_SPYNE_PORT");
    QProcess spyne;
    if (port == 0) {
        spyne.start("/usr/bin/python3", {SPYNE_SERVER_SCRIPT});
        QVERIFY2(spyne.waitForStarted(10000), "cannot start /usr/bin/python3");
        QByteArray line;
        while (!line.contains('\n')) {
            QVERIFY2(spyne.waitForReadyRead(30000), "the spyne server did not report its port (python3-spyne?)");
            line += spyne.readAllStandardOutput();
        }
        QVERIFY(line.startsWith("PORT "));
        port = line.mid(5).trimmed().toInt();
    }
    auto field = [this](const char* name, const QString& text) { m_window->findChild<QLineEdit*>(name)->setText(text); };
    auto* host = m_window->findChild<QLineEdit*>("hostField");
    auto* form = qobject_cast<QFormLayout*>(host->parentWidget()->layout()->itemAt(0)->layout());
    QVERIFY(form && qobject_cast<QLabel*>(form->labelForField(host)));
    QCOMPARE(qobject_cast<QLabel*>(form->labelForField(host))->text(), QString("Host"));
    field("hostField", "127.0.0.1");
    m_window->findChild<QSpinBox*>("portSpinBox")->setValue(port);
    m_window->findChild<QCheckBox*>("httpsCheckBox")->setChecked(false);
    field("pathField", "/");
    field("namespaceField", "urn:vexa:interop");
    auto* faultLabel = m_window->findChild<QLabel*>("faultLabel");
    auto* response = m_window->findChild<QPlainTextEdit*>("responseEnvelope");
    auto call = [&](const QString& method, const QString& arguments) {
        field("actionField", method);
        field("methodField", method);
        field("argumentsField", arguments);
        QTest::mouseClick(m_window->findChild<QPushButton*>("sendButton"), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(faultLabel->text() != "Waiting for the answer...", 15000);
    };

    const QString greeting = QString::fromUtf8("Gr\xc3\xbc\xc3\x9f" "e");
    call("echoString", "text=" + greeting);
    QCOMPARE(faultLabel->text(), QString("No fault."));
    const QString request = m_window->findChild<QPlainTextEdit*>("requestEnvelope")->toPlainText();
    QVERIFY2(request.contains("echoString") && request.contains(greeting), qPrintable(request));
    QVERIFY2(response->toPlainText().contains("echoStringResponse") && response->toPlainText().contains(greeting),
             qPrintable(response->toPlainText()));

    // spyne sends its fault with status 500: the transport reports the HTTP error.
    call("failWith", "reason=lens unknown");
    QVERIFY2(faultLabel->text().startsWith("Fault: Network transport error (401)"), qPrintable(faultLabel->text()));
    if (spyne.state() != QProcess::NotRunning) {
        spyne.closeWriteChannel(); // the server ends when its input closes
        QVERIFY(spyne.waitForFinished(10000));
    }
}

UTILSDLL_TEST_MAIN_WITH(TestShowcaseWindow, QApplication)

#include "tst_showcasewindow.moc"
