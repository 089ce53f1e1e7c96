#pragma once

#include "UtilsDllGlobal.h"

#include <QDialog>
#include <QPoint>

// Base of the product's frameless dialogs: the style sheet paints the visible panel
// on a translucent window, and this class does what the missing title bar would,
// moving by mouse and centring on the first show.
class UTILSDLL_EXPORT CBaseDialog : public QDialog
{
    Q_OBJECT
public:
    CBaseDialog(QWidget* parent, Qt::WindowFlags flags);
    ~CBaseDialog() override;

    // For the host's scripting service, which reaches dialogs by name.
    Q_INVOKABLE QString getObjectName() const;

public Q_SLOTS:
    // Connection point of the scripting service; empty by design.
    void sendNotification();

protected:
    // Height of the band from the top edge where a press starts a drag; 0 = anywhere.
    void setHeaderHeight(int height);
    // Asked by the host's scripting service; nothing in the library calls it.
    virtual bool canUseInAATSignalService() const;

    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

    // The first-show step shared with dialogs that extend showEvent: centres once.
    void showFirstTime(QShowEvent* event);

private Q_SLOTS:
    void moveToScreenCenter();

private:
    bool m_firstShow = true;
    QPoint m_dragOffset;
    bool m_dragging = false;
    int m_headerHeight = 0;
};
