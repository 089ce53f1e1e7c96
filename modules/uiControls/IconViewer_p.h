#pragma once

#include <QIcon>
#include <QPixmap>
#include <QWidget>

#include <memory>

class IImageHolder;

// Shows one icon or pixmap scaled into its contents rectangle, with an optional
// text over it. Internal to the library: the dialogs' forms use it for their icons.
class CIconViewer : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QPixmap pixmap READ pixmap WRITE setPixmap)
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon)
    Q_PROPERTY(bool expandContent READ expandContent WRITE setExpandContent)
    Q_PROPERTY(bool showShadow READ showShadow WRITE setShowShadow)
    Q_PROPERTY(Qt::AspectRatioMode aspectRatio READ aspectRatio WRITE setAspectRatio)
    Q_PROPERTY(QSize mandatoryImageSize READ mandatoryImageSize WRITE setMandatoryImageSize)
    Q_PROPERTY(QString text READ text WRITE setText)
public:
    explicit CIconViewer(QWidget* parent = nullptr);
    ~CIconViewer() override;

    QPixmap pixmap() const;
    QIcon icon() const;
    bool expandContent() const;
    bool showShadow() const;
    Qt::AspectRatioMode aspectRatio() const;
    QSize mandatoryImageSize() const;
    QString text() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void clear();
    void setShowShadow(bool bSet);
    void setAspectRatio(Qt::AspectRatioMode t);
    void setIcon(const QIcon& i);
    void setIcon(const QString& strFile);
    void setPixmap(const QPixmap& p);
    void setPixmap(const QString& strFile);
    void setMandatoryImageSize(const QSize& s = QSize(-1, -1));
    void setText(const QString& s = QString());
    void setExpandContent(bool bSet);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    // The area the image is fitted into; a subclass may narrow it.
    virtual QRect contentsArea() const;

private:
    struct Private;
    QSize imageSize() const;
    QRectF imageRect(const QRectF& area) const;
    void watchParent(bool watch);

    std::unique_ptr<Private> d;
};
