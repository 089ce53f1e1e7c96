#pragma once

#include "UtilsDllGlobal.h"

#include <QImage>
#include <QList>
#include <QPointF>

class QWidget;

/// \file
/// \brief Helpers for the product's views and dialogs.
///
/// No shared state but the cached scale. The functions that take widgets belong on the
/// GUI thread.
namespace VEXA_NAMESPACE {

/// The answer of compareImages().
enum imgCmpResult
{
    ImgCmpInvalid = 0,     ///< An image is null; the difference is untouched.
    ImgCmpSizeDiffers = 1, ///< The sizes differ; the difference is untouched.
    ImgCmpSimilar = 2,     ///< The difference is below the threshold.
    ImgCmpDifferent = 3,   ///< The difference is at or above the threshold.
};

/// \brief Compares two images of the same size pixel by pixel.
///
/// Both images must have 32 bits per pixel; the caller converts them first.
/// \p difference is read and written: the caller's value takes part in the sum, so set
/// it to 0 for a clean result. The value is rescaled after every row and once more at
/// the end, so it is dominated by the last row; thresholds are tuned to it.
UTILSDLL_EXPORT imgCmpResult compareImages(const QImage& first, const QImage& second, double& difference,
                                           double threshold);

/// Makes the background roles of \p widget's palette transparent; null is ignored.
UTILSDLL_EXPORT void setWidgetFullTransparency(QWidget* widget);

/// Centres the top-level \p window, frame included, on the screen of \p parent or on
/// the primary one. The whole screen counts, task bar included.
UTILSDLL_EXPORT void moveWindowToScreenCenter(QWidget* window, QWidget* parent);

/// Makes the style look at \p widget afresh, after a dynamic property that a style
/// sheet selects on has changed.
UTILSDLL_EXPORT void reapplyWidgetQss(QWidget& widget);

/// The logical screen resolution divided by 96, read once per process.
UTILSDLL_EXPORT double systemScalingFactor();

/// The points where the unbounded line through (\p x1, \p y1) and (\p x2, \p y2)
/// meets the circle around (\p cx, \p cy), the one nearer the start of the line's
/// direction first; none, one or two points.
UTILSDLL_EXPORT QList<QPointF> lineAndCircleIntersectionPoints(double x1, double y1, double x2, double y2,
                                                               double cx, double cy, double radius);

} // namespace VEXA_NAMESPACE
