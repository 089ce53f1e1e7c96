#pragma once

#include "UtilsDllGlobal.h"

#include <QImage>
#include <QList>
#include <QPointF>

class QWidget;

// Helpers for the product's views and dialogs. No shared state but the cached scale.
namespace VEXA_NAMESPACE {

enum imgCmpResult
{
    ImgCmpInvalid = 0,     // an image is null; the difference is untouched
    ImgCmpSizeDiffers = 1, // the sizes differ; the difference is untouched
    ImgCmpSimilar = 2,     // difference below the threshold
    ImgCmpDifferent = 3,   // difference at or above the threshold
};

// Both images must have 32 bits per pixel; the caller converts them first.
// 'difference' is read and written: the caller's value takes part in the sum, so
// set it to 0 for a clean result. The value is rescaled after every row and once
// more at the end, so it is dominated by the last row; thresholds are tuned to it.
UTILSDLL_EXPORT imgCmpResult compareImages(const QImage& first, const QImage& second, double& difference,
                                           double threshold);

UTILSDLL_EXPORT void setWidgetFullTransparency(QWidget* widget);

// Centres a top-level window, frame included, on the parent's screen or the primary
// one. The whole screen counts, task bar included.
UTILSDLL_EXPORT void moveWindowToScreenCenter(QWidget* window, QWidget* parent);

// Makes the style look at a widget afresh, after a dynamic property changed.
UTILSDLL_EXPORT void reapplyWidgetQss(QWidget& widget);

// Logical screen resolution / 96, read once per process.
UTILSDLL_EXPORT double systemScalingFactor();

// The points where the unbounded line through (x1, y1) and (x2, y2) meets the
// circle, the one nearer the start of the line's direction first.
UTILSDLL_EXPORT QList<QPointF> lineAndCircleIntersectionPoints(double x1, double y1, double x2, double y2,
                                                               double cx, double cy, double radius);

} // namespace VEXA_NAMESPACE
