#pragma once

#include "UtilsDllGlobal.h"

#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

class QApplication;
class QWidget;

// What an executable or plug-in module calls to dress its application: style
// sheets, fonts and icon from the library's resources, Qt's plug-in folder, the
// crash sender, and the size texts shown to the user.
namespace VEXA_NAMESPACE {

// Concatenates the files that can be read, in order and with nothing in between,
// and applies the text once. Returns the files that were read.
UTILSDLL_EXPORT QStringList setAppStyleSheet(const QStringList& files, QApplication* app);
// The product's sheets, the later overriding the earlier; an empty mainSheet
// stands for ":/qss/custom.qss".
UTILSDLL_EXPORT void setPredefinedAppStyleSheet(const QString& mainSheet, QApplication* app);
UTILSDLL_EXPORT bool loadAppLogoIcon();
UTILSDLL_EXPORT void loadFonts();
// Blocks until "CrashSender" has ended.
UTILSDLL_EXPORT void startCrashSender();
// The first successful call decides for the whole process, whatever later callers pass.
UTILSDLL_EXPORT QString getQtPluginsDir(bool inHostPlugin);
UTILSDLL_EXPORT QString sizeToString(const QSize& size);
UTILSDLL_EXPORT QString fileSizeToString(qint64 bytes);
UTILSDLL_EXPORT void enableWindowCloseButton(quintptr windowHandle, bool enable);
UTILSDLL_EXPORT void flickHoverEvent(QWidget* widget);
UTILSDLL_EXPORT void synthesizeMouseEvent(QWidget* widget, const QPoint& globalPos);

} // namespace VEXA_NAMESPACE
