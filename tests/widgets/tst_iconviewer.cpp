#include "TestEnvironment.h"

#include "CVerticalLabel.h"
#include "IconViewer.h"
#include "ImageInk.h"

#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>

Q_DECLARE_METATYPE(Qt::AspectRatioMode)

namespace {

QPixmap solidPixmap(const QSize& size, const QColor& colour = Qt::red)
{
    QPixmap pixmap(size);
    pixmap.fill(colour);
    return pixmap;
}

// A 300 by 300 viewer whose contents area is the square (100, 100, 100, 100).
void frameViewer(CIconViewer& viewer)
{
    viewer.resize(300, 300);
    viewer.setContentsMargins(100, 100, 100, 100);
}

QImage renderViewer(QWidget& widget)
{
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

using UtilsDllTest::inkRect;

class PaintCounter : public QWidget
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

} // namespace

class TestIconViewer : public QObject
{
    Q_OBJECT
private slots:
    void imageRectangle_data();
    void imageRectangle();
    void scalableIconHasNoSize();
    void textNeedsAnImage();
    void disabledPixmapIsGreyed();
    void parentIsPaintedTwiceWhileShadowIsOn();
    void verticalLabelSwapsHints();
};

void TestIconViewer::imageRectangle_data()
{
    QTest::addColumn<bool>("asIcon");
    QTest::addColumn<QSize>("imageSize");
    QTest::addColumn<QSize>("mandatory");
    QTest::addColumn<bool>("expand");
    QTest::addColumn<Qt::AspectRatioMode>("aspect");
    QTest::addColumn<QRect>("expected");

    const QSize unset(-1, -1);
    QTest::newRow("large icon, mandatory size")
        << true << QSize(512, 512) << QSize(34, 34) << false << Qt::KeepAspectRatio << QRect(133, 133, 34, 34);
    QTest::newRow("large icon shrinks")
        << true << QSize(512, 512) << unset << false << Qt::KeepAspectRatio << QRect(100, 100, 100, 100);
    QTest::newRow("small pixmap keeps its size")
        << false << QSize(20, 10) << unset << false << Qt::KeepAspectRatio << QRect(140, 145, 20, 10);
    QTest::newRow("small pixmap expanded")
        << false << QSize(20, 10) << unset << true << Qt::KeepAspectRatio << QRect(100, 125, 100, 50);
    QTest::newRow("ignoring aspect fills the area")
        << false << QSize(20, 10) << unset << false << Qt::IgnoreAspectRatio << QRect(100, 100, 100, 100);
    QTest::newRow("expanding overflows, centred")
        << false << QSize(20, 10) << unset << true << Qt::KeepAspectRatioByExpanding << QRect(50, 100, 200, 100);
    QTest::newRow("wide pixmap shrinks")
        << false << QSize(400, 200) << unset << false << Qt::KeepAspectRatio << QRect(100, 125, 100, 50);
}

void TestIconViewer::imageRectangle()
{
    QFETCH(bool, asIcon);
    QFETCH(QSize, imageSize);
    QFETCH(QSize, mandatory);
    QFETCH(bool, expand);
    QFETCH(Qt::AspectRatioMode, aspect);
    QFETCH(QRect, expected);

    CIconViewer viewer;
    frameViewer(viewer);
    if (asIcon)
        viewer.setIcon(QIcon(solidPixmap(imageSize)));
    else
        viewer.setPixmap(solidPixmap(imageSize));
    viewer.setMandatoryImageSize(mandatory);
    viewer.setExpandContent(expand);
    viewer.setAspectRatio(aspect);
    QCOMPARE(inkRect(renderViewer(viewer)), expected);
    const QSize hintImage = mandatory.isValid() ? mandatory : imageSize;
    QCOMPARE(viewer.sizeHint(), hintImage + QSize(200, 200));
}

void TestIconViewer::scalableIconHasNoSize()
{
    QTemporaryDir folder;
    const QString file = folder.filePath("square.svg");
    QFile svg(file);
    QVERIFY(svg.open(QIODevice::WriteOnly));
    svg.write("<svg xmlns='http://www.w3.org/2000/svg' width='10' height='10'>"
              "<rect width='10' height='10' fill='red'/></svg>");
    svg.close();

    CIconViewer viewer;
    frameViewer(viewer);
    viewer.setIcon(file);
    QVERIFY(!viewer.icon().isNull());
    QCOMPARE(viewer.sizeHint(), QSize(300, 300));
    QVERIFY(inkRect(renderViewer(viewer)).isNull());

    viewer.setMandatoryImageSize(QSize(34, 34));
    QCOMPARE(inkRect(renderViewer(viewer)), QRect(133, 133, 34, 34));

    viewer.setPixmap(QString("/no/such/file.png"));
    QVERIFY(viewer.pixmap().isNull());
    QVERIFY(viewer.icon().isNull());
}

void TestIconViewer::textNeedsAnImage()
{
    CIconViewer viewer;
    frameViewer(viewer);
    viewer.setText("Text");
    QVERIFY(inkRect(renderViewer(viewer)).isNull());

    QPalette palette = viewer.palette();
    palette.setColor(QPalette::Text, Qt::blue);
    viewer.setPalette(palette);
    viewer.setPixmap(solidPixmap(QSize(100, 100), QColor(255, 0, 0, 0)));
    const QImage image = renderViewer(viewer);
    QVERIFY(!inkRect(image).isNull());
    QVERIFY(QRect(100, 100, 100, 100).contains(inkRect(image)));
}

void TestIconViewer::disabledPixmapIsGreyed()
{
    CIconViewer viewer;
    frameViewer(viewer);
    viewer.setPixmap(solidPixmap(QSize(100, 100)));
    const QPoint inside(150, 150);
    QCOMPARE(QColor(renderViewer(viewer).pixel(inside)), QColor(Qt::red));

    viewer.setEnabled(false);
    const QColor disabled(renderViewer(viewer).pixel(inside));
    QVERIFY(disabled.red() == disabled.green() && disabled.green() == disabled.blue());
    QCOMPARE(QColor(renderViewer(viewer).pixel(inside)), disabled);

    viewer.setEnabled(true);
    QCOMPARE(QColor(renderViewer(viewer).pixel(inside)), QColor(Qt::red));
}

void TestIconViewer::parentIsPaintedTwiceWhileShadowIsOn()
{
    PaintCounter first;
    PaintCounter second;
    first.resize(100, 100);
    second.resize(100, 100);
    auto* viewer = new CIconViewer(&first);
    viewer->resize(50, 50);
    viewer->setPixmap(solidPixmap(QSize(10, 10)));

    const auto paintsOf = [](PaintCounter& parent) {
        parent.paints = 0;
        renderViewer(parent);
        return parent.paints;
    };
    QCOMPARE(paintsOf(first), 2);
    viewer->setShowShadow(false);
    QCOMPARE(paintsOf(first), 1);
    viewer->setShowShadow(true);
    QCOMPARE(paintsOf(first), 2);

    viewer->setParent(&second);
    QCOMPARE(paintsOf(first), 1);
    QCOMPARE(paintsOf(second), 2);

    // Nothing to show: the parent is painted once.
    viewer->clear();
    viewer->setMandatoryImageSize(QSize(0, 0));
    QCOMPARE(paintsOf(second), 1);
}

void TestIconViewer::verticalLabelSwapsHints()
{
    QLabel plain("Vertical text");
    CVerticalLabel vertical("Vertical text");
    QCOMPARE(vertical.sizeHint(), plain.sizeHint().transposed());
    QCOMPARE(vertical.minimumSizeHint(), plain.minimumSizeHint().transposed());

    // The text runs upwards from the bottom edge: ink only in the lower part.
    QFont font = vertical.font();
    font.setPixelSize(12);
    vertical.setFont(font);
    vertical.resize(20, 200);
    QImage image(vertical.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    vertical.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    const QRect ink = inkRect(image);
    QVERIFY(!ink.isNull());
    QVERIFY2(ink.height() > ink.width(), "text is not vertical");
    QVERIFY(ink.bottom() >= 190);
    QVERIFY(ink.top() > 50);
}

UTILSDLL_TEST_MAIN_WITH(TestIconViewer, QApplication)
#include "tst_iconviewer.moc"
