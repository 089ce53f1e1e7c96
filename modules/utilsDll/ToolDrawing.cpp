#include "ToolDrawing.h"

#include "Log.h"

#include <QLineF>
#include <QPainter>
#include <QTransform>

#include <cmath>

namespace {

// The misspelt folder word is the resources' own.
const char* const s_cursorFiles[] = {
    ":/icons/cursors/cusors_arrow_diagonal_left.svg", ":/icons/cursors/cusors_arrow_diagonal_right.svg",
    ":/icons/cursors/cusors_arrow_horizontal.svg",    ":/icons/cursors/cusors_arrow_square.svg",
    ":/icons/cursors/cusors_arrow_vertical.svg",      ":/icons/cursors/cusors_rotation_top.svg",
    ":/icons/cursors/cusors_rotation_bottom.svg",
};

// Replaces the end outside clipRect by the first bounded crossing with an edge,
// tested left, top, right, bottom. Returns false when the line is to be dropped.
bool clipToolLine(QPointF& a, QPointF& b, const QRectF& clipRect)
{
    const bool aInside = clipRect.contains(a);
    const bool bInside = clipRect.contains(b);
    // Deliberate: a line crossing the rectangle with both ends outside is not drawn.
    if (!aInside && !bInside)
        return false;
    if (aInside && bInside)
        return true;
    const QLineF edges[] = {
        QLineF(clipRect.topLeft(), clipRect.bottomLeft()), QLineF(clipRect.topLeft(), clipRect.topRight()),
        QLineF(clipRect.topRight(), clipRect.bottomRight()), QLineF(clipRect.bottomLeft(), clipRect.bottomRight())};
    const QLineF line(a, b);
    for (const QLineF& edge : edges) {
        QPointF crossing;
        if (line.intersects(edge, &crossing) != QLineF::BoundedIntersection)
            continue;
        QPointF& outside = aInside ? b : a;
        ASSERT(!clipRect.contains(outside));
        outside = crossing;
        break;
    }
    return true;
}

} // namespace

void drawToolLine(const QPointF& start, const QPointF& end, const QPixmap& pixmap, bool stretch, QPainter* painter,
                  const QRectF& clipRect)
{
    if (!painter || pixmap.isNull() || pixmap.width() <= 0)
        return;
    QPointF a = start;
    QPointF b = end;
    if (clipRect.width() > 0 && clipRect.height() > 0 && !clipToolLine(a, b, clipRect))
        return;

    const qreal angle = QLineF(a, b).angle();
    // Lines always run left to right or upward, so the pixmap is never upside down.
    if (angle > 135 && angle < 315) {
        drawToolLine(b, a, pixmap, stretch, painter, clipRect);
        return;
    }
    // Slanted lines move up by half the pixmap, vertically on screen, not across the line.
    if (std::fmod(angle, 90.0) != 0) {
        a.ry() -= pixmap.height() * 0.5;
        b.ry() -= pixmap.height() * 0.5;
    }

    const QTransform savedTransform = painter->transform();
    const QPainter::RenderHints savedHints = painter->renderHints();
    QTransform transform;
    transform.translate(a.toPoint().x(), a.toPoint().y());
    transform.rotate(-angle, Qt::ZAxis);
    painter->setTransform(transform, false);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);

    const double length = QLineF(a, b).length();
    if (stretch) {
        painter->drawPixmap(QRectF(0, 0, length, pixmap.height()).toRect(), pixmap, pixmap.rect());
    } else {
        // The last tile is not cut and may overshoot the end by up to one width.
        const int n = qRound(length);
        for (int x = 0; x <= n; x += pixmap.width())
            painter->drawPixmap(x, 0, pixmap);
    }

    painter->setTransform(savedTransform, false);
    // Only adds hints: SmoothPixmapTransform stays on after the call. Kept as it is.
    painter->setRenderHints(savedHints, true);
}

QPixmap toolCursorPixmap(ToolCursorType type)
{
    if (type < ToolCursorDiagonalLeft || type > ToolCursorRotationBottom) {
        ASSERT_X(false, "Bug!!!");
        return QPixmap();
    }
    return QIcon(s_cursorFiles[type]).pixmap(QSize(23, 24), QIcon::Normal, QIcon::Off);
}

QSize sizeOfIcon(const QIcon& icon, QIcon::Mode mode, QIcon::State state)
{
    QSize largest(0, 0);
    for (const QSize& size : icon.availableSizes(mode, state))
        largest = largest.expandedTo(size);
    return largest;
}

void paintIcon(QPainter* painter, const QIcon& icon, const QRect& rect, Qt::AspectRatioMode aspectMode,
               QIcon::Mode mode, QIcon::State state)
{
    if (!painter || icon.isNull())
        return;
    if (aspectMode == Qt::IgnoreAspectRatio) {
        icon.paint(painter, rect, Qt::AlignCenter, mode, state);
        return;
    }
    QRect target(QPoint(0, 0), sizeOfIcon(icon, mode, state).scaled(rect.size(), aspectMode));
    target.moveCenter(rect.center());
    icon.paint(painter, target, Qt::AlignCenter, mode, state);
}
