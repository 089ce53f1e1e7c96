#pragma once

#include "UtilsDllGlobal.h"

#include <QIcon>
#include <QPixmap>
#include <QPointF>
#include <QRectF>

class QPainter;

/// \file
/// \brief Drawing helpers for the correction tools, at global scope.

/// The cursor pictures of the correction tools' handles, from the resources.
enum ToolCursorType
{
    ToolCursorDiagonalLeft = 0,   ///< A diagonal arrow, leaning left.
    ToolCursorDiagonalRight = 1,  ///< A diagonal arrow, leaning right.
    ToolCursorHorizontal = 2,     ///< A horizontal arrow.
    ToolCursorSquare = 3,         ///< The square arrow.
    ToolCursorVertical = 4,       ///< A vertical arrow.
    ToolCursorRotationTop = 5,    ///< A rotation arrow, for a handle at the top.
    ToolCursorRotationBottom = 6, ///< A rotation arrow, for a handle at the bottom.
};

/// \brief Draws a line from \p start to \p end made of \p pixmap, repeated along it
/// or, with \p stretch, stretched over it.
///
/// A non-empty \p clipRect shortens a line with one end inside and drops one with both
/// ends outside. Leaves QPainter::SmoothPixmapTransform on.
UTILSDLL_EXPORT void drawToolLine(const QPointF& start, const QPointF& end, const QPixmap& pixmap, bool stretch,
                                  QPainter* painter, const QRectF& clipRect);

/// The cursor image of a tool, 23 pixels wide and 24 high; null for an unknown type.
UTILSDLL_EXPORT QPixmap toolCursorPixmap(ToolCursorType type);

/// Paints \p icon in \p mode and \p state into \p rect, keeping its aspect unless
/// \p aspectMode says to ignore it.
UTILSDLL_EXPORT void paintIcon(QPainter* painter, const QIcon& icon, const QRect& rect,
                               Qt::AspectRatioMode aspectMode, QIcon::Mode mode, QIcon::State state);

/// The greatest width and the greatest height among the sizes of \p icon in \p mode
/// and \p state, taken apart.
UTILSDLL_EXPORT QSize sizeOfIcon(const QIcon& icon, QIcon::Mode mode, QIcon::State state);
