#pragma once

#include "UtilsDllGlobal.h"

#include <QObject>
#include <QSharedPointer>
#include <QStandardItemModel>
#include <QString>
#include <QStringList>

class QTranslator;

namespace VEXA_NAMESPACE {

// The process-wide keeper of the interface language. The languages are those whose
// catalogues are compiled into the library; the choice is the stored Windows
// language number ("VexaAppLanguage"), and nothing else: English when none is stored.
// Main thread only, except currentLanguageNumber, settingsAbbrv and
// stringFromCodeLanguage.
class UTILSDLL_EXPORT CLanguageManager : public QObject
{
    Q_OBJECT
public:
    ~CLanguageManager() override;

    // Made on the first call, which must come from the main thread.
    static CLanguageManager* instance();

    // Builds the model once, then installs the catalogues of the stored language.
    void loadLanguageForApp();
    // Fills the model from the catalogues under ":/translations/"; only once.
    void loadLanguages();

    // Four columns per language: own name, number, catalogue path, abbreviation.
    QStandardItemModel* model();
    int langCount() const;
    // No range check: a row that does not exist yields 0.
    unsigned getLangIdFromIndex(int index) const;
    int getLanguageIndexFromID(unsigned id) const;
    int currentLanguageIndex() const;
    QString currentLanguageAbbrv() const;
    // From the fixed table, so it works before the model exists.
    QString settingsAbbrv() const;
    unsigned loadedLanguageID() const;

    static unsigned currentLanguageNumber();
    // Throws std::invalid_argument for a number outside the table.
    static QString stringFromCodeLanguage(unsigned number);

public Q_SLOTS:
    bool changeLanguage(int index);

Q_SIGNALS:
    void languageChanged();

protected:
    CLanguageManager();

    void createLanguageModel(const QStringList& names, const QStringList& numbers, const QStringList& files,
                             const QStringList& abbreviations);
    static void setCurrentLanguageNumber(unsigned number);
    // Throws std::invalid_argument for a text outside the table.
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
