// The folder chooser's event handler and OK button procedure, reached by including its
// file; the full dialog is driven by a thread timer that its modal loop dispatches.

#include "platform/win/WindowsNativeSelectFolderDialog.cpp"

#include "WinTestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace WinTest;

namespace {

// What the timer did and saw while the dialog was open. Each step runs on a tick of
// its own once the takeover is done, so a step runs only if the dialog is still open.
struct DialogProbe
{
    std::vector<std::function<void(DialogProbe&)>> steps;
    std::size_t stepsDone = 0;
    int ticks = 0;
    std::wstring shownFolder;
};
DialogProbe* s_probe = nullptr;

BOOL CALLBACK closeThreadWindow(HWND window, LPARAM)
{
    PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD)
{
    DialogProbe& probe = *s_probe;
    if (probe.stepsDone == probe.steps.size())
        return;
    if (++probe.ticks > 100) { // stuck for ten seconds: give up and close everything
        probe.steps.resize(probe.stepsDone);
        EnumThreadWindows(GetCurrentThreadId(), closeThreadWindow, 0);
        return;
    }
    if (!s_originalButtonProc || !s_okButton || !s_dialogWindow)
        return;
    if (probe.stepsDone == 0)
        probe.shownFolder = s_currentFolder ? s_currentFolder : L"";
    probe.steps[probe.stepsDone++](probe);
}

std::wstring runDialog(DialogProbe& probe, const std::wstring& folder)
{
    s_probe = &probe;
    const std::size_t planned = probe.steps.size();
    const UINT_PTR timer = SetTimer(nullptr, 0, 100, onTimer);
    const std::wstring answer = VexaPlatform::runSelectFolderDialog(0, L"Select Folder", L"Image Files",
                                                                     L"*.jpg;*.tif", L"Pick", folder);
    KillTimer(nullptr, timer);
    s_probe = nullptr;
    EXPECT_EQ(probe.stepsDone, planned) << "the dialog closed early or never took over its button";
    return answer;
}

BOOL CALLBACK typeIntoEdit(HWND window, LPARAM text)
{
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (lstrcmpiW(className, L"Edit") != 0)
        return TRUE;
    SendMessageW(window, WM_SETTEXT, 0, text);
    return FALSE;
}

// Return with a file named in the dialog: the dialog asks OnFileOk, which refuses, so
// it stays open for the next step.
void pressReturnOnFile(DialogProbe&)
{
    EnumChildWindows(s_dialogWindow, typeIntoEdit, reinterpret_cast<LPARAM>(L"photo.jpg"));
    SendMessageW(s_dialogWindow, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(s_okButton));
}

// Every way of pressing OK but the mouse release over it, then the release.
void pressOkInEveryWay(DialogProbe&)
{
    SendMessageW(s_okButton, WM_KEYDOWN, VK_SPACE, 0);
    SendMessageW(s_okButton, WM_KEYUP, VK_SPACE, 0);
    EXPECT_FALSE(s_confirmed) << "by keyboard";

    SendMessageW(s_okButton, WM_MOUSEMOVE, 0, MAKELPARAM(2, 2));
    SendMessageW(s_okButton, WM_RBUTTONUP, 0, MAKELPARAM(2, 2));
    // The same procedure on another window: not the OK button.
    CallWindowProcW(okButtonProc, s_dialogWindow, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
    EXPECT_FALSE(s_confirmed) << "by other messages";

    // A virtual folder has no file-system path: the release is not taken as confirmation.
    PWSTR shown = s_currentFolder;
    s_currentFolder = nullptr;
    SendMessageW(s_okButton, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
    EXPECT_FALSE(s_confirmed) << "without a folder";
    s_currentFolder = shown;

    SendMessageW(s_okButton, WM_LBUTTONUP, 0, MAKELPARAM(2, 2)); // confirms and closes
}

} // namespace

TEST(FolderDialog, OnlyTheMouseReleaseOverOkConfirmsAndClosingAnswersNothing)
{
    TemporaryFolder folder;
    ASSERT_TRUE(writeFile(folder.filePath(L"photo.jpg"), "jpeg"));
    DialogProbe probe;
    probe.steps = {pressReturnOnFile, pressOkInEveryWay};
    const std::wstring answer = runDialog(probe, folder.path());
    EXPECT_TRUE(sameTextIgnoringCase(probe.shownFolder, folder.path()));
    // The folder shown, not the file named; then back to idle for the next dialog.
    EXPECT_TRUE(sameTextIgnoringCase(answer, folder.path()));
    EXPECT_FALSE(s_confirmed);
    EXPECT_EQ(s_currentFolder, nullptr);
    EXPECT_EQ(s_originalButtonProc, nullptr);

    DialogProbe closing;
    closing.steps = {[](DialogProbe&) { SendMessageW(s_dialogWindow, WM_CLOSE, 0, 0); }};
    EXPECT_EQ(runDialog(closing, folder.path()), L"");
}
