#include "../WindowMenu.h"

#include <QGuiApplication>
#include <QWindow>

namespace VexaPlatform {

void enableWindowCloseItem(std::uintptr_t windowHandle, bool enable)
{
    if (!QGuiApplication::instance())
        return;
    for (QWindow* window : QGuiApplication::allWindows()) {
        if (window->handle() == nullptr || window->winId() != static_cast<WId>(windowHandle))
            continue;
        // The window manager honours the close hint only among customised hints;
        // a window that had none yet keeps the decorations it had by default.
        Qt::WindowFlags flags = window->flags();
        if (!flags.testFlag(Qt::CustomizeWindowHint))
            flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
                | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;
        flags.setFlag(Qt::WindowCloseButtonHint, enable);
        window->setFlags(flags);
        return;
    }
}

} // namespace VexaPlatform
