#include "ToolsPage.h"

#include "DelayedCall.h"
#include "ToolDrawing.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

#include <functional>

namespace {

const char* const s_logo = ":/icons/app_icon_rectivo/logo_256.png";

// Paints through the library's drawing helpers, whatever 'paint' draws.
class DrawingBox : public QWidget
{
public:
    DrawingBox(const QSize& size, std::function<void(QPainter&, const QRect&)> paint)
        : m_paint(std::move(paint))
    {
        setFixedSize(size);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(0x2b, 0x2b, 0x2b));
        m_paint(painter, rect());
    }

private:
    std::function<void(QPainter&, const QRect&)> m_paint;
};

// One dash and one gap: repeated it draws a dashed line, stretched a half-solid one.
QPixmap linePiece()
{
    QPixmap piece(24, 6);
    piece.fill(Qt::transparent);
    QPainter(&piece).fillRect(0, 0, 12, 6, QColor(0x6a, 0x9a, 0xc4));
    return piece;
}

QWidget* toolLine(bool stretch)
{
    return new DrawingBox(QSize(320, 40), [stretch](QPainter& painter, const QRect& area) {
        const QPixmap piece = linePiece();
        drawToolLine(QPointF(10, area.height() / 2.0), QPointF(area.width() - 10, area.height() / 2.0), piece, stretch,
                     &painter, QRectF());
    });
}

QWidget* iconInMode(Qt::AspectRatioMode mode)
{
    return new DrawingBox(QSize(120, 60), [mode](QPainter& painter, const QRect& area) {
        paintIcon(&painter, QIcon(s_logo), area.adjusted(4, 4, -4, -4), mode, QIcon::Normal, QIcon::Off);
    });
}

} // namespace

ToolsPage::ToolsPage(QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);

    m_cursorsTitle = new QLabel;
    layout->addWidget(m_cursorsTitle);
    auto* cursors = new QHBoxLayout;
    for (int type = ToolCursorDiagonalLeft; type <= ToolCursorRotationBottom; ++type) {
        auto* cursor = new QLabel;
        cursor->setObjectName(QStringLiteral("cursor%1").arg(type));
        cursor->setPixmap(toolCursorPixmap(static_cast<ToolCursorType>(type)).scaled(46, 48));
        cursors->addWidget(cursor);
    }
    cursors->addStretch(1);
    layout->addLayout(cursors);

    m_linesTitle = new QLabel;
    layout->addWidget(m_linesTitle);
    auto* lines = new QHBoxLayout;
    lines->addWidget(toolLine(false));
    lines->addWidget(toolLine(true));
    lines->addStretch(1);
    layout->addLayout(lines);

    m_iconsTitle = new QLabel;
    layout->addWidget(m_iconsTitle);
    auto* icons = new QHBoxLayout;
    for (Qt::AspectRatioMode mode : {Qt::IgnoreAspectRatio, Qt::KeepAspectRatio, Qt::KeepAspectRatioByExpanding})
        icons->addWidget(iconInMode(mode));
    icons->addStretch(1);
    layout->addLayout(icons);

    m_debounceTitle = new QLabel;
    m_field = new QLineEdit;
    m_field->setObjectName("debouncedField");
    m_debounced = new QLabel;
    m_debounced->setObjectName("debouncedText");
    // Every key press re-arms the call: the text shows once typing pauses.
    connect(m_field, &QLineEdit::textEdited, this,
            [this] { CDelayedCall::invoke(s_debounceMs, this, "showDebouncedText"); });
    layout->addWidget(m_debounceTitle);
    layout->addWidget(m_field);
    layout->addWidget(m_debounced);
    layout->addStretch(1);
    retranslate();
}

void ToolsPage::showDebouncedText()
{
    ++m_debouncedCount;
    m_debouncedText = m_field->text();
    showDebounceCount();
}

void ToolsPage::showDebounceCount()
{
    if (m_debouncedCount > 0)
        m_debounced->setText(tr("\"%1\" (shown %n time(s))", nullptr, m_debouncedCount).arg(m_debouncedText));
}

void ToolsPage::retranslate()
{
    m_cursorsTitle->setText(tr("The seven tool cursors"));
    m_linesTitle->setText(tr("A tool line, tiled and stretched"));
    m_iconsTitle->setText(tr("An icon ignoring, keeping and expanding its aspect"));
    m_debounceTitle->setText(tr("A debounced field: the text below follows once typing pauses"));
    showDebounceCount();
}
