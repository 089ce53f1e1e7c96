#include "TestEnvironment.h"
#include "TestLogger.h"

#include "GuiUtils.h"
#include "IconViewer_p.h"
#include "ToolDrawing.h"
#include "customvexaappstyle.h"

#include <QtWidgets>

#include <cmath>
#include <functional>
#include <memory>

using namespace Vexa;

Q_DECLARE_METATYPE(Qt::AspectRatioMode)

namespace {

// The rectangle covered by pixels that are at least half opaque; null if none.
QRect inkRect(const QImage& image)
{
    QRect rect;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) >= 128)
                rect |= QRect(x, y, 1, 1);
    return rect;
}

QImage filledImage(int width, int height, QRgb colour)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

QPixmap solidPixmap(const QSize& size)
{
    return QPixmap::fromImage(filledImage(size.width(), size.height(), qRgb(255, 0, 0)));
}

QImage drawn(const std::function<void(QPainter&)>& paint)
{
    QImage image(120, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter);
    return image;
}

// A 10 by 4 tile: its first column blue, the rest red, so that the direction of a run shows.
QPixmap tile()
{
    QImage image = filledImage(10, 4, qRgb(255, 0, 0));
    for (int y = 0; y < 4; ++y)
        image.setPixel(0, y, qRgb(0, 0, 255));
    return QPixmap::fromImage(image);
}

QImage line(const QPointF& a, const QPointF& b, bool stretch = false, const QRectF& clip = QRectF())
{
    return drawn([&](QPainter& painter) { drawToolLine(a, b, tile(), stretch, &painter, clip); });
}

QImage rendered(QWidget& widget)
{
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

} // namespace

// GUI helpers and tool drawing, the icon viewer, the application style.
class TestWidgets : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        // A 300 by 300 viewer whose contents area is the square (100, 100, 100, 100).
        m_viewer = std::make_unique<CIconViewer>();
        m_viewer->resize(300, 300);
        m_viewer->setContentsMargins(100, 100, 100, 100);
        m_style = std::make_unique<CustomVexaAppStyle>();
        m_windows.reset(QStyleFactory::create("Windows"));
    }

    void compareImagesGrades_data()
    {
        QTest::addColumn<QImage>("first");
        QTest::addColumn<QImage>("second");
        QTest::addColumn<double>("input");
        QTest::addColumn<double>("threshold");
        QTest::addColumn<int>("result");
        QTest::addColumn<double>("difference");

        const QImage red = filledImage(2, 1, qRgb(255, 0, 0));
        const QImage black = filledImage(2, 1, qRgb(0, 0, 0));
        QImage oneRedPixel = black;
        oneRedPixel.setPixel(0, 0, qRgb(255, 0, 0));
        QTest::newRow("null image") << red << QImage() << 7.0 << 0.5 << int(ImgCmpInvalid) << 7.0;
        QTest::newRow("sizes differ") << red << filledImage(1, 2, 0) << 7.0 << 0.5 << int(ImgCmpSizeDiffers) << 7.0;
        QTest::newRow("equal, strict threshold") << red << red << 0.0 << 0.0 << int(ImgCmpDifferent) << 0.0;
        QTest::newRow("alpha only") << filledImage(2, 1, qRgba(10, 20, 30, 255))
                                    << filledImage(2, 1, qRgba(10, 20, 30, 0)) << 0.0 << 0.5 << int(ImgCmpSimilar) << 0.0;
        // One channel differs by 255 over count = 6, and the caller's value takes part:
        // (1 + 1) * 100 / 6 after the row, again at the end.
        QTest::newRow("input is summed") << oneRedPixel << black << 1.0 << 0.5 << int(ImgCmpDifferent) << 20000.0 / 36.0;
        // The value is rescaled after every row, so a difference in the first row of 20 all but vanishes.
        const QImage black20 = filledImage(20, 20, qRgb(0, 0, 0));
        QImage topWhite = black20;
        for (int x = 0; x < 20; ++x)
            topWhite.setPixel(x, 0, qRgb(255, 255, 255));
        // 60 * (100 / 1200)^21, with the channels added one by one.
        QTest::newRow("first row fades") << topWhite << black20 << 0.0 << 1.0 << int(ImgCmpSimilar)
                                         << 1.3042026652294416e-21;
        // (1 / 255 + 32 / 255) * 100 / 3 * 100 / 3; a row's sum 33 / 255 would give ...264 and,
        // at this threshold, the other grade.
        QTest::newRow("channels added one by one") << filledImage(1, 1, qRgb(0, 0, 0)) << filledImage(1, 1, qRgb(0, 1, 32))
                                                   << 0.0 << 143.79084967320264 << int(ImgCmpSimilar)
                                                   << 143.79084967320262;
    }

    void compareImagesGrades()
    {
        QFETCH(QImage, first);
        QFETCH(QImage, second);
        QFETCH(double, input);
        QFETCH(double, threshold);
        QFETCH(int, result);
        QFETCH(double, difference);
        double value = input;
        QCOMPARE(int(compareImages(first, second, value, threshold)), result);
        // Callers' thresholds are measured against this exact value: no tolerance.
        QCOMPARE(QString::number(value, 'g', 17), QString::number(difference, 'g', 17));
    }

    // The points on the circle of radius 5 around (10, 10), in the line's direction.
    void lineAndCircleIntersection()
    {
        const QList<QPair<QLineF, QList<QPointF>>> cases = {
            {QLineF(3, 3, 3, 3), {}}, // degenerate line
            {QLineF(0, 10, 1, 10), {{5, 10}, {15, 10}}},
            {QLineF(30, 10, 29, 10), {{15, 10}, {5, 10}}},
            {QLineF(9, 10, 11, 10), {{5, 10}, {15, 10}}}, // both points inside
            {QLineF(0, 15, 1, 15), {{10, 15}}}, // tangent
            {QLineF(0, 16, 1, 16), {}}};
        for (const auto& [line, points] : cases) {
            const auto actual = lineAndCircleIntersectionPoints(line.x1(), line.y1(), line.x2(), line.y2(), 10, 10, 5);
            QVERIFY2(actual.size() == points.size(), qPrintable(QString::number(line.y1())));
            for (int i = 0; i < points.size(); ++i)
                QVERIFY2(QLineF(actual[i], points[i]).length() < 1e-9, qPrintable(QString::number(actual[i].x())));
        }
    }

    void toolLines()
    {
        const QRectF box(0, 0, 50, 50);
        const struct { QLineF segment; QRectF clip; bool stretch; QRect ink; } cases[] = {
            // Length 35: tiles at 0, 10, 20, 30, the last running 5 pixels past the end.
            {QLineF(5, 20, 40, 20), QRectF(), false, QRect(5, 20, 40, 4)},
            {QLineF(10, 20, 60, 20), QRectF(), true, QRect(10, 20, 50, 4)},
            // Vertical lines run upward, and are not shifted either.
            {QLineF(30, 80, 30, 50), QRectF(), false, QRect(30, 40, 4, 40)},
            // Cut at x = 50: length 40, five tiles, the last overshooting the edge.
            {QLineF(10, 20, 80, 20), box, false, QRect(10, 20, 50, 4)},
            // Both ends outside: nothing, unless the clip is empty.
            {QLineF(-10, 20, 80, 20), box, false, QRect()},
            {QLineF(-10, 20, 80, 20), QRectF(0, 0, 50, 0), false, QRect(0, 20, 90, 4)}};
        for (const auto& c : cases)
            QCOMPARE(inkRect(line(c.segment.p1(), c.segment.p2(), c.stretch, c.clip)), c.ink);
        // At 45 degrees both ends go up by half the tile: the lower edge starts 2 pixels higher.
        const QRect slanted = inkRect(line(QPointF(10, 60), QPointF(40, 30)));
        QVERIFY2(slanted.bottom() <= 61 && slanted.bottom() >= 59, qPrintable(QString::number(slanted.bottom())));
        drawToolLine(QPointF(0, 0), QPointF(50, 0), tile(), false, nullptr, QRectF()); // no painter, no crash
        // A null pixmap draws nothing.
        QVERIFY(inkRect(drawn([](QPainter& painter) {
                    drawToolLine(QPointF(0, 0), QPointF(50, 0), QPixmap(), false, &painter, QRectF());
                })).isNull());

        // A line pointing between 135 and 315 degrees is drawn from its other end, exactly as the
        // reversed line; at 45 degrees it is the reversed line, at 225, that is swapped.
        const QList<QPair<qreal, bool>> angles = {{180, true}, {135, false}, {136, true}, {315, false}, {45, true}};
        for (const auto& [angle, reversed] : angles) {
            QLineF segment(QPointF(60, 50), QPointF(90, 50));
            segment.setAngle(angle);
            const QImage forward = line(segment.p1(), segment.p2());
            QVERIFY(!inkRect(forward).isNull());
            QVERIFY2((forward == line(segment.p2(), segment.p1())) == reversed, qPrintable(QString::number(angle)));
        }
    }

    // A line far longer than what shows, or starting far off the picture, draws the same pixels
    // as one just long enough to cross it; counted in int, such lengths drew nothing or never
    // ended. The ends differ by a power of two, so the angle is exactly the same.
    void hugeToolLinesDrawWhatShows_data()
    {
        QTest::addColumn<QPointF>("start");
        QTest::addColumn<QPointF>("end");
        QTest::addColumn<QPointF>("hugeStart");
        QTest::addColumn<QPointF>("hugeEnd");

        const double big = std::ldexp(1.0, 33);
        QTest::newRow("length near INT_MAX") << QPointF(5, 30) << QPointF(205, 30) << QPointF(5, 30)
                                             << QPointF(5.0 + std::numeric_limits<int>::max() - 1, 30);
        QTest::newRow("slanted") << QPointF(10, 90) << QPointF(10 + 3 * 64, 90 - 2 * 64) << QPointF(10, 90)
                                 << QPointF(10 + 3 * big, 90 - 2 * big);
        // Same tile phase: the starts are whole numbers of tiles apart.
        QTest::newRow("start far to the left") << QPointF(10 - 10 * 3, 50) << QPointF(110, 50)
                                               << QPointF(10 - 10 * std::ldexp(1.0, 28), 50) << QPointF(110, 50);
        QTest::newRow("drawn from the far end") << QPointF(5, 30) << QPointF(205, 30) << QPointF(5 + big, 30)
                                                << QPointF(5, 30);
    }

    void hugeToolLinesDrawWhatShows()
    {
        QFETCH(QPointF, start);
        QFETCH(QPointF, end);
        QFETCH(QPointF, hugeStart);
        QFETCH(QPointF, hugeEnd);
        for (const QRect clip : {QRect(), QRect(20, 10, 50, 60)}) {
            const auto lineWithin = [&](const QPointF& a, const QPointF& b) {
                return drawn([&](QPainter& painter) {
                    if (!clip.isNull())
                        painter.setClipRect(clip);
                    drawToolLine(a, b, tile(), false, &painter, QRectF());
                });
            };
            const QImage natural = lineWithin(start, end);
            QVERIFY(!inkRect(natural).isNull());
            QVERIFY(lineWithin(hugeStart, hugeEnd) == natural);
        }
    }

    void cursorsAndIcons()
    {
        UtilsDllTest::ScopedTestLogger logger;
        QVERIFY(toolCursorPixmap(ToolCursorType(7)).isNull());
        QCOMPARE(logger->linesAt('E').size(), 1);
        QVERIFY(logger->linesAt('E').first().endsWith(": Bug!!!"));
        for (int type = ToolCursorDiagonalLeft; type <= ToolCursorRotationBottom; ++type)
            QCOMPARE(toolCursorPixmap(ToolCursorType(type)).size(), QSize(23, 24));
        QCOMPARE(logger->linesAt('E').size(), 1);

        QIcon icon;
        icon.addPixmap(QPixmap::fromImage(QImage(16, 32, QImage::Format_ARGB32)));
        icon.addPixmap(QPixmap::fromImage(QImage(32, 16, QImage::Format_ARGB32)));
        QCOMPARE(sizeOfIcon(icon, QIcon::Normal, QIcon::Off), QSize(32, 32));
        const QIcon square(solidPixmap(QSize(40, 40)));
        QCOMPARE(inkRect(drawn([&](QPainter& painter) {
                     paintIcon(&painter, square, QRect(0, 0, 100, 20), Qt::KeepAspectRatio, QIcon::Normal, QIcon::Off);
                 })),
                 QRect(40, 0, 20, 20));
    }

    void imageRectangle_data()
    {
        QTest::addColumn<bool>("asIcon");
        QTest::addColumn<QSize>("imageSize");
        QTest::addColumn<QSize>("mandatory");
        QTest::addColumn<bool>("expand");
        QTest::addColumn<Qt::AspectRatioMode>("aspect");
        QTest::addColumn<QRect>("expected");
        const QSize unset(-1, -1);
        const QSize small(20, 10);
        const auto keep = Qt::KeepAspectRatio;
        QTest::newRow("large icon, mandatory size") << true << QSize(512, 512) << QSize(34, 34) << false << keep << QRect(133, 133, 34, 34);
        QTest::newRow("large icon shrinks") << true << QSize(512, 512) << unset << false << keep << QRect(100, 100, 100, 100);
        QTest::newRow("small pixmap keeps its size") << false << small << unset << false << keep << QRect(140, 145, 20, 10);
        QTest::newRow("small pixmap expanded") << false << small << unset << true << keep << QRect(100, 125, 100, 50);
        QTest::newRow("ignoring aspect fills the area")
            << false << small << unset << false << Qt::IgnoreAspectRatio << QRect(100, 100, 100, 100);
        QTest::newRow("expanding overflows, centred")
            << false << small << unset << true << Qt::KeepAspectRatioByExpanding << QRect(50, 100, 200, 100);
    }

    void imageRectangle()
    {
        QFETCH(bool, asIcon);
        QFETCH(QSize, imageSize);
        QFETCH(QSize, mandatory);
        QFETCH(bool, expand);
        QFETCH(Qt::AspectRatioMode, aspect);
        QFETCH(QRect, expected);
        if (asIcon)
            m_viewer->setIcon(QIcon(solidPixmap(imageSize)));
        else
            m_viewer->setPixmap(solidPixmap(imageSize));
        m_viewer->setMandatoryImageSize(mandatory);
        m_viewer->setExpandContent(expand);
        m_viewer->setAspectRatio(aspect);
        QCOMPARE(inkRect(rendered(*m_viewer)), expected);
        QCOMPARE(m_viewer->sizeHint(), (mandatory.isValid() ? mandatory : imageSize) + QSize(200, 200));
    }

    void buttonShift_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QVariant>("property");
        QTest::addColumn<bool>("registered");
        QTest::addColumn<bool>("shifted");
        QTest::newRow("plain named button") << "button" << QVariant() << false << true;
        QTest::newRow("property false counts too") << "button" << QVariant(false) << false << false;
        QTest::newRow("unnamed with property") << "" << QVariant(true) << false << true;
        QTest::newRow("unnamed, registered") << "" << QVariant() << true << true;
    }

    void buttonShift()
    {
        QFETCH(QString, name);
        QFETCH(QVariant, property);
        QFETCH(bool, registered);
        QFETCH(bool, shifted);
        UtilsDllTest::ScopedTestLogger logger;
        QPushButton button;
        button.setObjectName(name);
        if (property.isValid())
            button.setProperty(CustomVexaAppStyle::disableButtonShiftPropertyName(), property);
        if (registered)
            m_style->disableButtonShift(&button, true);
        for (QStyle::PixelMetric metric : {QStyle::PM_ButtonShiftHorizontal, QStyle::PM_ButtonShiftVertical})
            QCOMPARE(m_style->pixelMetric(metric, nullptr, &button), shifted ? m_windows->pixelMetric(metric) : 0);
        QCOMPARE(logger->linesAt('E').size(), registered && name.isEmpty() ? 1 : 0); // an unnamed one is reported
        QCOMPARE(m_style->pixelMetric(QStyle::PM_ButtonShiftHorizontal, nullptr, nullptr), baseShift());
    }

    // The registry follows renames and deletion: a deleted button leaves no stale entry behind.
    void registryFollowsRenamesAndDeletion()
    {
        QVERIFY(baseShift() != 0);
        auto* button = new QPushButton;
        button->setObjectName("first");
        m_style->disableButtonShift(button, true);
        QCOMPARE(shiftOf("first"), 0);
        button->setObjectName("second");
        QCOMPARE(shiftOf("first"), baseShift());
        QCOMPARE(shiftOf("second"), 0);
        delete button;
        QCOMPARE(shiftOf("second"), baseShift());
    }

    // A tool tip is its rectangle less the four corner pixels; without a mask to fill, the base answers.
    void toolTipMaskCutsTheCorners()
    {
        QStyleOption option;
        option.rect = QRect(0, 0, 30, 12);
        QStyleHintReturnMask mask;
        QCOMPARE(m_style->styleHint(QStyle::SH_ToolTip_Mask, &option, nullptr, &mask), 1);
        QRegion expected(option.rect);
        for (const QPoint& corner : {option.rect.topLeft(), option.rect.topRight(), option.rect.bottomLeft(),
                                     option.rect.bottomRight()})
            expected -= QRect(corner, QSize(1, 1));
        QCOMPARE(mask.region, expected);
        QCOMPARE(m_style->styleHint(QStyle::SH_ToolTip_Mask, &option, nullptr, nullptr),
                 m_windows->styleHint(QStyle::SH_ToolTip_Mask, &option, nullptr, nullptr));
    }

    void extensionArrowMirrorsRightToLeft()
    {
        // Eight by five: '.' is opaque grey, '+' transparent.
        const char* const rows[] = {"..++..++", "+..++..+", "++..++..", "+..++..+", "..++..++"};
        QImage arrow(8, 5, QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 8; ++x)
                arrow.setPixel(x, y, rows[y][x] == '.' ? qRgba(0x80, 0x80, 0x80, 255) : qRgba(0, 0, 0, 0));
        const auto arrowFor = [this](const QStyleOption* option) {
            return m_style->standardPixmap(QStyle::SP_ToolBarHorizontalExtensionButton, option)
                .toImage()
                .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        };
        QStyleOption option;
        option.direction = Qt::LeftToRight;
        QCOMPARE(arrowFor(&option), arrow);
        option.direction = Qt::RightToLeft;
        QCOMPARE(arrowFor(&option), arrow.mirrored(true, false));
        // Without an option the application's direction decides.
        QApplication::setLayoutDirection(Qt::RightToLeft);
        const QImage fromApplication = arrowFor(nullptr);
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QCOMPARE(fromApplication, arrow.mirrored(true, false));
    }

private:
    int baseShift() const { return m_windows->pixelMetric(QStyle::PM_ButtonShiftHorizontal); }
    int shiftOf(const QString& name) const
    {
        QPushButton probe;
        probe.setObjectName(name);
        return m_style->pixelMetric(QStyle::PM_ButtonShiftHorizontal, nullptr, &probe);
    }

    std::unique_ptr<CustomVexaAppStyle> m_style;
    std::unique_ptr<QStyle> m_windows;
    std::unique_ptr<CIconViewer> m_viewer;
};

UTILSDLL_TEST_MAIN_WITH(TestWidgets, QApplication)
#include "tst_widgets.moc"
