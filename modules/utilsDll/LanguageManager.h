#pragma once

#include "UtilsDllGlobal.h"

#include <QObject>
#include <QSharedPointer>
#include <QStandardItemModel>
#include <QString>
#include <QStringList>

class QTranslator;

/// \file
/// \brief The language manager.

namespace VEXA_NAMESPACE {

/// \brief The process-wide keeper of the interface language.
///
/// The languages are those whose catalogues are compiled into the library; the choice
/// is the stored Windows language number ("VexaAppLanguage", 1033 English, 1031
/// German, 1036 French, 1041 Japanese, 2052 Simplified Chinese...), and nothing else:
/// English when none is stored. Main thread only, except currentLanguageNumber(),
/// settingsAbbrv() and stringFromCodeLanguage().
class UTILSDLL_EXPORT CLanguageManager : public QObject
{
    Q_OBJECT
public:
    /// Removes nothing: the installed catalogues stay with the application.
    ~CLanguageManager() override;

    /// The one manager, made on the first call, which must come from the main thread.
    static CLanguageManager* instance();

    /// \brief Builds the model once, then installs the catalogues of the stored language.
    ///
    /// Installs the library's catalogue and, where there is one, Qt's own for that
    /// language, and sets the default QLocale. Only the last catalogue installed is
    /// removed on the next change, so Qt's catalogue of an earlier language may stay
    /// beneath. A stored number that is not in the model changes nothing.
    void loadLanguageForApp();
    /// Fills the model from the catalogues under ":/translations/"; only once.
    void loadLanguages();

    /// The languages, one row each, in four columns: own name, number, catalogue path,
    /// abbreviation. Owned by the manager.
    QStandardItemModel* model();
    /// The number of rows of model().
    int langCount() const;
    /// The language number of model() row \p index. No range check: a row that does
    /// not exist yields 0.
    unsigned getLangIdFromIndex(int index) const;
    /// The model() row of the language number \p id, or -1 (with a log line).
    int getLanguageIndexFromID(unsigned id) const;
    /// The model() row of the stored language, or -1.
    int currentLanguageIndex() const;
    /// The abbreviation of the stored language ("de", "zh-CN"), empty when it is not in
    /// the model.
    QString currentLanguageAbbrv() const;
    /// The abbreviation of the stored language from the fixed table, so it works before
    /// the model exists; empty for a number outside the table.
    QString settingsAbbrv() const;
    /// The number of the language whose catalogues are installed; 0xFFFFFFFF before any.
    unsigned loadedLanguageID() const;

    /// The stored language number, 1033 (English) when none is stored. Not checked
    /// against the table: an unknown number comes back as it is.
    static unsigned currentLanguageNumber();
    /// The abbreviation of the language \p number.
    /// \throws std::invalid_argument for a number outside the table.
    static QString stringFromCodeLanguage(unsigned number);

public Q_SLOTS:
    /// \brief Stores the language of model() row \p index and installs its catalogues.
    ///
    /// \return false, changing nothing, when that language is already the stored one;
    /// otherwise true, after languageChanged() went out (also when no catalogue matched).
    bool changeLanguage(int index);

Q_SIGNALS:
    /// Sent by changeLanguage() once the new catalogues are installed; widgets
    /// retranslate their texts on it.
    void languageChanged();

protected:
    /// Only instance() makes the manager.
    CLanguageManager();

    /// Fills model() with one row per language from four parallel lists.
    void createLanguageModel(const QStringList& names, const QStringList& numbers, const QStringList& files,
                             const QStringList& abbreviations);
    /// Stores \p number as the language, without installing anything.
    static void setCurrentLanguageNumber(unsigned number);
    /// The language number of \p abbreviation.
    /// \throws std::invalid_argument for a text outside the table.
    static unsigned codeLanguageFromString(const QString& abbreviation);

private:
    bool modelIsBuilt() const;
    int rowOfNumber(unsigned number) const;
    void fillColumn(int column, const QStringList& values);
    void installTranslator(QTranslator* translator, const QString& file);

    QStandardItemModel m_model;
    QTranslator* m_translator = nullptr;
    quint32 m_loadedLanguageID = 0xFFFFFFFF;

    static QSharedPointer<CLanguageManager> s_instance;
};

} // namespace VEXA_NAMESPACE
