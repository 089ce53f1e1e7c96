#pragma once

#include "UtilsDllGlobal.h"

#include "CBaseDialog.h"

#include <memory>

namespace Ui {
class HostWarningDlg;
}

/// \file
/// \brief The warning shown in a host that cannot take back a changed image.

/// \brief Asked when the plug-in runs in a host that cannot take back a changed image.
///
/// The user quits, or tries the software knowing that nothing can be saved. Run it with
/// exec() and read hasUserChosenToQuit(). A check box unfolds an explanation.
class UTILSDLL_EXPORT CHostWarningDlg : public CBaseDialog
{
    Q_OBJECT
public:
    /// Builds the dialog in the language in force; it does not retranslate itself later.
    explicit CHostWarningDlg(QWidget* parent);
    ~CHostWarningDlg() override;

    /// True if the Quit button ended the dialog; Try and Escape both mean trying.
    bool hasUserChosenToQuit() const;

private Q_SLOTS:
    void onShowExplanatoryCheckBox(bool show);
    void onQuitClicked();

private:
    void fitHeight(bool expanded);

    bool m_hasUserChosenToQuit = false;
    std::unique_ptr<Ui::HostWarningDlg> m_ui;
};
