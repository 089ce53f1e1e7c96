#pragma once

#include "UtilsDllGlobal.h"

#include "CBaseDialog.h"

#include <memory>

/// \file
/// \brief The product's about boxes.

/// \brief The product's about box: logos, name, version and the open-source licence
/// texts found in "Licenses" beside the application.
///
/// Create it with new and show() it: it deletes itself on close, and closes when it
/// loses activation after having had it. The first two licence texts are read at once;
/// the rest come from a reader thread of the dialog's own while it is open.
class UTILSDLL_EXPORT CAboutDlg : public CBaseDialog
{
    Q_OBJECT
public:
    /// Builds the box and starts reading the licence texts; \p flags go to CBaseDialog.
    CAboutDlg(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    /// Stops the reader thread of the licence texts.
    ~CAboutDlg() override;

    /// Appends a blank and \p name to the product name; an empty name changes nothing.
    void updateProductName(const QString& name);

protected:
    /// Starts watching activation, so that the box closes once it loses it.
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void addFileContents(const QString& contents);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// \brief The about box shown inside the sibling product family.
///
/// A fixed splash-like panel with a link to the acknowledgements. It closes and deletes
/// itself as CAboutDlg does.
class UTILSDLL_EXPORT CAboutSorelDlg : public CBaseDialog
{
    Q_OBJECT
public:
    /// Builds the panel; \p flags go to CBaseDialog.
    CAboutSorelDlg(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~CAboutSorelDlg() override;

protected:
    /// Starts watching activation, so that the panel closes once it loses it.
    void showEvent(QShowEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
