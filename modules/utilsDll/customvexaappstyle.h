#pragma once

#include "UtilsDllGlobal.h"

#include <QProxyStyle>

#include <memory>

/// \file
/// \brief The application style of the product.

namespace VEXA_NAMESPACE {

/// \brief The style the product installs on its application, over Qt's "Windows" style.
///
/// It settles what the style sheets cannot: no focus rectangles or menu check marks,
/// buttons without press shift on request, a few hints, tool tips with cut corners.
/// Install it with QApplication::setStyle(), which takes ownership, on the GUI thread.
class UTILSDLL_EXPORT CustomVexaAppStyle : public QProxyStyle
{
    Q_OBJECT
public:
    /// A proxy over a new "Windows" style.
    CustomVexaAppStyle();
    ~CustomVexaAppStyle() override;

    /// \brief Exempts \p button from the press shift, or puts it back, by its object name.
    ///
    /// The name is what counts: every widget of that name is exempt, and a button
    /// without a name keeps its shift. The entry is dropped when the button is
    /// destroyed or renamed.
    void disableButtonShift(const QWidget* button, bool disable);
    /// A named button carrying this dynamic property, with any value, is exempt as well.
    static const char* disableButtonShiftPropertyName();

    /// Draws no focus rectangles and no menu check marks; the rest as the base style.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    /// Draws the items of every item view as a plain table view's; the rest as the
    /// base style.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    /// No press shift for exempt buttons; a sub-menu overlap of -1, which leaves the
    /// placement of sub-menus to Qt's menu.
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    /// \brief The product's hints.
    ///
    /// No etched disabled text, mouse tracking in menus and combo lists, a left click
    /// that sets a slider to the clicked position, a 300 ms sub-menu delay, the tool tip
    /// mask with its corner pixels cut off, and no alternating rows below a tree view's
    /// items.
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;
    /// The product's own arrow for the tool bar's extension button, mirrored for
    /// right-to-left layouts.
    QPixmap standardPixmap(StandardPixmap pixmap, const QStyleOption* option = nullptr,
                           const QWidget* widget = nullptr) const override;

private Q_SLOTS:
    void onNonShiftedButtonDestroy(QObject* object);
    void onNonShiftedButtonObjectNameChanged(const QString& name);

private:
    struct Private;
    void forgetButton(const QString& name, const QObject* button);
    std::unique_ptr<Private> d;
};

} // namespace VEXA_NAMESPACE
