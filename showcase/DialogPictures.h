#pragma once

#include <QStringList>

// Renders every dialog of the library, as the user sees it on its first show, to
// "<name>.png" files in 'folder'. Needs a QApplication. Returns the files written.
QStringList renderDialogPictures(const QString& folder);

// The folder chooser, opened on 'shownFolder', as "folder_chooser.png" in 'folder'.
// Kept apart from the pictures above: what it shows depends on the folder's contents.
// Returns the file written, or an empty string.
QString renderFolderChooserPicture(const QString& folder, const QString& shownFolder);
