#pragma once

#include "UtilsDllGlobal.h"

#include "CBaseDialog.h"

#include <memory>

// The product's about box: logos, name, version and the open-source licence texts
// found in "Licenses" beside the application. Create it with new and show() it: it
// deletes itself on close, and closes when it loses activation after having had it.
class UTILSDLL_EXPORT CAboutDlg : public CBaseDialog
{
    Q_OBJECT
public:
    CAboutDlg(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~CAboutDlg() override;

    // Appends a blank and 'name' to the product name; an empty name changes nothing.
    void updateProductName(const QString& name);

protected:
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void addFileContents(const QString& contents);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// The about box shown inside the sibling product family: a fixed splash-like panel
// with a link to the acknowledgements. It closes and deletes itself as CAboutDlg does.
class UTILSDLL_EXPORT CAboutSorelDlg : public CBaseDialog
{
    Q_OBJECT
public:
    CAboutSorelDlg(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~CAboutSorelDlg() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
