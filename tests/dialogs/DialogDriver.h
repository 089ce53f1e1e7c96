#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

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

} // namespace UtilsDllTest
