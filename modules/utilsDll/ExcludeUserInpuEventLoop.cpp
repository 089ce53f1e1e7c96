#include "ExcludeUserInpuEventLoop.h"

#include "DelayedCall.h"

#include <QEvent>
#include <QThread>

#include <memory>

CExcludeUserInpuEventsFilter::CExcludeUserInpuEventsFilter(QObject* object)
    : QObject(nullptr)
{
    if (!object)
        return;
    if (object->thread() == thread() && thread() == QThread::currentThread()) {
        setParent(object);
        object->installEventFilter(this);
        return;
    }
    // A wait on a worker thread asks for the application object: expected, stay quiet.
    if (object == QCoreApplication::instance())
        return;
    qWarning("Logic error: can't install event filter in different thread");
}

CExcludeUserInpuEventsFilter::~CExcludeUserInpuEventsFilter()
{
    if (parent())
        parent()->removeEventFilter(this);
}

namespace {

bool isExcludedEventType(int type)
{
    // Exact on purpose, gaps included: Enter is swallowed while Leave passes, and the
    // pointer's moves, the wheel, hover and tablet events still come through.
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Enter:
    case QEvent::Close:
    case QEvent::ShortcutOverride:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
    case QEvent::Shortcut:
    case QEvent::GraphicsSceneMouseMove:
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseRelease:
    case QEvent::GraphicsSceneMouseDoubleClick:
    case QEvent::GraphicsSceneContextMenu:
    case QEvent::GraphicsSceneDragEnter:
    case QEvent::GraphicsSceneDragMove:
    case QEvent::GraphicsSceneDragLeave:
    case QEvent::GraphicsSceneDrop:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::NonClientAreaMouseButtonRelease:
    case QEvent::NonClientAreaMouseButtonDblClick:
        return true;
    default:
        return false;
    }
}

} // namespace

bool CExcludeUserInpuEventsFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (watched && event && isExcludedEventType(event->type())) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

CExcludeUserInpuEventLoop::CExcludeUserInpuEventLoop(QObject* filteredObject, QObject* parent)
    : QObject(parent)
    , m_filteredObject(filteredObject)
{
}

bool CExcludeUserInpuEventLoop::isRunning() const
{
    return m_loop.isRunning();
}

int CExcludeUserInpuEventLoop::exec(int nQuitTimeout)
{
    if (isRunning())
        return -1;
    std::unique_ptr<CExcludeUserInpuEventsFilter> filter;
    if (m_filteredObject)
        filter.reset(new CExcludeUserInpuEventsFilter(m_filteredObject.data()));
    if (nQuitTimeout != 0)
        CDelayedCall::invoke(nQuitTimeout, this, "quit", true);
    return m_loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void CExcludeUserInpuEventLoop::quit()
{
    exit(0);
}

void CExcludeUserInpuEventLoop::failedQuit()
{
    exit(1);
}

void CExcludeUserInpuEventLoop::exit(int returnCode)
{
    if (isRunning())
        m_loop.exit(returnCode);
}
