#include "LanguageManager.h"

#include "Log.h"
#include "Settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTranslator>

#include <stdexcept>

namespace VEXA_NAMESPACE {

namespace {

const char* const LANGUAGE_KEY = "VexaAppLanguage";
const unsigned ENGLISH = 1033;
const char* const TRANSLATIONS_DIR = ":/translations/";

struct LanguageCode
{
    unsigned number;
    const char* abbreviation;
};

const LanguageCode LANGUAGE_TABLE[] = {
    {1033, "en"}, {1031, "de"}, {1036, "fr"}, {1041, "ja"}, {2052, "zh-CN"},
};

// Every catalogue carries its own identity; translators supply these two like any
// other message. The CLanguageTest pair is read by nothing, but catalogues keep it.
const char* const IDENTITY_MESSAGES[][2] = {
    QT_TRANSLATE_NOOP("CLanguageManager", "language name"),
    QT_TRANSLATE_NOOP("CLanguageManager", "language number"),
    QT_TRANSLATE_NOOP("CLanguageTest", "language name"),
    QT_TRANSLATE_NOOP("CLanguageTest", "language number"),
};

} // namespace

QSharedPointer<CLanguageManager> CLanguageManager::s_instance;

CLanguageManager::CLanguageManager() = default;

CLanguageManager::~CLanguageManager() = default;

CLanguageManager* CLanguageManager::instance()
{
    // No lock: the first call comes from the main thread before any other.
    if (!s_instance)
        s_instance.reset(new CLanguageManager);
    return s_instance.data();
}

bool CLanguageManager::modelIsBuilt() const
{
    return m_model.rowCount() > 0 || m_model.columnCount() > 0;
}

void CLanguageManager::loadLanguages()
{
    if (modelIsBuilt())
        return;
    Q_UNUSED(IDENTITY_MESSAGES);
    const QDir dir(TRANSLATIONS_DIR);
    QStringList names, numbers, files, abbreviations;
    for (const QString& entry : dir.entryList({QStringLiteral("*.qm")}, QDir::Files, QDir::NoSort)) {
        const QString path = dir.path() + '/' + entry;
        QTranslator translator;
        if (!translator.load(path))
            continue;
        const QString name = translator.translate("CLanguageManager", "language name", "", -1);
        const QString number = translator.translate("CLanguageManager", "language number", "", -1);
        // Qt's own catalogues carry no identity and so stay out of the model.
        if (name.isEmpty() || number.isEmpty())
            continue;
        const int start = entry.lastIndexOf(QLatin1String("vexa_")) + 5;
        names << name;
        numbers << number;
        files << path;
        abbreviations << entry.mid(start, entry.lastIndexOf('.') - start);
    }
    createLanguageModel(names, numbers, files, abbreviations);
}

void CLanguageManager::createLanguageModel(const QStringList& names, const QStringList& numbers,
                                           const QStringList& files, const QStringList& abbreviations)
{
    if (modelIsBuilt())
        return;
    // The abbreviations take no part in the check.
    if (names.size() != numbers.size() || names.size() != files.size())
        return;
    m_model.setColumnCount(4);
    m_model.setRowCount(names.size());
    fillColumn(0, names);
    fillColumn(1, numbers);
    fillColumn(2, files);
    fillColumn(3, abbreviations);
}

void CLanguageManager::fillColumn(int column, const QStringList& values)
{
    for (int row = 0; row < m_model.rowCount() && row < values.size(); ++row)
        m_model.setData(m_model.index(row, column), values.at(row), Qt::DisplayRole);
}

void CLanguageManager::installTranslator(QTranslator* translator, const QString& file)
{
    // A catalogue that does not load leaves the translator empty: texts stay in English.
    static_cast<void>(translator->load(file, QString(), QString(), QString()));
    QCoreApplication::installTranslator(translator);
    m_translator = translator;
}

void CLanguageManager::loadLanguageForApp()
{
    loadLanguages();
    const unsigned number = currentLanguageNumber();
    // No language of that number: nothing changes and the source texts show.
    const int row = rowOfNumber(number);
    if (row < 0)
        return;

    // Only the last translator installed is tracked and removed: the application
    // catalogue of a language with a toolkit catalogue stays installed beneath the
    // newer ones until the process ends. Intended.
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator);
        delete m_translator;
        m_translator = nullptr;
    }
    QCoreApplication* app = QCoreApplication::instance();
    installTranslator(new QTranslator(app), m_model.index(row, 2).data().toString());

    const QString abbreviation = m_model.index(row, 3).data().toString();
    const QString toolkitCatalogue = QStringLiteral(":/translations/qt_%1.qm").arg(abbreviation);
    if (QFile::exists(toolkitCatalogue))
        installTranslator(new QTranslator(app), toolkitCatalogue);

    m_loadedLanguageID = number;
    QLocale::setDefault(QLocale(abbreviation));
}

bool CLanguageManager::changeLanguage(int index)
{
    const unsigned number = getLangIdFromIndex(index);
    if (number == currentLanguageNumber())
        return false;
    // Stored first, and the signal goes out even when no catalogue matched.
    setCurrentLanguageNumber(number);
    loadLanguageForApp();
    emit languageChanged();
    return true;
}

QStandardItemModel* CLanguageManager::model()
{
    return &m_model;
}

int CLanguageManager::langCount() const
{
    return m_model.rowCount();
}

unsigned CLanguageManager::getLangIdFromIndex(int index) const
{
    return m_model.index(index, 1).data().toUInt();
}

int CLanguageManager::rowOfNumber(unsigned number) const
{
    const QString text = QString::number(number);
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (m_model.index(row, 1).data().toString() == text)
            return row;
    }
    return -1;
}

int CLanguageManager::getLanguageIndexFromID(unsigned id) const
{
    const int row = rowOfNumber(id);
    if (row < 0)
        LOG_E("Cannot find language with ID: " << id);
    return row;
}

int CLanguageManager::currentLanguageIndex() const
{
    return getLanguageIndexFromID(currentLanguageNumber());
}

QString CLanguageManager::currentLanguageAbbrv() const
{
    const int row = currentLanguageIndex();
    return row < 0 ? QString() : m_model.index(row, 3).data().toString();
}

QString CLanguageManager::settingsAbbrv() const
{
    try {
        return stringFromCodeLanguage(currentLanguageNumber());
    } catch (const std::exception& error) {
        LOG_D(error.what());
        return QString();
    }
}

unsigned CLanguageManager::loadedLanguageID() const
{
    return m_loadedLanguageID;
}

unsigned CLanguageManager::currentLanguageNumber()
{
    bool ok = false;
    // Not checked against the table: 0 or an unknown number comes back as it is.
    const unsigned number = CSettings().value(LANGUAGE_KEY, ENGLISH).toUInt(&ok);
    return ok ? number : ENGLISH;
}

void CLanguageManager::setCurrentLanguageNumber(unsigned number)
{
    CSettings().setValue(LANGUAGE_KEY, number);
}

QString CLanguageManager::stringFromCodeLanguage(unsigned number)
{
    for (const LanguageCode& code : LANGUAGE_TABLE) {
        if (code.number == number)
            return QString::fromLatin1(code.abbreviation);
    }
    throw std::invalid_argument("The argument " + std::to_string(number) + " does not refer to a valid language");
}

unsigned CLanguageManager::codeLanguageFromString(const QString& abbreviation)
{
    for (const LanguageCode& code : LANGUAGE_TABLE) {
        if (abbreviation == QLatin1String(code.abbreviation))
            return code.number;
    }
    // The words promise a default that does not happen: the exception is all.
    throw std::invalid_argument("The argument " + abbreviation.toStdString()
                                + " does not refer to a valid language, defaulting to English");
}

} // namespace VEXA_NAMESPACE
