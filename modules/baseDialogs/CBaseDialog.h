#pragma once

#include "UtilsDllGlobal.h"

#include <QDialog>
#include <QPoint>

/// \file
/// \brief The base of the product's frameless dialogs.

/// \brief Base of the product's frameless dialogs.
///
/// The style sheet paints the visible panel on a translucent window, and this class
/// does what the missing title bar would: moving by mouse and centring on the first
/// show. GUI thread only.
class UTILSDLL_EXPORT CBaseDialog : public QDialog
{
    Q_OBJECT
public:
    /// A frameless, translucent dialog with \p flags, less the minimise, maximise and
    /// help buttons.
    CBaseDialog(QWidget* parent, Qt::WindowFlags flags);
    ~CBaseDialog() override;

    /// The object name, for the host's scripting service, which reaches dialogs by name.
    Q_INVOKABLE QString getObjectName() const;

public Q_SLOTS:
    /// Connection point of the scripting service; empty by design.
    void sendNotification();

protected:
    /// Height of the band from the top edge where a press starts a drag; 0 = anywhere.
    void setHeaderHeight(int height);
    /// Asked by the host's scripting service; nothing in the library calls it.
    virtual bool canUseInAATSignalService() const;

    /// A left press in the header band starts a drag.
    void mousePressEvent(QMouseEvent* event) override;
    /// Ends a drag.
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// Moves the dialog with the pointer while a drag runs.
    void mouseMoveEvent(QMouseEvent* event) override;
    /// Calls showFirstTime().
    void showEvent(QShowEvent* event) override;

    /// The first-show step shared with dialogs that extend showEvent(): sizes the dialog
    /// and centres it on its parent's screen. Later shows skip it, so a dialog shown
    /// again stays where it was left.
    void showFirstTime(QShowEvent* event);

private Q_SLOTS:
    void moveToScreenCenter();

private:
    bool m_firstShow = true;
    QPoint m_dragOffset;
    bool m_dragging = false;
    int m_headerHeight = 0;
};
