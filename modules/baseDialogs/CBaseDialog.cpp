#include "CBaseDialog.h"

#include "GuiUtils.h"

#include <QMouseEvent>

namespace {

// The event's positions in whole pixels, under the names each Qt version keeps.
QPoint localPoint(const QMouseEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->position().toPoint();
#else
    return event->pos();
#endif
}

QPoint globalPoint(const QMouseEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->globalPosition().toPoint();
#else
    return event->globalPos();
#endif
}

} // namespace

CBaseDialog::CBaseDialog(QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground, true);
    setWindowFlags(windowFlags()
                   & ~(Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint | Qt::WindowContextHelpButtonHint));
}

CBaseDialog::~CBaseDialog() = default;

QString CBaseDialog::getObjectName() const
{
    return objectName();
}

void CBaseDialog::sendNotification()
{
}

void CBaseDialog::setHeaderHeight(int height)
{
    m_headerHeight = height;
}

bool CBaseDialog::canUseInAATSignalService() const
{
    return true;
}

void CBaseDialog::mousePressEvent(QMouseEvent* event)
{
    QWidget::mousePressEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    // A press on the row numbered m_headerHeight still starts a drag.
    if (m_headerHeight != 0 && m_headerHeight < localPoint(event).y())
        return;
    m_dragging = true;
    m_dragOffset = globalPoint(event) - pos();
}

void CBaseDialog::mouseMoveEvent(QMouseEvent* event)
{
    // Held buttons are not checked: only the release ends a drag.
    if (m_dragging)
        move(globalPoint(event) - m_dragOffset);
    QDialog::mouseMoveEvent(event);
}

void CBaseDialog::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragging = false;
    QDialog::mouseReleaseEvent(event);
}

void CBaseDialog::showEvent(QShowEvent* event)
{
    showFirstTime(event);
}

void CBaseDialog::showFirstTime(QShowEvent* event)
{
    // Later shows skip even QDialog::showEvent: a dialog shown again stays where it was left.
    if (!m_firstShow)
        return;
    m_firstShow = false;
    QDialog::showEvent(event);
    adjustSize();
    Vexa::moveWindowToScreenCenter(this, parentWidget());
}

void CBaseDialog::moveToScreenCenter()
{
    adjustSize();
    Vexa::moveWindowToScreenCenter(this, parentWidget());
}
