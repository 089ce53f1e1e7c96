#pragma once

#include <QStringList>

// Renders every dialog of the library, as the user sees it on its first show, to
// "<name>.png" files in 'folder'. Needs a QApplication. Returns the files written.
QStringList renderDialogPictures(const QString& folder);
