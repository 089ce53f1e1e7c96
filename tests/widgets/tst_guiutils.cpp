#include "TestEnvironment.h"
#include "TestLogger.h"

#include "GuiUtils.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>
#include <limits>

using namespace Vexa;

Q_DECLARE_METATYPE(QList<QPointF>)

namespace {

QImage filledImage(int width, int height, QRgb colour)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

} // namespace

class TestGuiUtils : public QObject
{
    Q_OBJECT
private slots:
    void compareImagesGrades_data();
    void compareImagesGrades();
    void compareImagesWeighsLaterRowsMore();
    void lineAndCircleIntersection_data();
    void lineAndCircleIntersection();
    void centresTopLevelWindowsOnly();
    void transparencyLeavesTextRoles();
};

void TestGuiUtils::compareImagesGrades_data()
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
    QTest::newRow("null first") << QImage() << red << 7.0 << 0.5 << int(ImgCmpInvalid) << 7.0;
    QTest::newRow("null second") << red << QImage() << 7.0 << 0.5 << int(ImgCmpInvalid) << 7.0;
    QTest::newRow("sizes differ") << red << filledImage(1, 2, 0) << 7.0 << 0.5 << int(ImgCmpSizeDiffers) << 7.0;
    QTest::newRow("equal") << red << red << 0.0 << 0.5 << int(ImgCmpSimilar) << 0.0;
    QTest::newRow("equal, strict threshold") << red << red << 0.0 << 0.0 << int(ImgCmpDifferent) << 0.0;
    QTest::newRow("alpha only") << filledImage(2, 1, qRgba(10, 20, 30, 255)) << filledImage(2, 1, qRgba(10, 20, 30, 0))
                                << 0.0 << 0.5 << int(ImgCmpSimilar) << 0.0;
    // One channel differs by 255 over count = 6: 1 * 100 / 6 after the row, again at the end.
    QTest::newRow("one channel") << oneRedPixel << black << 0.0 << 1000.0 << int(ImgCmpSimilar)
                                 << 10000.0 / 36.0;
    // The caller's value takes part: (1 + 1) * 100 / 6 * 100 / 6.
    QTest::newRow("input is summed") << oneRedPixel << black << 1.0 << 0.5 << int(ImgCmpDifferent)
                                     << 20000.0 / 36.0;
    QTest::newRow("NaN threshold") << red << red << 0.0 << std::numeric_limits<double>::quiet_NaN()
                                   << int(ImgCmpDifferent) << 0.0;
    // Wider than one vector step and not a multiple of it; every channel differs by 1.
    QTest::newRow("odd width") << filledImage(7, 1, qRgb(1, 1, 1)) << filledImage(7, 1, qRgb(0, 0, 0)) << 0.0
                               << 0.5 << int(ImgCmpDifferent) << (21.0 / 255.0) * 10000.0 / (21.0 * 21.0);
}

void TestGuiUtils::compareImagesGrades()
{
    QFETCH(QImage, first);
    QFETCH(QImage, second);
    QFETCH(double, input);
    QFETCH(double, threshold);
    QFETCH(int, result);
    QFETCH(double, difference);

    double value = input;
    QCOMPARE(int(compareImages(first, second, value, threshold)), result);
    QVERIFY2(std::abs(value - difference) <= 1e-9 * std::max(1.0, std::abs(difference)),
             qPrintable(QString::number(value, 'g', 17)));
}

void TestGuiUtils::compareImagesWeighsLaterRowsMore()
{
    const QImage base = filledImage(20, 20, qRgb(0, 0, 0));
    QImage topDiffers = base;
    QImage bottomDiffers = base;
    for (int x = 0; x < 20; ++x) {
        topDiffers.setPixel(x, 0, qRgb(255, 255, 255));
        bottomDiffers.setPixel(x, 19, qRgb(255, 255, 255));
    }
    double top = 0;
    double bottom = 0;
    compareImages(topDiffers, base, top, 1.0);
    compareImages(bottomDiffers, base, bottom, 1.0);
    QVERIFY(top > 0);
    QVERIFY(top * 1e6 < bottom);
    // The last row, scaled twice: 60 * 100 / 1200 * 100 / 1200.
    QVERIFY(qFuzzyCompare(bottom, 60.0 * 100.0 / 1200.0 * 100.0 / 1200.0));
}

void TestGuiUtils::lineAndCircleIntersection_data()
{
    QTest::addColumn<QLineF>("line");
    QTest::addColumn<QPointF>("centre");
    QTest::addColumn<double>("radius");
    QTest::addColumn<QList<QPointF>>("points");

    const QPointF centre(10, 10);
    QTest::newRow("degenerate line") << QLineF(3, 3, 3, 3) << centre << 5.0 << QList<QPointF>();
    QTest::newRow("through centre, from the left")
        << QLineF(0, 10, 1, 10) << centre << 5.0 << QList<QPointF>{{5, 10}, {15, 10}};
    QTest::newRow("through centre, from the right")
        << QLineF(30, 10, 29, 10) << centre << 5.0 << QList<QPointF>{{15, 10}, {5, 10}};
    QTest::newRow("both points inside") << QLineF(9, 10, 11, 10) << centre << 5.0
                                        << QList<QPointF>{{5, 10}, {15, 10}};
    QTest::newRow("vertical") << QLineF(12, 0, 12, 1) << centre << 5.0
                              << QList<QPointF>{{12, 10 - std::sqrt(21.0)}, {12, 10 + std::sqrt(21.0)}};
    QTest::newRow("tangent") << QLineF(0, 15, 1, 15) << centre << 5.0 << QList<QPointF>{{10, 15}};
    QTest::newRow("missing") << QLineF(0, 16, 1, 16) << centre << 5.0 << QList<QPointF>();
}

void TestGuiUtils::lineAndCircleIntersection()
{
    QFETCH(QLineF, line);
    QFETCH(QPointF, centre);
    QFETCH(double, radius);
    QFETCH(QList<QPointF>, points);

    const QList<QPointF> actual = lineAndCircleIntersectionPoints(line.x1(), line.y1(), line.x2(), line.y2(),
                                                                  centre.x(), centre.y(), radius);
    QCOMPARE(actual.size(), points.size());
    for (int i = 0; i < points.size(); ++i)
        QVERIFY2(QLineF(actual[i], points[i]).length() < 1e-9,
                 qPrintable(QString("%1: %2,%3").arg(i).arg(actual[i].x()).arg(actual[i].y())));
}

void TestGuiUtils::centresTopLevelWindowsOnly()
{
    UtilsDllTest::ScopedTestLogger logger;
    const QRect screen = QGuiApplication::primaryScreen()->geometry();

    QWidget window;
    window.resize(200, 100);
    moveWindowToScreenCenter(&window, nullptr);
    QCOMPARE(window.pos(), QPoint(screen.left() + (screen.width() - 200) / 2,
                                  screen.top() + (screen.height() - 100) / 2));

    // Larger than the screen: negative offsets, truncated toward zero.
    window.resize(screen.width() + 201, screen.height() + 101);
    moveWindowToScreenCenter(&window, &window);
    QCOMPARE(window.pos(), QPoint(screen.left() - 100, screen.top() - 50));
    QVERIFY(logger->lines().isEmpty());

    QWidget child(&window);
    child.move(3, 4);
    moveWindowToScreenCenter(&child, nullptr);
    QCOMPARE(child.pos(), QPoint(3, 4));
    moveWindowToScreenCenter(nullptr, nullptr);
    QCOMPARE(logger->linesAt('E').size(), 2);
    QVERIFY(logger->linesAt('E').first().endsWith(": Bug!!!"));

    // The screen's logical resolution over 96, in single precision.
    const float dpi = float(qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchX()));
    QCOMPARE(systemScalingFactor(), double(dpi / 96.0f));
}

void TestGuiUtils::transparencyLeavesTextRoles()
{
    QWidget widget;
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, Qt::red);
    widget.setPalette(palette);
    setWidgetFullTransparency(&widget);
    setWidgetFullTransparency(nullptr);
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (QPalette::ColorRole role : {QPalette::Window, QPalette::Button, QPalette::Base, QPalette::Light,
                                         QPalette::Midlight, QPalette::Dark, QPalette::Mid, QPalette::Shadow})
            QCOMPARE(widget.palette().color(group, role).alpha(), 0);
    }
    QCOMPARE(widget.palette().color(QPalette::Active, QPalette::WindowText), QColor(Qt::red));
}

UTILSDLL_TEST_MAIN_WITH(TestGuiUtils, QApplication)
#include "tst_guiutils.moc"
