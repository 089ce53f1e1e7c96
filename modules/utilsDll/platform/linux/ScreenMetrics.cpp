#include "../ScreenMetrics_p.h"

#include <QGuiApplication>
#include <QScreen>

namespace VexaPlatform {

int logicalScreenDpiX()
{
    // Without a GUI application there is no screen to ask; 96 is the unscaled desktop.
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return 96;
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? qRound(screen->logicalDotsPerInchX()) : 96;
}

} // namespace VexaPlatform
