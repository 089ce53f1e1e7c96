#pragma once

#include "UtilsDllGlobal.h"

#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

class QApplication;
class QWidget;

/// \file
/// \brief What an executable or plug-in module calls to dress its application.
///
/// Style sheets, fonts and icon from the library's resources, Qt's plug-in folder, the
/// crash sender, and the size texts shown to the user. The functions that touch the
/// application or widgets belong on the GUI thread.
namespace VEXA_NAMESPACE {

/// \brief Applies the style sheet files \p files to \p app as one text.
///
/// Concatenates the files that can be read, in order and with nothing in between, and
/// applies the text once; unreadable and empty names are skipped.
/// \return the files that were read; empty, with an ASSERT line, when \p app is null
/// or \p files is empty.
UTILSDLL_EXPORT QStringList setAppStyleSheet(const QStringList& files, QApplication* app);
/// \brief Applies the product's style sheets to \p app.
///
/// \p mainSheet first (empty stands for ":/qss/custom.qss"), then the slider,
/// settings, message box and window sheets of the resources, the later overriding the
/// earlier.
UTILSDLL_EXPORT void setPredefinedAppStyleSheet(const QString& mainSheet, QApplication* app);
/// Sets the product's logo, in all its sizes, as the application's window icon;
/// false when the resources hold none of them.
UTILSDLL_EXPORT bool loadAppLogoIcon();
/// Adds the product's fonts from the resources to the application's font database.
UTILSDLL_EXPORT void loadFonts();
/// Runs the program "CrashSender" beside the application, with no arguments, and
/// blocks until it has ended.
UTILSDLL_EXPORT void startCrashSender();
/// \brief The folder in which Qt looks for its plug-ins.
///
/// The application's folder, or with \p inHostPlugin the folder of the connector
/// module inside the host. The first call with a non-empty answer decides for the
/// whole process, whatever later callers pass. Any thread may call it.
UTILSDLL_EXPORT QString getQtPluginsDir(bool inHostPlugin);
/// \brief An image size for the user, such as "6000 x 4000 px".
///
/// In the unit stored under IMAGE_SIZE_UNITS_KEY: 0 pixels, 1 inches (two decimals),
/// 2 centimetres (one decimal), 3 whole millimetres, converted at the physical
/// resolution of the primary screen.
UTILSDLL_EXPORT QString sizeToString(const QSize& size);
/// \brief A file size for the user: bytes, or kilobytes or megabytes with one decimal.
///
/// A unit is used only above it: exactly 1024 bytes is still shown in bytes.
UTILSDLL_EXPORT QString fileSizeToString(qint64 bytes);
/// Enables or greys out the close item of the system menu of the native window
/// \p windowHandle; does nothing where the platform has no such menu.
UTILSDLL_EXPORT void enableWindowCloseButton(quintptr windowHandle, bool enable);
/// \brief Makes \p widget notice where the pointer is, after a change under it.
///
/// Sends Leave and Enter (Leave only when the pointer is outside the widget), nudges
/// the pointer by one pixel and back, and for a menu moves its highlight to the item
/// under the pointer. Does nothing without an active window or while the application
/// starts.
UTILSDLL_EXPORT void flickHoverEvent(QWidget* widget);
/// Sends \p widget a mouse move without buttons to the global position \p globalPos.
UTILSDLL_EXPORT void synthesizeMouseEvent(QWidget* widget, const QPoint& globalPos);

} // namespace VEXA_NAMESPACE
