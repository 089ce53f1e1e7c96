#include "LanguageManager.h"
#include "TestEnvironment.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

namespace {

const char* const s_languages[] = {"de", "en", "fr", "ja", "zh-CN"};
const QString s_product = QStringLiteral("Vexa Rectivo 3");

struct CatalogueMessage
{
    QString context;
    QString source;
    QString translation;
    bool unfinished = false;
};

QList<CatalogueMessage> readCatalogue(const QString& path, QString* error)
{
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file, error)) {
        *error = path + ": " + (error->isEmpty() ? file.errorString() : *error);
        return {};
    }
    QList<CatalogueMessage> messages;
    const QDomNodeList nodes = document.elementsByTagName("message");
    for (int i = 0; i < nodes.size(); ++i) {
        const QDomElement message = nodes.at(i).toElement();
        const QDomElement translation = message.firstChildElement("translation");
        const QString type = translation.attribute("type");
        messages.append({message.parentNode().firstChildElement("name").text(), message.firstChildElement("source").text(),
                         translation.text(), type == "unfinished" || type == "obsolete" || type == "vanished"});
    }
    return messages;
}

QStringList matchesOf(const QString& text, const char* pattern)
{
    QStringList found;
    QRegularExpressionMatchIterator it = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
    while (it.hasNext())
        found.append(it.next().captured());
    return found;
}

// Sorted, so "%2 ... %1" and "%1 ... %2" compare equal: a translation may reorder them.
QStringList placeholders(const QString& text)
{
    QStringList found = matchesOf(text, "%\\d+");
    found.sort();
    return found;
}

QString key(const CatalogueMessage& message) { return message.context + QLatin1Char('|') + message.source; }

// Dialog texts that every other language must translate; the English catalogue keeps them.
const QList<QPair<const char*, QStringList>> s_translatedTexts = {
    {"CMessageBox", {"Close", "Yes", "No", "Rotate", "Cancel", "Don't save", "Save", "Don't quit", "Quit without saving"}},
    {"QObject", {"Error", "%1 has run out of memory. The application may now become unstable. Please close %2 and "
                          "Photoshop, quit all other programs running, and try again."}},
    {"HostWarningDlg", {"Open original image", "Quit", "Try"}},
    {"CAboutDlg", {"Visit our home page"}},
    {"aboutDlg", {"About %1", "Shift your perspective"}},
    {"aboutSorelDlg", {"About"}},
};

// Sources that are keys: the English catalogue holds the real wording.
const QList<QStringList> s_keyedTexts = {
    {"QObject", "Windows small space message on drive %1",
     s_product + " cannot start since there is not enough free space on disk %1.\n"
                 "Please remove unnecessary files from the disk and try again."},
    {"QObject", "Out of memory. Program will be closed.",
     s_product + " must close because there is not enough memory available.\n"
                 "Please close some other programs and try to start " + s_product + " again."},
    {"QObject", "Unhandled exception. Program will be closed.", s_product + " must close because of an unhandled exception."},
    {"HostWarningDlg", "Your image cannot be modified.", "Your image cannot be modified with " + s_product + "."},
    {"HostWarningDlg", "Why cannot I save with this host application?",
     QString::fromUtf8("Why can\u2019t I save my ") + s_product + " edits in this host application?"},
    {"HostWarningDlg", "Unfortunately this plugin cannot be used as a plugin for this host application.",
     "Unfortunately, " + s_product
         + " cannot be used as a plugin for this host application. The plugin will change the dimensions of "
           "your images, which cannot be done within your current host application. \nYou can still try out "
           "the software and its features, but you will not be able to save your changes. \n"
         + s_product + " can also be used as a standalone application."},
};

} // namespace

// The committed catalogues against themselves, and the compiled ones as the library
// embeds them: an entry left unfinished or a lost %1 shows up here, not on a user's screen.
class TestCatalogues : public QObject
{
    Q_OBJECT
private slots:
    void sourceCataloguesAreComplete_data() { addLanguageRows(); }
    void sourceCataloguesAreComplete()
    {
        QFETCH(QString, language);
        const QDir folder(QStringLiteral(TRANSLATION_SOURCE_DIR));
        QString error;
        const QList<CatalogueMessage> reference = readCatalogue(folder.filePath("vexa_en.ts"), &error);
        const QList<CatalogueMessage> messages = readCatalogue(folder.filePath("vexa_" + language + ".ts"), &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(!messages.isEmpty());

        QSet<QString> referenceKeys;
        for (const CatalogueMessage& message : reference)
            referenceKeys.insert(key(message));
        QSet<QString> keys;
        for (const CatalogueMessage& message : messages) {
            const QString where = language + ": " + message.context + " / " + message.source;
            keys.insert(key(message));
            QVERIFY2(!message.unfinished, qPrintable(where + " is not finished"));
            QVERIFY2(!message.translation.trimmed().isEmpty(), qPrintable(where + " has no translation"));
            QVERIFY2(placeholders(message.translation) == placeholders(message.source),
                     qPrintable(where + " does not keep its placeholders"));
            QVERIFY2(matchesOf(message.translation, "<[^>]+>") == matchesOf(message.source, "<[^>]+>"),
                     qPrintable(where + " does not keep its tags"));
        }
        QCOMPARE(keys, referenceKeys);
    }

    void embeddedCataloguesTranslate_data() { addLanguageRows(); }
    void embeddedCataloguesTranslate()
    {
        QFETCH(QString, language);
        // Naming a library function keeps it linked in, so its resources are registered by now.
        QCOMPARE(Vexa::CLanguageManager::stringFromCodeLanguage(1033), QStringLiteral("en"));
        QTranslator translator;
        QVERIFY(translator.load(":/translations/vexa_" + language + ".qm"));
        const bool english = language == QLatin1String("en");
        QList<QStringList> texts = s_keyedTexts;
        for (const auto& context : s_translatedTexts)
            for (const QString& source : context.second)
                texts.append({context.first, source, source});
        for (const QStringList& text : texts) {
            const QString translation = translator.translate(text[0].toUtf8().constData(), text[1].toUtf8().constData());
            if (english)
                QCOMPARE(translation, text[2]);
            else
                QVERIFY2(!translation.isEmpty() && translation != text[1], qPrintable(text[1] + " is left in English"));
        }
    }

private:
    static void addLanguageRows()
    {
        QTest::addColumn<QString>("language");
        for (const char* language : s_languages)
            QTest::newRow(language) << QString::fromLatin1(language);
    }
};

UTILSDLL_TEST_MAIN(TestCatalogues)
#include "tst_catalogues.moc"
