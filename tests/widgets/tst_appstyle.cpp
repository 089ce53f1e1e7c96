#include "TestEnvironment.h"
#include "TestLogger.h"

#include "customvexaappstyle.h"

#include <QApplication>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTreeView>

#include <memory>

using Vexa::CustomVexaAppStyle;

namespace {

const char* const s_arrowRows[] = {"..++..++", "+..++..+", "++..++..", "+..++..+", "..++..++"};

bool isArrowColour(QRgb pixel)
{
    return qAlpha(pixel) == 255 && QColor(pixel) == QColor("#808080");
}

} // namespace

class TestAppStyle : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void suppressedPrimitives();
    void buttonShift_data();
    void buttonShift();
    void registryFollowsRenamesAndDeletion();
    void registryMisuseIsReported();
    void styleHints_data();
    void styleHints();
    void toolTipMaskCutsCorners();
    void extensionArrowMirrorsRightToLeft();

private:
    int baseShift() const;
    std::unique_ptr<CustomVexaAppStyle> m_style;
    std::unique_ptr<QStyle> m_windows;
};

void TestAppStyle::init()
{
    m_style = std::make_unique<CustomVexaAppStyle>();
    m_windows.reset(QStyleFactory::create("Windows"));
}

void TestAppStyle::cleanup()
{
    m_style.reset();
}

int TestAppStyle::baseShift() const
{
    return m_windows->pixelMetric(QStyle::PM_ButtonShiftHorizontal);
}

void TestAppStyle::suppressedPrimitives()
{
    QStyleOptionFocusRect option;
    option.rect = QRect(0, 0, 20, 20);
    option.palette = QApplication::palette();
    for (QStyle::PrimitiveElement element : {QStyle::PE_FrameFocusRect, QStyle::PE_IndicatorMenuCheckMark}) {
        QImage drawn(20, 20, QImage::Format_ARGB32);
        drawn.fill(Qt::transparent);
        QImage reference = drawn;
        {
            QPainter painter(&drawn);
            m_style->drawPrimitive(element, &option, &painter);
        }
        QCOMPARE(drawn, reference);
    }
    // The base style does draw a focus rectangle, so the comparison above means something.
    QImage base(20, 20, QImage::Format_ARGB32);
    base.fill(Qt::transparent);
    {
        QPainter painter(&base);
        m_windows->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter);
    }
    QImage empty(20, 20, QImage::Format_ARGB32);
    empty.fill(Qt::transparent);
    QVERIFY(base != empty);
    QCOMPARE(m_style->pixelMetric(QStyle::PM_SubMenuOverlap), -1);
}

void TestAppStyle::buttonShift_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("property");
    QTest::addColumn<bool>("registered");
    QTest::addColumn<bool>("shifted");

    QTest::newRow("plain named button") << "button" << QVariant() << false << true;
    QTest::newRow("property true") << "button" << QVariant(true) << false << false;
    QTest::newRow("property false counts too") << "button" << QVariant(false) << false << false;
    QTest::newRow("registered") << "button" << QVariant() << true << false;
    QTest::newRow("unnamed with property") << "" << QVariant(true) << false << true;
    QTest::newRow("unnamed, registered") << "" << QVariant() << true << true;
}

void TestAppStyle::buttonShift()
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
    const int expected = shifted ? baseShift() : 0;
    QCOMPARE(m_style->pixelMetric(QStyle::PM_ButtonShiftHorizontal, nullptr, &button), expected);
    QCOMPARE(m_style->pixelMetric(QStyle::PM_ButtonShiftVertical, nullptr, &button),
             shifted ? m_windows->pixelMetric(QStyle::PM_ButtonShiftVertical) : 0);
    // Registering an unnamed button is reported.
    QCOMPARE(logger->linesAt('E').size(), registered && name.isEmpty() ? 1 : 0);
    QCOMPARE(m_style->pixelMetric(QStyle::PM_ButtonShiftHorizontal, nullptr, nullptr), baseShift());
}

void TestAppStyle::registryFollowsRenamesAndDeletion()
{
    QVERIFY(baseShift() != 0);
    const auto shiftOf = [this](const QString& name) {
        QPushButton probe;
        probe.setObjectName(name);
        return m_style->pixelMetric(QStyle::PM_ButtonShiftHorizontal, nullptr, &probe);
    };

    auto* button = new QPushButton;
    button->setObjectName("first");
    m_style->disableButtonShift(button, true);
    QCOMPARE(shiftOf("first"), 0);

    button->setObjectName("second");
    QCOMPARE(shiftOf("first"), baseShift());
    QCOMPARE(shiftOf("second"), 0);

    // Renamed to nothing, it leaves for good: a later name is not registered.
    button->setObjectName("");
    QCOMPARE(shiftOf("second"), baseShift());
    button->setObjectName("third");
    QCOMPARE(shiftOf("third"), baseShift());

    button->setObjectName("fourth");
    m_style->disableButtonShift(button, true);
    QCOMPARE(shiftOf("fourth"), 0);
    delete button;
    QCOMPARE(shiftOf("fourth"), baseShift());

    // Enabling the shift again disconnects: a later rename does not re-register.
    QPushButton kept;
    kept.setObjectName("kept");
    m_style->disableButtonShift(&kept, true);
    m_style->disableButtonShift(&kept, false);
    QCOMPARE(shiftOf("kept"), baseShift());
    kept.setObjectName("renamed");
    QCOMPARE(shiftOf("renamed"), baseShift());
}

void TestAppStyle::registryMisuseIsReported()
{
    UtilsDllTest::ScopedTestLogger logger;
    QPushButton first;
    QPushButton second;
    first.setObjectName("twin");
    second.setObjectName("twin");
    m_style->disableButtonShift(&first, true);
    m_style->disableButtonShift(&second, true); // not registered, but exempt by its name
    QCOMPARE(m_style->pixelMetric(QStyle::PM_ButtonShiftHorizontal, nullptr, &second), 0);
    QVERIFY(logger->lines().isEmpty());

    // Taking out the name with the wrong button reports it and removes the entry.
    m_style->disableButtonShift(&second, false);
    QCOMPARE(logger->linesAt('E').size(), 1);
    QCOMPARE(m_style->pixelMetric(QStyle::PM_ButtonShiftHorizontal, nullptr, &first), baseShift());
    m_style->disableButtonShift(nullptr, true);
    QCOMPARE(logger->linesAt('E').size(), 1);
}

void TestAppStyle::styleHints_data()
{
    QTest::addColumn<int>("hint");
    QTest::addColumn<int>("expected");

    QTest::newRow("etch disabled text") << int(QStyle::SH_EtchDisabledText) << 0;
    QTest::newRow("menu active and disabled") << int(QStyle::SH_Menu_AllowActiveAndDisabled) << 0;
    QTest::newRow("progress cancel centred") << int(QStyle::SH_ProgressDialog_CenterCancelButton) << 1;
    QTest::newRow("menu bar alt key") << int(QStyle::SH_MenuBar_AltKeyNavigation) << 1;
    QTest::newRow("combo mouse tracking") << int(QStyle::SH_ComboBox_ListMouseTracking) << 1;
    QTest::newRow("menu mouse tracking") << int(QStyle::SH_Menu_MouseTracking) << 1;
    QTest::newRow("menu bar mouse tracking") << int(QStyle::SH_MenuBar_MouseTracking) << 1;
    QTest::newRow("slider absolute set") << int(QStyle::SH_Slider_AbsoluteSetButtons) << int(Qt::LeftButton);
    QTest::newRow("sub menu delay") << int(QStyle::SH_Menu_SubMenuPopupDelay) << 300;
}

void TestAppStyle::styleHints()
{
    QFETCH(int, hint);
    QFETCH(int, expected);
    QCOMPARE(m_style->styleHint(QStyle::StyleHint(hint)), expected);

    QTreeView tree;
    QListView list;
    const auto alternating = QStyle::SH_ItemView_PaintAlternatingRowColorsForEmptyArea;
    QCOMPARE(m_style->styleHint(alternating, nullptr, &tree), 0);
    QCOMPARE(m_style->styleHint(alternating, nullptr, &list), m_windows->styleHint(alternating, nullptr, &list));
}

void TestAppStyle::toolTipMaskCutsCorners()
{
    QStyleOption option;
    option.rect = QRect(0, 0, 10, 6);
    QStyleHintReturnMask mask;
    QCOMPARE(m_style->styleHint(QStyle::SH_ToolTip_Mask, &option, nullptr, &mask), 1);
    QCOMPARE(mask.region.boundingRect(), QRect(0, 0, 10, 6));
    for (const QPoint& corner : {QPoint(0, 0), QPoint(9, 0), QPoint(0, 5), QPoint(9, 5)})
        QVERIFY(!mask.region.contains(corner));
    for (const QPoint& inside : {QPoint(1, 0), QPoint(0, 1), QPoint(8, 5), QPoint(9, 4), QPoint(5, 3)})
        QVERIFY(mask.region.contains(inside));

    QCOMPARE(m_style->styleHint(QStyle::SH_ToolTip_Mask, &option, nullptr, nullptr),
             m_windows->styleHint(QStyle::SH_ToolTip_Mask, &option, nullptr, nullptr));
    QStyleHintReturnVariant other;
    QCOMPARE(m_style->styleHint(QStyle::SH_ToolTip_Mask, &option, nullptr, &other),
             m_windows->styleHint(QStyle::SH_ToolTip_Mask, &option, nullptr, &other));
}

void TestAppStyle::extensionArrowMirrorsRightToLeft()
{
    QStyleOption option;
    option.direction = Qt::LeftToRight;
    const QImage leftToRight =
        m_style->standardPixmap(QStyle::SP_ToolBarHorizontalExtensionButton, &option).toImage();
    option.direction = Qt::RightToLeft;
    const QImage rightToLeft =
        m_style->standardPixmap(QStyle::SP_ToolBarHorizontalExtensionButton, &option).toImage();
    QCOMPARE(leftToRight.size(), QSize(8, 5));
    QCOMPARE(rightToLeft.size(), QSize(8, 5));
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool coloured = s_arrowRows[y][x] == '.';
            QCOMPARE(isArrowColour(leftToRight.pixel(x, y)), coloured);
            QCOMPARE(qAlpha(leftToRight.pixel(x, y)), coloured ? 255 : 0);
            QCOMPARE(isArrowColour(rightToLeft.pixel(7 - x, y)), coloured);
        }
    }

    // Without an option the application's direction decides.
    QApplication::setLayoutDirection(Qt::RightToLeft);
    const QImage fromApplication = m_style->standardPixmap(QStyle::SP_ToolBarHorizontalExtensionButton).toImage();
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QCOMPARE(fromApplication, rightToLeft);
}

UTILSDLL_TEST_MAIN_WITH(TestAppStyle, QApplication)
#include "tst_appstyle.moc"
