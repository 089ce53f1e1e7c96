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

/// \file
/// \brief The native file dialogs.

namespace VEXA_NAMESPACE {

/// \brief The one place through which the product asks the user for files and folders.
///
/// Reached through Singleton::instance(). GUI thread only. The options arguments are
/// deliberately ignored: every dialog is the platform's own, whatever a caller asks
/// for. The other arguments mean what they mean for the QFileDialog function of the
/// same name.
class UTILSDLL_EXPORT CNativeDialogs : public QObject, public Singleton<CNativeDialogs>
{
    Q_OBJECT
    friend class Singleton<CNativeDialogs>;

public:
    /// One existing file to open; empty when the user cancels.
    QString getOpenFileName(QWidget* parent = nullptr, const QString& caption = QString(),
                            const QString& dir = QString(), const QString& filter = QString(),
                            QString* selectedFilter = nullptr, QFileDialog::Options options = {});
    /// Existing files to open; empty when the user cancels.
    QStringList getOpenFileNames(QWidget* parent = nullptr, const QString& caption = QString(),
                                 const QString& dir = QString(), const QString& filter = QString(),
                                 QString* selectedFilter = nullptr, QFileDialog::Options options = {});
    /// A file name to save under; empty when the user cancels.
    QString getSaveFileName(QWidget* parent = nullptr, const QString& caption = QString(),
                            const QString& dir = QString(), const QString& filter = QString(),
                            QString* selectedFilter = nullptr, QFileDialog::Options options = {});
    /// An existing folder; empty when the user cancels.
    QString getExistingDirectory(QWidget* parent = nullptr, const QString& caption = QString(),
                                 const QString& dir = QString(), QFileDialog::Options options = {});
    /// Lets the user choose a folder while seeing the files of \p filter ("*.jpg *.tif")
    /// in it; the answer is the folder being shown when "Select Folder" is clicked with
    /// the mouse, empty otherwise. \p parent must not be null.
    QString getFileBrowserDirectory(QWidget* parent, const QString& caption, const QString& dir,
                                    const QString& filter, QFileDialog::Options options = {});

    /// \brief Stores a predefined answer of getOpenFileName() for a scripted run.
    ///
    /// Nothing reads the predefined answers yet: every get... operation still shows a
    /// real dialog.
    Q_INVOKABLE void setOpenFileName(const QString& fileName);
    /// Stores a predefined answer of getOpenFileNames(); nothing reads it yet.
    Q_INVOKABLE void setOpenFileNames(const QVariantList& fileNames);
    /// Stores a predefined answer of getSaveFileName(); nothing reads it yet.
    Q_INVOKABLE void setSaveFileName(const QString& fileName);
    /// Stores a predefined answer of getExistingDirectory(); nothing reads it yet.
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
