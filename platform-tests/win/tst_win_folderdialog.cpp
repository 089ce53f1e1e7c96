// The folder chooser's event handler and OK button procedure. The file is included so
// that its module state and private handler can be reached; the full dialog is then
// driven by a thread timer that its modal loop dispatches.

#include "platform/win/WindowsNativeSelectFolderDialog.cpp"

#include "WinTestSupport.h"

#include <gtest/gtest.h>

#include <functional>

using namespace WinTest;

namespace {

IFileDialogEvents* newHandler()
{
    CDialogEventHandler* handler = new CDialogEventHandler();
    IFileDialogEvents* events = nullptr;
    handler->QueryInterface(IID_PPV_ARGS(&events));
    handler->Release();
    return events;
}

// What the timer saw while the dialog was open.
struct DialogProbe
{
    std::function<void(DialogProbe&)> act; // runs once, when the takeover is done
    bool acted = false;
    int ticks = 0;
    bool confirmedByKeyboard = false;
    bool confirmedByOtherMessages = false;
    bool confirmedWithoutFolder = false;
    HRESULT fileOkBefore = E_FAIL;
    HRESULT fileOkAfter = E_FAIL;
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
    if (probe.acted)
        return;
    if (++probe.ticks > 100) { // no takeover after ten seconds: give up, close all
        probe.acted = true;
        EnumThreadWindows(GetCurrentThreadId(), closeThreadWindow, 0);
        return;
    }
    if (!s_originalButtonProc || !s_okButton || !s_dialogWindow)
        return;
    probe.acted = true;
    probe.shownFolder = s_currentFolder ? s_currentFolder : L"";
    probe.act(probe);
}

std::wstring runDialog(DialogProbe& probe, const std::wstring& folder)
{
    s_probe = &probe;
    const UINT_PTR timer = SetTimer(nullptr, 0, 100, onTimer);
    const std::wstring answer = VexaPlatform::runSelectFolderDialog(0, L"Select Folder", L"Image Files",
                                                                     L"*.jpg;*.tif", L"Pick", folder);
    KillTimer(nullptr, timer);
    s_probe = nullptr;
    return answer;
}

// Every way of pressing OK but the mouse release over it, then the release.
void pressOkInEveryWay(DialogProbe& probe)
{
    IFileDialogEvents* handler = newHandler();
    probe.fileOkBefore = handler->OnFileOk(nullptr);

    SendMessageW(s_okButton, WM_KEYDOWN, VK_SPACE, 0);
    SendMessageW(s_okButton, WM_KEYUP, VK_SPACE, 0);
    probe.confirmedByKeyboard = s_confirmed;

    SendMessageW(s_okButton, WM_MOUSEMOVE, 0, MAKELPARAM(2, 2));
    SendMessageW(s_okButton, WM_RBUTTONUP, 0, MAKELPARAM(2, 2));
    // The same procedure on another window: not the OK button.
    CallWindowProcW(okButtonProc, s_dialogWindow, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
    probe.confirmedByOtherMessages = s_confirmed;

    // A virtual folder has no file-system path: the release is not taken as confirmation.
    PWSTR shown = s_currentFolder;
    s_currentFolder = nullptr;
    SendMessageW(s_okButton, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
    probe.confirmedWithoutFolder = s_confirmed;
    s_currentFolder = shown;

    SendMessageW(s_okButton, WM_LBUTTONUP, 0, MAKELPARAM(2, 2)); // confirms and closes
    probe.fileOkAfter = handler->OnFileOk(nullptr);
    handler->Release();
}

} // namespace

TEST(FolderDialogHandler, AnswersOnlyForFileDialogEvents)
{
    IFileDialogEvents* events = newHandler();
    ASSERT_NE(events, nullptr);
    IUnknown* unknown = nullptr;
    EXPECT_EQ(events->QueryInterface(IID_PPV_ARGS(&unknown)), S_OK);
    EXPECT_EQ(unknown, static_cast<IUnknown*>(events));
    IFileDialogControlEvents* other = nullptr;
    EXPECT_EQ(events->QueryInterface(IID_PPV_ARGS(&other)), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(unknown->Release(), 1u);
    EXPECT_EQ(events->AddRef(), 2u);
    EXPECT_EQ(events->Release(), 1u);

    EXPECT_EQ(events->OnFolderChanging(nullptr, nullptr), S_OK);
    EXPECT_EQ(events->OnSelectionChange(nullptr), S_OK);
    EXPECT_EQ(events->OnTypeChange(nullptr), S_OK);
    EXPECT_EQ(events->Release(), 0u);
}

TEST(FolderDialogHandler, FileOkRefusesUntilConfirmed)
{
    IFileDialogEvents* events = newHandler();
    ASSERT_FALSE(s_confirmed);
    EXPECT_EQ(events->OnFileOk(nullptr), S_FALSE); // the dialog stays open
    s_confirmed = true;
    EXPECT_EQ(events->OnFileOk(nullptr), S_OK);
    s_confirmed = false;
    events->Release();
}

TEST(FolderDialog, OnlyTheMouseReleaseOverOkConfirms)
{
    TemporaryFolder folder;
    DialogProbe probe;
    probe.act = pressOkInEveryWay;
    const std::wstring answer = runDialog(probe, folder.path());

    ASSERT_TRUE(probe.acted);
    ASSERT_LE(probe.ticks, 100) << "the dialog never reported its folder";
    EXPECT_TRUE(sameTextIgnoringCase(probe.shownFolder, folder.path()));
    EXPECT_EQ(probe.fileOkBefore, S_FALSE);
    EXPECT_FALSE(probe.confirmedByKeyboard);
    EXPECT_FALSE(probe.confirmedByOtherMessages);
    EXPECT_FALSE(probe.confirmedWithoutFolder);
    EXPECT_EQ(probe.fileOkAfter, S_OK);
    EXPECT_TRUE(sameTextIgnoringCase(answer, folder.path()));
    // Back to idle for the next dialog.
    EXPECT_FALSE(s_confirmed);
    EXPECT_EQ(s_currentFolder, nullptr);
    EXPECT_EQ(s_originalButtonProc, nullptr);
}

TEST(FolderDialog, ClosingWithoutConfirmingAnswersNothing)
{
    TemporaryFolder folder;
    DialogProbe probe;
    probe.act = [](DialogProbe&) { SendMessageW(s_dialogWindow, WM_CLOSE, 0, 0); };
    EXPECT_EQ(runDialog(probe, folder.path()), L"");
    EXPECT_TRUE(probe.acted);
    EXPECT_LE(probe.ticks, 100);
    EXPECT_TRUE(sameTextIgnoringCase(probe.shownFolder, folder.path()));
}
