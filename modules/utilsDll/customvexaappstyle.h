#pragma once

#include "UtilsDllGlobal.h"

#include <QProxyStyle>

#include <memory>

namespace VEXA_NAMESPACE {

// The style the product installs on its application, over Qt's "Windows" style. It
// settles what the style sheets cannot: no focus rectangles or menu check marks,
// buttons without press shift on request, a few hints, rounded tool tips.
class UTILSDLL_EXPORT CustomVexaAppStyle : public QProxyStyle
{
    Q_OBJECT
public:
    CustomVexaAppStyle();
    ~CustomVexaAppStyle() override;

    // Exempts a button from the press shift, or puts it back, by its object name.
    void disableButtonShift(const QWidget* button, bool disable);
    // A button carrying this dynamic property, with any value, is exempt as well.
    static const char* disableButtonShiftPropertyName();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;
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
