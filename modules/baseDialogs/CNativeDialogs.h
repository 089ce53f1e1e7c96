#pragma once

#include "Singleton.h"
#include "UtilsDllGlobal.h"

#include <QFileDialog>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>

namespace VEXA_NAMESPACE {
class CNativeDialogs;
}

// Declared before the class derives from it, so that the export applies to the one
// instantiation that the library holds.
extern template class UTILSDLL_EXPORT Singleton<VEXA_NAMESPACE::CNativeDialogs>;

namespace VEXA_NAMESPACE {

// The one place through which the product asks the user for files and folders.
// GUI thread only. The options arguments are deliberately ignored: every dialog is
// the platform's own, whatever a caller asks for.
class UTILSDLL_EXPORT CNativeDialogs : public QObject, public Singleton<CNativeDialogs>
{
    Q_OBJECT
    friend class Singleton<CNativeDialogs>;

public:
    QString getOpenFileName(QWidget* parent = nullptr, const QString& caption = QString(),
                            const QString& dir = QString(), const QString& filter = QString(),
                            QString* selectedFilter = nullptr, QFileDialog::Options options = {});
    QStringList getOpenFileNames(QWidget* parent = nullptr, const QString& caption = QString(),
                                 const QString& dir = QString(), const QString& filter = QString(),
                                 QString* selectedFilter = nullptr, QFileDialog::Options options = {});
    QString getSaveFileName(QWidget* parent = nullptr, const QString& caption = QString(),
                            const QString& dir = QString(), const QString& filter = QString(),
                            QString* selectedFilter = nullptr, QFileDialog::Options options = {});
    QString getExistingDirectory(QWidget* parent = nullptr, const QString& caption = QString(),
                                 const QString& dir = QString(), QFileDialog::Options options = {});
    // Lets the user choose a folder while seeing the files of filter ("*.jpg *.tif")
    // in it; the answer is the folder being shown when "Select Folder" is clicked,
    // empty otherwise. parent must not be null.
    QString getFileBrowserDirectory(QWidget* parent, const QString& caption, const QString& dir,
                                    const QString& filter, QFileDialog::Options options = {});

    // Predefined answers for a scripted run. Nothing reads them yet: every get...
    // operation still shows a real dialog.
    Q_INVOKABLE void setOpenFileName(const QString& fileName);
    Q_INVOKABLE void setOpenFileNames(const QVariantList& fileNames);
    Q_INVOKABLE void setSaveFileName(const QString& fileName);
    Q_INVOKABLE void setExistingDirectory(const QString& fileName);

private:
    CNativeDialogs() = default;
    ~CNativeDialogs() override = default;

    QString m_openFileName;
    QString m_saveFileName;
    QString m_existingDirectory;
    QStringList m_openFileNames;
};

} // namespace VEXA_NAMESPACE
