#include "../WindowMenu_p.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace VexaPlatform {

void enableWindowCloseItem(std::uintptr_t windowHandle, bool enable)
{
    if (!QGuiApplication::instance())
        return;
    for (QWindow* window : QGuiApplication::allWindows()) {
        if (window->handle() == nullptr || window->winId() != static_cast<WId>(windowHandle))
            continue;
        // The window manager honours the close hint only among customised hints. The
        // flags already hold the hints that Qt gave the window for its type, so only
        // the customise hint is added: no other button appears or goes.
        Qt::WindowFlags flags = window->flags() | Qt::CustomizeWindowHint;
        flags.setFlag(Qt::WindowCloseButtonHint, enable);
        // The widget of the window keeps the same flags, without being hidden and
        // created again as setWindowFlags would do.
        if (QWidget* widget = QWidget::find(window->winId()))
            widget->overrideWindowFlags(flags);
        window->setFlags(flags);
        return;
    }
}

} // namespace VexaPlatform
