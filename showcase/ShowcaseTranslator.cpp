#include "ShowcaseTranslator.h"

#include <QCoreApplication>

ShowcaseTranslator::ShowcaseTranslator(QObject* parent)
    : QObject(parent)
{
}

ShowcaseTranslator::~ShowcaseTranslator()
{
    uninstall();
}

QString ShowcaseTranslator::catalogueFor(const QString& abbreviation)
{
    return QStringLiteral(":/showcase/translations/showcase_%1.qm").arg(abbreviation);
}

bool ShowcaseTranslator::follow(const QString& abbreviation)
{
    uninstall();
    if (!m_translator.load(catalogueFor(abbreviation)))
        return false;
    // Installing sends every widget a LanguageChange event, which retranslates it.
    m_installed = QCoreApplication::installTranslator(&m_translator);
    return m_installed;
}

void ShowcaseTranslator::uninstall()
{
    if (m_installed)
        QCoreApplication::removeTranslator(&m_translator);
    m_installed = false;
}
