#include "ToolDrawing.h"

#include "Log.h"

#include <QLineF>
#include <QPainter>
#include <QTransform>

#include <algorithm>
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

// The run of tiles, as indices from 0 to lastTile, that can touch what the painter shows:
// its device, when that is a raster of known size, and its clip. With the line's
// transform set, everything else is cut away by the painter anyway, so skipping it
// leaves the picture as it was and keeps a huge line as cheap as its visible part. On a
// device of no known size and with no clip (a picture being recorded), all are drawn.
struct TileRange
{
    qint64 first = 0;
    qint64 last = -1; // empty when last < first
};

bool isFinite(const QRectF& rect)
{
    return qIsFinite(rect.left()) && qIsFinite(rect.top()) && qIsFinite(rect.right()) && qIsFinite(rect.bottom());
}

TileRange visibleTiles(const QPainter& painter, double tileWidth, double tileHeight, double lastTile)
{
    if (!painter.isActive() || !qIsFinite(lastTile) || lastTile < 0)
        return TileRange();
    TileRange range;
    range.last = qint64(std::min(lastTile, 9.0e18)); // within qint64, far beyond any device
    // Pixels around the edge that smoothing may still reach from a tile just outside.
    const double margin = 2;
    QRectF visible;
    bool bounded = false;
    const QPaintDevice* device = painter.device();
    const int type = device ? device->devType() : 0;
    if (type == QInternal::Image || type == QInternal::Pixmap || type == QInternal::Widget) {
        bool invertible = false;
        const QTransform toLine = painter.combinedTransform().inverted(&invertible);
        if (!invertible)
            return TileRange();
        visible = toLine.mapRect(
            QRectF(0, 0, device->width(), device->height()).adjusted(-margin, -margin, margin, margin));
        bounded = true;
    }
    if (painter.hasClipping()) {
        // Already in the line's coordinates, since its transform is set.
        const QRectF clip = painter.clipBoundingRect().adjusted(-margin, -margin, margin, margin);
        visible = bounded ? visible & clip : clip;
        bounded = true;
    }
    if (!bounded)
        return range;
    if (!isFinite(visible) || visible.isEmpty() || visible.bottom() < 0 || visible.top() > tileHeight)
        return TileRange();
    // Tile k covers x from k * width to (k + 1) * width.
    const double firstVisible = std::floor(visible.left() / tileWidth) - 1;
    const double lastVisible = std::floor(visible.right() / tileWidth);
    if (lastVisible < 0 || firstVisible > lastTile)
        return TileRange();
    if (firstVisible > 0)
        range.first = qint64(firstVisible);
    if (lastVisible < lastTile)
        range.last = qint64(lastVisible);
    return range;
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
    // The start rounded to whole pixels as QPointF::toPoint does, without its int range.
    transform.translate(qRound64(a.x()), qRound64(a.y()));
    transform.rotate(-angle, Qt::ZAxis);
    painter->setTransform(transform, false);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);

    const double length = QLineF(a, b).length();
    if (stretch) {
        painter->drawPixmap(QRectF(0, 0, length, pixmap.height()).toRect(), pixmap, pixmap.rect());
    } else {
        // Tiles stand at each multiple of the width up to the rounded length; the last is
        // not cut and may overshoot the end by up to one width. Counted in 64 bits, and
        // only the tiles that can show are drawn.
        const double width = pixmap.width();
        const double lastTile = std::floor(std::floor(length + 0.5) / width);
        const TileRange tiles = visibleTiles(*painter, width, pixmap.height(), lastTile);
        for (qint64 tile = tiles.first; tile <= tiles.last; ++tile)
            painter->drawPixmap(QPointF(double(tile) * width, 0), pixmap);
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
