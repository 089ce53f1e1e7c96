#pragma once

#include "UtilsDllGlobal.h"

#include <QLabel>

/// \file
/// \brief A label whose text runs from the bottom up.

/// \brief A label whose text runs from the bottom up.
///
/// Give its font in pixels: the pixel size places the baseline, and a font in points
/// has the pixel size -1.
class UTILSDLL_EXPORT CVerticalLabel : public QLabel
{
    Q_OBJECT
public:
    /// An empty label.
    explicit CVerticalLabel(QWidget* parent = nullptr);
    /// A label showing \p text.
    explicit CVerticalLabel(const QString& text, QWidget* parent = nullptr);

    /// Sets the space left of the text. Stored only: the change shows at the next repaint.
    void setLeftMargin(int margin);
    /// Sets the space above the text. Stored only: the change shows at the next repaint.
    void setTopMargin(int margin);

    /// QLabel's size hint turned on its side.
    QSize sizeHint() const override;
    /// QLabel's minimum size hint turned on its side.
    QSize minimumSizeHint() const override;

protected:
    /// Draws the text rotated a quarter turn anticlockwise.
    void paintEvent(QPaintEvent* event) override;

private:
    int m_leftMargin = 0;
    int m_topMargin = 0;
};
