#include "GuiUtils.h"

#include "Log.h"
#include "platform/ScreenMetrics_p.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QtMath>

#include <cstdlib>

namespace VEXA_NAMESPACE {

namespace {

bool isValidRect(const QRect& rect)
{
    return rect.left() <= rect.right() && rect.top() <= rect.bottom();
}

} // namespace

imgCmpResult compareImages(const QImage& first, const QImage& second, double& difference, double threshold)
{
    if (first.isNull() || second.isNull())
        return ImgCmpInvalid;
    if (first.size() != second.size())
        return ImgCmpSizeDiffers;

    const int width = first.width();
    const int count = width * first.height() * 3;
    for (int y = 0; y < first.height(); ++y) {
        const auto* a = reinterpret_cast<const quint32*>(first.scanLine(y));
        const auto* b = reinterpret_cast<const quint32*>(second.scanLine(y));
        // Each channel's share is divided and added on its own, red, green, blue: a
        // row's sum divided once differs in the last bits, and a threshold that lies
        // on the boundary would then grade the other way.
        for (int x = 0; x < width; ++x) {
            for (int shift = 16; shift >= 0; shift -= 8)
                difference += std::abs(int((a[x] >> shift) & 0xFF) - int((b[x] >> shift) & 0xFF)) / 255.0;
        }
        // Rescaled inside the row loop on purpose: callers' thresholds rely on it.
        difference = difference * 100.0 / count;
    }
    difference = difference * 100.0 / count;
    return threshold > difference ? ImgCmpSimilar : ImgCmpDifferent;
}

void setWidgetFullTransparency(QWidget* widget)
{
    if (!widget)
        return;
    QPalette palette = widget->palette();
    for (QPalette::ColorRole role : {QPalette::Window, QPalette::Button, QPalette::Base, QPalette::Light,
                                     QPalette::Midlight, QPalette::Dark, QPalette::Mid, QPalette::Shadow})
        palette.setColor(role, Qt::transparent);
    widget->setPalette(palette);
}

void moveWindowToScreenCenter(QWidget* window, QWidget* parent)
{
    if (!window || !window->isWindow()) {
        ASSERT_X(false, "Bug!!!");
        return;
    }
    // The whole geometry of the screen, task bar included, on purpose: the primary
    // screen without a parent, else the screen the parent is on.
    const QScreen* target = parent ? parent->screen() : QGuiApplication::primaryScreen();
    if (!target) {
        ASSERT_X(false, "no screen is available");
        return;
    }
    const QRect screen = target->geometry();
    ASSERT_X(!parent || isValidRect(screen), "wrong screen geometry of parent widget");
    if (!isValidRect(screen))
        return;
    const QRect frame = window->frameGeometry();
    window->move(screen.left() + (screen.width() - frame.width()) / 2,
                 screen.top() + (screen.height() - frame.height()) / 2);
}

void reapplyWidgetQss(QWidget& widget)
{
    QStyle* style = widget.style();
    if (!style)
        return;
    style->unpolish(&widget);
    style->polish(&widget);
    widget.update();
}

double systemScalingFactor()
{
    // Read once: a later change of the display setting is not seen by this process.
    static const float factor = float(VexaPlatform::logicalScreenDpiX()) / 96.0f;
    return factor;
}

QList<QPointF> lineAndCircleIntersectionPoints(double x1, double y1, double x2, double y2, double cx, double cy,
                                               double radius)
{
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    const double length = std::sqrt(dx * dx + dy * dy);
    if (qFuzzyIsNull(length))
        return {};
    const double ux = dx / length;
    const double uy = dy / length;
    const double t = (cx - x1) * ux + (cy - y1) * uy;
    const QPointF foot(t * ux + x1, t * uy + y1);
    const double distance = std::hypot(foot.x() - cx, foot.y() - cy);
    if (radius > distance) {
        const double half = std::sqrt(radius * radius - distance * distance);
        const auto pointAt = [&](double s) { return QPointF(s * ux + x1, s * uy + y1); };
        return {pointAt(t - half), pointAt(t + half)};
    }
    if (qFuzzyCompare(distance, radius))
        return {foot};
    return {};
}

} // namespace VEXA_NAMESPACE
