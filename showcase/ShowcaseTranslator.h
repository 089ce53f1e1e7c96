#pragma once

#include <QObject>
#include <QString>
#include <QTranslator>

// The gallery's own catalogue. The library installs only its catalogues and Qt's, so
// the gallery keeps a third one in step with the language the library has in force.
class ShowcaseTranslator : public QObject
{
    Q_OBJECT
public:
    explicit ShowcaseTranslator(QObject* parent = nullptr);
    ~ShowcaseTranslator() override;

    // Installs the catalogue for 'abbreviation' ("de", "zh-CN", ...). English is the
    // source language and needs none; a language without a catalogue leaves English.
    // Returns whether a catalogue is installed.
    bool follow(const QString& abbreviation);

    static QString catalogueFor(const QString& abbreviation);

private:
    void uninstall();

    QTranslator m_translator;
    bool m_installed = false;
};
