#include "customvexaappstyle.h"

#include "Log.h"

#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTableView>
#include <QTreeView>

namespace VEXA_NAMESPACE {

namespace {

// The tool bar extension arrow, 8 by 5: '.' is the colour, '+' transparency.
const char* const s_extensionRows[] = {"..++..++", "+..++..+", "++..++..", "+..++..+", "..++..++"};

QImage extensionArrowImage()
{
    QImage image(8, 5, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const QRgb colour = QColor("#808080").rgba();
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 8; ++x)
            if (s_extensionRows[y][x] == '.')
                image.setPixel(x, y, colour);
    return image;
}

const QPixmap& mirroredExtensionArrow()
{
    static const QPixmap mirrored =
        QPixmap::fromImage(extensionArrowImage().convertToFormat(QImage::Format_ARGB32).mirrored(true, false));
    return mirrored;
}

} // namespace

struct CustomVexaAppStyle::Private
{
    QTableView itemViewStandIn; // never shown: item drawing is done as for a plain table
    QPixmap extensionPixmap = QPixmap::fromImage(extensionArrowImage());
    QHash<QString, const QWidget*> nonShiftedButtons;
};

CustomVexaAppStyle::CustomVexaAppStyle()
    : d(std::make_unique<Private>())
{
    setBaseStyle(QStyleFactory::create("Windows"));
}

CustomVexaAppStyle::~CustomVexaAppStyle() = default;

const char* CustomVexaAppStyle::disableButtonShiftPropertyName()
{
    return "disableButtonShiftProperty";
}

void CustomVexaAppStyle::disableButtonShift(const QWidget* button, bool disable)
{
    if (!button)
        return;
    const QString name = button->objectName();
    ASSERT(!name.isEmpty()); // carries on with the empty key
    if (disable) {
        if (d->nonShiftedButtons.contains(name))
            return;
        d->nonShiftedButtons.insert(name, button);
        connect(button, &QObject::destroyed, this, &CustomVexaAppStyle::onNonShiftedButtonDestroy);
        connect(button, &QObject::objectNameChanged, this, &CustomVexaAppStyle::onNonShiftedButtonObjectNameChanged);
    } else {
        if (!d->nonShiftedButtons.contains(name))
            return;
        forgetButton(name, button);
        disconnect(button, nullptr, this, nullptr);
    }
}

void CustomVexaAppStyle::forgetButton(const QString& name, const QObject* button)
{
    ASSERT(d->nonShiftedButtons.value(name) == button);
    d->nonShiftedButtons.remove(name);
}

void CustomVexaAppStyle::onNonShiftedButtonDestroy(QObject* object)
{
    // The widget part is gone by now: the name is read from the QObject, which still holds it.
    const QString name = object->objectName();
    if (d->nonShiftedButtons.contains(name))
        forgetButton(name, object);
}

void CustomVexaAppStyle::onNonShiftedButtonObjectNameChanged(const QString& name)
{
    const auto* button = qobject_cast<const QWidget*>(sender());
    if (!button)
        return;
    // The key is the old name: find the entry by its value.
    const QString oldName = d->nonShiftedButtons.key(button);
    if (!d->nonShiftedButtons.contains(oldName) || d->nonShiftedButtons.value(oldName) != button) {
        ASSERT(false);
        return;
    }
    d->nonShiftedButtons.remove(oldName);
    disconnect(button, nullptr, this, nullptr);
    // Renamed to the empty text, a button leaves the registry for good.
    if (!name.isEmpty())
        disableButtonShift(button, true);
}

void CustomVexaAppStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                       const QWidget* widget) const
{
    if (element == PE_FrameFocusRect || element == PE_IndicatorMenuCheckMark)
        return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void CustomVexaAppStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                     const QWidget* widget) const
{
    // Every item view draws its items as a plain table view does.
    if (option && option->type == QStyleOption::SO_ViewItem
        && !(widget && widget->metaObject() == &QTableView::staticMetaObject))
        widget = &d->itemViewStandIn;
    QProxyStyle::drawControl(element, option, painter, widget);
}

int CustomVexaAppStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        // The name comes first: an unnamed widget keeps its shift even with the property.
        if (widget && !widget->objectName().isEmpty()
            && (d->nonShiftedButtons.contains(widget->objectName())
                || widget->property(disableButtonShiftPropertyName()).isValid()))
            return 0;
        break;
    case PM_SubMenuOverlap:
        return -1;
    default:
        break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int CustomVexaAppStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                  QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_Menu_AllowActiveAndDisabled:
        return 0;
    case SH_ProgressDialog_CenterCancelButton:
    case SH_MenuBar_AltKeyNavigation:
    case SH_ComboBox_ListMouseTracking:
    case SH_Menu_MouseTracking:
    case SH_MenuBar_MouseTracking:
        return 1;
    case SH_Slider_AbsoluteSetButtons:
        return Qt::LeftButton; // a left click sets the slider to the clicked position
    case SH_Menu_SubMenuPopupDelay:
        return 300;
    case SH_ToolTip_Mask:
        if (option && returnData && returnData->version <= 1 && returnData->type == QStyleHintReturn::SH_Mask) {
            // The tool tip's rectangle with each corner pixel cut off; w and h are one
            // less than the true width and height.
            const int w = option->rect.right() - option->rect.left();
            const int h = option->rect.bottom() - option->rect.top();
            QRegion mask(1, 1, w - 1, h - 1);
            mask |= QRegion(0, 1, w + 1, h - 1);
            mask |= QRegion(1, 0, w - 1, h + 1);
            static_cast<QStyleHintReturnMask*>(returnData)->region = mask;
            return 1;
        }
        break;
    case SH_ItemView_PaintAlternatingRowColorsForEmptyArea:
        if (qobject_cast<const QTreeView*>(widget))
            return 0;
        break;
    default:
        break;
    }
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

QPixmap CustomVexaAppStyle::standardPixmap(StandardPixmap pixmap, const QStyleOption* option,
                                           const QWidget* widget) const
{
    if (pixmap == SP_ToolBarHorizontalExtensionButton) {
        const Qt::LayoutDirection direction =
            option ? option->direction : (QGuiApplication::isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        return direction == Qt::LeftToRight ? d->extensionPixmap : mirroredExtensionArrow();
    }
    return QProxyStyle::standardPixmap(pixmap, option, widget);
}

} // namespace VEXA_NAMESPACE
