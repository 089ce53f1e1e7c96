#include "TestEnvironment.h"
#include "TestLogger.h"

#include "ToolDrawing.h"
#include "ImageInk.h"

#include <QApplication>
#include <QPainter>

#include <functional>

namespace {

// A 10 by 4 tile: its first column blue, the rest red, so that tiles can be told apart.
QPixmap tile()
{
    QImage image(10, 4, QImage::Format_ARGB32);
    image.fill(Qt::red);
    for (int y = 0; y < 4; ++y)
        image.setPixel(0, y, qRgb(0, 0, 255));
    return QPixmap::fromImage(image);
}

QImage drawn(const std::function<void(QPainter&)>& paint)
{
    QImage image(120, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter);
    return image;
}

QImage line(const QPointF& a, const QPointF& b, bool stretch = false, const QRectF& clip = QRectF())
{
    return drawn([&](QPainter& painter) { drawToolLine(a, b, tile(), stretch, &painter, clip); });
}

using UtilsDllTest::inkRect;

QList<int> blueColumnsOnRow(const QImage& image, int y)
{
    QList<int> columns;
    for (int x = 0; x < image.width(); ++x)
        if (QColor(image.pixel(x, y)) == QColor(Qt::blue))
            columns << x;
    return columns;
}

} // namespace

class TestToolDrawing : public QObject
{
    Q_OBJECT
private slots:
    void tilesRepeatAndOvershoot();
    void clipping_data();
    void clipping();
    void swapsLinesPointingBackwards_data();
    void swapsLinesPointingBackwards();
    void slantedLinesMoveUp();
    void stretchAndPainterState();
    void cursorsAndIcons();
};

void TestToolDrawing::tilesRepeatAndOvershoot()
{
    const QImage image = line(QPointF(5, 20), QPointF(40, 20));
    // Length 35: tiles at 0, 10, 20, 30, the last running 5 pixels past the end.
    QCOMPARE(inkRect(image), QRect(5, 20, 40, 4));
    QCOMPARE(blueColumnsOnRow(image, 21), (QList<int>{5, 15, 25, 35}));
    // Vertical lines run upward, and are not shifted either.
    QCOMPARE(inkRect(line(QPointF(30, 80), QPointF(30, 50))), QRect(30, 40, 4, 40));

    QImage untouched = drawn([](QPainter& painter) {
        drawToolLine(QPointF(0, 0), QPointF(50, 0), QPixmap(), false, &painter, QRectF());
    });
    QVERIFY(inkRect(untouched).isNull());
    drawToolLine(QPointF(0, 0), QPointF(50, 0), tile(), false, nullptr, QRectF());
}

void TestToolDrawing::clipping_data()
{
    QTest::addColumn<QLineF>("segment");
    QTest::addColumn<QRectF>("clip");
    QTest::addColumn<QRect>("ink");

    const QRectF box(0, 0, 50, 50);
    QTest::newRow("inside") << QLineF(10, 20, 40, 20) << box << QRect(10, 20, 40, 4);
    // Cut at x = 50: length 40, five tiles, the last overshooting the edge.
    QTest::newRow("end outside") << QLineF(10, 20, 80, 20) << box << QRect(10, 20, 50, 4);
    QTest::newRow("start outside") << QLineF(-30, 20, 20, 20) << box << QRect(0, 20, 30, 4);
    QTest::newRow("no clip") << QLineF(10, 20, 80, 20) << QRectF() << QRect(10, 20, 80, 4);
    QTest::newRow("both ends outside, crossing") << QLineF(-10, 20, 80, 20) << box << QRect();
    QTest::newRow("both ends outside, empty clip") << QLineF(-10, 20, 80, 20) << QRectF(0, 0, 50, 0)
                                                   << QRect(0, 20, 90, 4);
}

void TestToolDrawing::clipping()
{
    QFETCH(QLineF, segment);
    QFETCH(QRectF, clip);
    QFETCH(QRect, ink);
    QCOMPARE(inkRect(line(segment.p1(), segment.p2(), false, clip)), ink);
}

void TestToolDrawing::swapsLinesPointingBackwards_data()
{
    QTest::addColumn<QLineF>("segment");
    QTest::addColumn<bool>("swapped");

    const QPointF centre(60, 50);
    const auto at = [centre](qreal angle) {
        QLineF segment(centre, centre + QPointF(30, 0));
        segment.setAngle(angle);
        return segment;
    };
    QTest::newRow("180") << QLineF(90, 50, 40, 50) << true;
    QTest::newRow("135 exactly") << at(135) << false;
    QTest::newRow("just above 135") << at(136) << true;
    QTest::newRow("just below 315") << at(314) << true;
    QTest::newRow("315 exactly") << at(315) << false;
    QTest::newRow("45, its reverse at 225 swapped") << at(45) << true;
}

void TestToolDrawing::swapsLinesPointingBackwards()
{
    QFETCH(QLineF, segment);
    QFETCH(bool, swapped);
    // A swapped line is drawn from its other end: exactly as the reversed line.
    const QImage forward = line(segment.p1(), segment.p2());
    const QImage reversed = line(segment.p2(), segment.p1());
    QVERIFY(!inkRect(forward).isNull());
    QCOMPARE(forward == reversed, swapped);
}

void TestToolDrawing::slantedLinesMoveUp()
{
    // At 45 degrees both ends go up by 2 (half the tile): the tile's lower edge,
    // which starts at the first point unshifted, starts 2 pixels higher.
    const QRect slanted = inkRect(line(QPointF(10, 60), QPointF(40, 30)));
    QVERIFY(!slanted.isNull());
    QVERIFY2(slanted.bottom() <= 61 && slanted.bottom() >= 59, qPrintable(QString::number(slanted.bottom())));
    QCOMPARE(slanted.left(), 10);
}

void TestToolDrawing::stretchAndPainterState()
{
    QCOMPARE(inkRect(line(QPointF(10, 20), QPointF(60, 20), true)), QRect(10, 20, 50, 4));

    QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::RenderHints());
    painter.translate(3, 4);
    const QTransform before = painter.transform();
    drawToolLine(QPointF(0, 0), QPointF(5, 5), tile(), false, &painter, QRectF());
    QCOMPARE(painter.transform(), before);
    QVERIFY(painter.testRenderHint(QPainter::SmoothPixmapTransform));
}

void TestToolDrawing::cursorsAndIcons()
{
    UtilsDllTest::ScopedTestLogger logger;
    QVERIFY(toolCursorPixmap(ToolCursorType(7)).isNull());
    QCOMPARE(logger->linesAt('E').size(), 1);
    QVERIFY(logger->linesAt('E').first().endsWith(": Bug!!!"));
    toolCursorPixmap(ToolCursorRotationBottom);
    QCOMPARE(logger->linesAt('E').size(), 1);

    QIcon icon;
    icon.addPixmap(QPixmap::fromImage(QImage(16, 32, QImage::Format_ARGB32)));
    icon.addPixmap(QPixmap::fromImage(QImage(32, 16, QImage::Format_ARGB32)));
    QCOMPARE(sizeOfIcon(icon, QIcon::Normal, QIcon::Off), QSize(32, 32));
    QCOMPARE(sizeOfIcon(QIcon(), QIcon::Normal, QIcon::Off), QSize(0, 0));

    QPixmap square(40, 40);
    square.fill(Qt::red);
    const QIcon squareIcon(square);
    const QImage kept = drawn([&](QPainter& painter) {
        paintIcon(&painter, squareIcon, QRect(0, 0, 100, 20), Qt::KeepAspectRatio, QIcon::Normal, QIcon::Off);
    });
    QCOMPARE(inkRect(kept), QRect(40, 0, 20, 20));
    const QImage ignored = drawn([&](QPainter& painter) {
        paintIcon(&painter, squareIcon, QRect(0, 0, 100, 20), Qt::IgnoreAspectRatio, QIcon::Normal, QIcon::Off);
    });
    QVERIFY(!inkRect(ignored).isNull());
    QVERIFY(QRect(0, 0, 100, 20).contains(inkRect(ignored)));
}

UTILSDLL_TEST_MAIN_WITH(TestToolDrawing, QApplication)
#include "tst_tooldrawing.moc"
