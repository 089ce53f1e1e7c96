#pragma once

#include <QEvent>
#include <QList>
#include <QObject>

namespace UtilsDllTest {

// Takes every event itself and remembers its type, without handing it to QObject:
// plain QEvents of any type, even those QObject would interpret, are safe to send.
class EventRecorder : public QObject
{
public:
    QList<int> received;

protected:
    bool event(QEvent* event) override
    {
        received << event->type();
        return true;
    }
};

} // namespace UtilsDllTest
