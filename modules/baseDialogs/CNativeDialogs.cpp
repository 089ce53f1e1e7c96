#include "CNativeDialogs.h"

#include "Singleton.h"
#include "WindowsNativeSelectFolderDialog_p.h"

#include <QDir>
#include <QWidget>

// The export comes with the declaration in the header.
template class Singleton<VEXA_NAMESPACE::CNativeDialogs>;

namespace VEXA_NAMESPACE {

QString CNativeDialogs::getOpenFileName(QWidget* parent, const QString& caption, const QString& dir,
                                        const QString& filter, QString* selectedFilter, QFileDialog::Options)
{
    return QFileDialog::getOpenFileName(parent, caption, dir, filter, selectedFilter, QFileDialog::Options());
}

QStringList CNativeDialogs::getOpenFileNames(QWidget* parent, const QString& caption, const QString& dir,
                                             const QString& filter, QString* selectedFilter,
                                             QFileDialog::Options)
{
    return QFileDialog::getOpenFileNames(parent, caption, dir, filter, selectedFilter, QFileDialog::Options());
}

QString CNativeDialogs::getSaveFileName(QWidget* parent, const QString& caption, const QString& dir,
                                        const QString& filter, QString* selectedFilter, QFileDialog::Options)
{
    return QFileDialog::getSaveFileName(parent, caption, dir, filter, selectedFilter, QFileDialog::Options());
}

QString CNativeDialogs::getExistingDirectory(QWidget* parent, const QString& caption, const QString& dir,
                                             QFileDialog::Options)
{
    return QFileDialog::getExistingDirectory(parent, caption, dir, QFileDialog::ShowDirsOnly);
}

QString CNativeDialogs::getFileBrowserDirectory(QWidget* parent, const QString& caption, const QString& dir,
                                                const QString& filter, QFileDialog::Options)
{
    // "*.jpg *.tif" becomes "*.jpg;*.tif", the form of a file type list.
    QString patterns = filter;
    patterns.replace(QLatin1Char(' '), QLatin1Char(';'));
    // Both literals go to the dialog untranslated, as the product always had them.
    const std::wstring folder = VexaPlatform::runSelectFolderDialog(
        static_cast<std::uintptr_t>(parent->winId()), L"Select Folder", L"Image Files", patterns.toStdWString(),
        caption.toStdWString(), QDir::toNativeSeparators(dir).toStdWString());
    return QString::fromStdWString(folder);
}

void CNativeDialogs::setOpenFileName(const QString& fileName)
{
    m_openFileName = fileName;
}

void CNativeDialogs::setOpenFileNames(const QVariantList& fileNames)
{
    m_openFileNames.clear();
    for (const QVariant& fileName : fileNames)
        m_openFileNames.append(fileName.toString());
}

void CNativeDialogs::setSaveFileName(const QString& fileName)
{
    m_saveFileName = fileName;
}

void CNativeDialogs::setExistingDirectory(const QString& fileName)
{
    m_existingDirectory = fileName;
}

} // namespace VEXA_NAMESPACE
