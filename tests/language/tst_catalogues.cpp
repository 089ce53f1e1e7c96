#include "LanguageManager.h"
#include "TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>
#include <QXmlStreamReader>

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
    QList<CatalogueMessage> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = file.errorString();
        return messages;
    }
    QXmlStreamReader xml(&file);
    QString context;
    CatalogueMessage message;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement() && xml.name() == QLatin1String("message"))
            messages.append(message);
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("message")) {
            message = CatalogueMessage();
            message.context = context;
        } else if (xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            const QString type = xml.attributes().value(QLatin1String("type")).toString();
            message.unfinished = type == QLatin1String("unfinished") || type == QLatin1String("obsolete")
                                 || type == QLatin1String("vanished");
            message.translation = xml.readElementText();
        }
    }
    if (xml.hasError())
        *error = xml.errorString();
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

} // namespace

// The committed catalogues against themselves, and the compiled ones as the library
// embeds them: an entry left unfinished or a lost %1 shows up here, not on a user's screen.
class TestCatalogues : public QObject
{
    Q_OBJECT
private slots:
    void sourceCataloguesAreComplete_data();
    void sourceCataloguesAreComplete();
    void embeddedCataloguesTranslate_data();
    void embeddedCataloguesTranslate();
};

void TestCatalogues::sourceCataloguesAreComplete_data()
{
    QTest::addColumn<QString>("language");
    for (const char* language : s_languages)
        QTest::newRow(language) << QString::fromLatin1(language);
}

void TestCatalogues::sourceCataloguesAreComplete()
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
        QVERIFY2(matchesOf(message.translation, "<[^>]+>") == matchesOf(message.source, "<[^>]+>"), qPrintable(where + " does not keep its tags"));
    }
    QCOMPARE(keys, referenceKeys);
}

void TestCatalogues::embeddedCataloguesTranslate_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("context");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("english");

    // Texts whose translation differs from the source in every other language; an
    // empty English column means the English catalogue keeps the source text.
    const QList<QStringList> texts = {
        {"CMessageBox", "Close", ""},
        {"CMessageBox", "Yes", ""},
        {"CMessageBox", "No", ""},
        {"CMessageBox", "Rotate", ""},
        {"CMessageBox", "Cancel", ""},
        {"CMessageBox", "Don't save", ""},
        {"CMessageBox", "Save", ""},
        {"CMessageBox", "Don't quit", ""},
        {"CMessageBox", "Quit without saving", ""},
        {"QObject", "Error", ""},
        {"QObject", "Windows small space message on drive %1",
         s_product + " cannot start since there is not enough free space on disk %1.\n"
                     "Please remove unnecessary files from the disk and try again."},
        {"QObject", "Out of memory. Program will be closed.",
         s_product + " must close because there is not enough memory available.\n"
                     "Please close some other programs and try to start " + s_product + " again."},
        {"QObject", "Unhandled exception. Program will be closed.",
         s_product + " must close because of an unhandled exception."},
        {"QObject",
         "%1 has run out of memory. The application may now become unstable. Please close %2 and Photoshop, "
         "quit all other programs running, and try again.",
         ""},
        {"HostWarningDlg", "Open original image", ""},
        {"HostWarningDlg", "Your image cannot be modified.", "Your image cannot be modified with " + s_product + "."},
        {"HostWarningDlg", "Why cannot I save with this host application?",
         QString::fromUtf8("Why can\u2019t I save my ") + s_product + " edits in this host application?"},
        {"HostWarningDlg", "Unfortunately this plugin cannot be used as a plugin for this host application.",
         "Unfortunately, " + s_product
             + " cannot be used as a plugin for this host application. The plugin will change the dimensions of "
               "your images, which cannot be done within your current host application. \nYou can still try out "
               "the software and its features, but you will not be able to save your changes. \n"
             + s_product + " can also be used as a standalone application."},
        {"HostWarningDlg", "Quit", ""},
        {"HostWarningDlg", "Try", ""},
        {"CAboutDlg", "Visit our home page", ""},
        {"aboutDlg", "About %1", ""},
        {"aboutDlg", "Shift your perspective", ""},
        {"aboutSorelDlg", "About", ""},
    };
    for (const char* language : s_languages) {
        for (const QStringList& text : texts) {
            const QByteArray name = QByteArray(language) + ' ' + text[0].toUtf8() + ' ' + text[1].left(24).toUtf8();
            QTest::newRow(name.constData()) << QString::fromLatin1(language) << text[0] << text[1] << text[2];
        }
    }
}

void TestCatalogues::embeddedCataloguesTranslate()
{
    QFETCH(QString, language);
    QFETCH(QString, context);
    QFETCH(QString, source);
    QFETCH(QString, english);

    // The catalogues are resources of the library; naming one of its functions keeps
    // it linked in, so their registration has run by now.
    QCOMPARE(Vexa::CLanguageManager::stringFromCodeLanguage(1033), QStringLiteral("en"));
    QTranslator translator;
    QVERIFY(translator.load(":/translations/vexa_" + language + ".qm"));
    const QString translation = translator.translate(context.toUtf8().constData(), source.toUtf8().constData());
    if (language == QLatin1String("en")) {
        QCOMPARE(translation, english.isEmpty() ? source : english);
        return;
    }
    QVERIFY(!translation.isEmpty());
    QVERIFY2(translation != source, qPrintable(source + " is left in English"));
}

UTILSDLL_TEST_MAIN(TestCatalogues)

#include "tst_catalogues.moc"
