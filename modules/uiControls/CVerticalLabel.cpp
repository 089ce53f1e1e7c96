#include "CVerticalLabel.h"

#include <QPainter>

CVerticalLabel::CVerticalLabel(QWidget* parent)
    : QLabel(parent)
{
}

CVerticalLabel::CVerticalLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
}

void CVerticalLabel::setLeftMargin(int margin)
{
    m_leftMargin = margin;
}

void CVerticalLabel::setTopMargin(int margin)
{
    m_topMargin = margin;
}

void CVerticalLabel::paintEvent(QPaintEvent*)
{
    // No QLabel painting: neither its frame nor its alignment apply.
    QPainter painter(this);
    painter.rotate(270);
    // m_leftMargin moves the text up along the label, m_topMargin to the right.
    painter.drawText(m_leftMargin - height(), font().pixelSize() + m_topMargin, text());
}

QSize CVerticalLabel::sizeHint() const
{
    return QLabel::sizeHint().transposed();
}

QSize CVerticalLabel::minimumSizeHint() const
{
    return QLabel::minimumSizeHint().transposed();
}
