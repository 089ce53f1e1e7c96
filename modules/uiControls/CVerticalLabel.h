#pragma once

#include "UtilsDllGlobal.h"

#include <QLabel>

// A label whose text runs from the bottom up. Give its font in pixels: the pixel
// size places the baseline, and a font in points has the pixel size -1.
class UTILSDLL_EXPORT CVerticalLabel : public QLabel
{
    Q_OBJECT
public:
    explicit CVerticalLabel(QWidget* parent = nullptr);
    explicit CVerticalLabel(const QString& text, QWidget* parent = nullptr);

    // Stored only: the change shows at the next repaint.
    void setLeftMargin(int margin);
    void setTopMargin(int margin);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_leftMargin = 0;
    int m_topMargin = 0;
};
