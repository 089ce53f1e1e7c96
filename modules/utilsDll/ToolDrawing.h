#pragma once

#include "UtilsDllGlobal.h"

#include <QIcon>
#include <QPixmap>
#include <QPointF>
#include <QRectF>

class QPainter;

// Drawing helpers for the correction tools, at global scope.

enum ToolCursorType
{
    ToolCursorDiagonalLeft = 0,
    ToolCursorDiagonalRight = 1,
    ToolCursorHorizontal = 2,
    ToolCursorSquare = 3,
    ToolCursorVertical = 4,
    ToolCursorRotationTop = 5,
    ToolCursorRotationBottom = 6,
};

// Draws a line made of 'pixmap', repeated along it or stretched over it. A non-empty
// clipRect shortens a line with one end inside and drops one with both ends outside.
// Leaves QPainter::SmoothPixmapTransform on.
UTILSDLL_EXPORT void drawToolLine(const QPointF& start, const QPointF& end, const QPixmap& pixmap, bool stretch,
                                  QPainter* painter, const QRectF& clipRect);

// The cursor image of a tool, 23 by 24 pixels; null for an unknown type.
UTILSDLL_EXPORT QPixmap toolCursorPixmap(ToolCursorType type);

// Paints an icon into a rectangle, keeping its aspect unless told to ignore it.
UTILSDLL_EXPORT void paintIcon(QPainter* painter, const QIcon& icon, const QRect& rect,
                               Qt::AspectRatioMode aspectMode, QIcon::Mode mode, QIcon::State state);

// The greatest width and the greatest height among the icon's sizes, taken apart.
UTILSDLL_EXPORT QSize sizeOfIcon(const QIcon& icon, QIcon::Mode mode, QIcon::State state);
