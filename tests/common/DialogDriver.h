#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace UtilsDllTest {

// Runs 'action' on the modal dialog of class T once it is on show and active, from the
// event loop of its exec(). The action stands in for the user.
template <class T>
void whenModalShown(std::function<void(T*)> action)
{
    auto* timer = new QTimer;
    timer->setInterval(5);
    QObject::connect(timer, &QTimer::timeout, [timer, action]() {
        T* dialog = qobject_cast<T*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || !dialog->isActiveWindow())
            return;
        timer->stop();
        timer->deleteLater();
        action(dialog);
    });
    timer->start();
}

#ifdef Q_OS_WIN
// The system's own dialog (a message box, a file dialog) that this thread shows, or null.
// Its modal loop still runs Qt's timers, which is how a test reaches it.
inline HWND shownSystemDialog()
{
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), [](HWND window, LPARAM found) {
        wchar_t className[8] = {};
        GetClassNameW(window, className, 8);
        if (!IsWindowVisible(window) || lstrcmpW(className, L"#32770") != 0)
            return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }, reinterpret_cast<LPARAM>(&dialog));
    return dialog;
}
#endif

} // namespace UtilsDllTest
