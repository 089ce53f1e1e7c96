#pragma once

#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QSize>

class QPainter;

// What a CIconViewer shows: an icon or a pixmap, behind one interface.
class IImageHolder
{
public:
    virtual ~IImageHolder() = default;
    virtual void paint(QPainter* painter, const QRectF& rect, bool enabled) = 0;
    virtual QSize size() const = 0;
    virtual QIcon icon() const = 0;
    virtual QPixmap pixmap() const = 0;
};

class CIconImageHolder : public IImageHolder
{
public:
    explicit CIconImageHolder(const QIcon& icon);
    void paint(QPainter* painter, const QRectF& rect, bool enabled) override;
    // Largest width and largest height of the available sizes, taken separately;
    // (-1, -1) for an icon with none, such as one with only a scalable source.
    QSize size() const override;
    QIcon icon() const override;
    QPixmap pixmap() const override;

private:
    QIcon m_icon;
};

class CPixmapImageHolder : public IImageHolder
{
public:
    explicit CPixmapImageHolder(const QPixmap& pixmap);
    void paint(QPainter* painter, const QRectF& rect, bool enabled) override;
    QSize size() const override;
    QIcon icon() const override;
    QPixmap pixmap() const override;

private:
    QPixmap m_pixmap;
    QPixmap m_disabledPixmap; // made on the first disabled paint, kept for life
};
