#include "IconViewer_p.h"

#include "ImageHolders_p.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>

struct CIconViewer::Private
{
    bool showShadow = true;
    Qt::AspectRatioMode aspectRatio = Qt::KeepAspectRatio;
    std::unique_ptr<IImageHolder> imageHolder;
    QSize mandatoryImageSize = QSize(-1, -1);
    QString text;
    bool expandContent = false;
    const int alignment = Qt::AlignCenter; // no operation changes it
};

CIconViewer::CIconViewer(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    watchParent(d->showShadow);
}

CIconViewer::~CIconViewer() = default;

QPixmap CIconViewer::pixmap() const
{
    return d->imageHolder ? d->imageHolder->pixmap() : QPixmap();
}

QIcon CIconViewer::icon() const
{
    return d->imageHolder ? d->imageHolder->icon() : QIcon();
}

bool CIconViewer::expandContent() const
{
    return d->expandContent;
}

bool CIconViewer::showShadow() const
{
    return d->showShadow;
}

Qt::AspectRatioMode CIconViewer::aspectRatio() const
{
    return d->aspectRatio;
}

QSize CIconViewer::mandatoryImageSize() const
{
    return d->mandatoryImageSize;
}

QString CIconViewer::text() const
{
    return d->text;
}

void CIconViewer::clear()
{
    // Only the geometry is refreshed: the old picture stays until the next repaint.
    d->imageHolder.reset();
    updateGeometry();
}

void CIconViewer::setShowShadow(bool bSet)
{
    if (d->showShadow == bSet)
        return;
    d->showShadow = bSet;
    if (parentWidget()) {
        if (bSet)
            parentWidget()->installEventFilter(this);
        else
            parentWidget()->removeEventFilter(this);
        parentWidget()->update();
    }
}

void CIconViewer::setAspectRatio(Qt::AspectRatioMode t)
{
    if (d->aspectRatio == t)
        return;
    d->aspectRatio = t;
    update();
}

void CIconViewer::setIcon(const QIcon& i)
{
    d->imageHolder.reset(i.isNull() ? nullptr : new CIconImageHolder(i));
    updateGeometry();
    update();
}

void CIconViewer::setIcon(const QString& strFile)
{
    setIcon(QIcon(strFile));
}

void CIconViewer::setPixmap(const QPixmap& p)
{
    d->imageHolder.reset(p.isNull() ? nullptr : new CPixmapImageHolder(p));
    updateGeometry();
    update();
}

void CIconViewer::setPixmap(const QString& strFile)
{
    setPixmap(QPixmap(strFile));
}

void CIconViewer::setMandatoryImageSize(const QSize& s)
{
    if (d->mandatoryImageSize == s)
        return;
    d->mandatoryImageSize = s;
    updateGeometry();
    update();
}

void CIconViewer::setText(const QString& s)
{
    if (d->text == s)
        return;
    d->text = s;
    update();
}

void CIconViewer::setExpandContent(bool bSet)
{
    if (d->expandContent == bSet)
        return;
    d->expandContent = bSet;
    update();
}

QSize CIconViewer::imageSize() const
{
    if (d->mandatoryImageSize.width() >= 0 && d->mandatoryImageSize.height() >= 0)
        return d->mandatoryImageSize;
    if (d->imageHolder)
        return d->imageHolder->size();
    return QSize(-1, -1);
}

QRectF CIconViewer::imageRect(const QRectF& area) const
{
    QRectF result;
    if (area.width() <= 0 || area.height() <= 0)
        return result;
    if (d->aspectRatio == Qt::IgnoreAspectRatio)
        return area;
    QSizeF size(imageSize());
    if (size.width() < 0 || size.height() < 0)
        return result;
    // Without expandContent a small image keeps its size; only a large one shrinks.
    if (d->expandContent || size.height() > area.height() || size.width() > area.width())
        size.scale(area.size(), d->aspectRatio);
    result.setSize(size);
    if (d->alignment & Qt::AlignVCenter)
        result.moveTop(area.y() + (area.height() - size.height()) * 0.5);
    if (d->alignment & Qt::AlignHCenter)
        result.moveLeft(area.x() + (area.width() - size.width()) * 0.5);
    else if (d->alignment & Qt::AlignRight)
        result.moveLeft(area.x() + area.width() - size.width());
    return result;
}

QRect CIconViewer::contentsArea() const
{
    return contentsRect();
}

QSize CIconViewer::minimumSizeHint() const
{
    QSize hint(100, 100);
    if (d->mandatoryImageSize.width() >= 0 && d->mandatoryImageSize.height() >= 0)
        hint = d->mandatoryImageSize;
    else if (d->imageHolder && d->imageHolder->size().width() >= 0 && d->imageHolder->size().height() >= 0)
        hint = d->imageHolder->size();
    const QMargins margins = contentsMargins();
    return hint + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

QSize CIconViewer::sizeHint() const
{
    return minimumSizeHint();
}

void CIconViewer::watchParent(bool watch)
{
    if (!d->showShadow || !parentWidget())
        return;
    if (watch)
        parentWidget()->installEventFilter(this);
    else
        parentWidget()->removeEventFilter(this);
}

bool CIconViewer::event(QEvent* event)
{
    if (event->type() == QEvent::ParentAboutToChange)
        watchParent(false);
    const bool result = QWidget::event(event);
    if (event->type() == QEvent::ParentChange)
        watchParent(true);
    return result;
}

bool CIconViewer::eventFilter(QObject* object, QEvent* event)
{
    // The parent is painted a second time over itself before the viewer; no shadow is
    // drawn despite the property's name. Kept: the property and this delivery stay.
    if (d->showShadow && event->type() == QEvent::Paint && object == parentWidget()
        && !imageRect(QRectF(contentsArea())).isEmpty()) {
        QWidget* parent = parentWidget();
        parent->removeEventFilter(this);
        QCoreApplication::sendEvent(parent, event);
        parent->installEventFilter(this);
    }
    return QWidget::eventFilter(object, event);
}

void CIconViewer::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    QPainter painter(this);
    const QRectF area(contentsArea());
    if (!d->imageHolder)
        return;
    const QRectF rect = imageRect(area);
    if (rect.width() <= 0 || rect.height() <= 0)
        return;
    d->imageHolder->paint(&painter, rect, isEnabled());
    if (d->text.isEmpty())
        return;
    const QPen savedPen = painter.pen();
    painter.setPen(palette().text().color());
    painter.drawText(rect, Qt::AlignCenter, d->text);
    painter.setPen(savedPen);
}
