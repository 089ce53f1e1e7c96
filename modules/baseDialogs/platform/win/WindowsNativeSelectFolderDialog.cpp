#include "../../WindowsNativeSelectFolderDialog_p.h"

#include <windows.h>
#include <objbase.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <shobjidl.h>

#include <memory>

namespace {

// One folder dialog can be open at a time, and the OK button's window procedure must
// reach its state: hence module variables.
bool s_confirmed = false;
PWSTR s_currentFolder = nullptr; // file-system path of the folder shown, from the shell
HWND s_dialogWindow = nullptr;
HWND s_okButton = nullptr;
WNDPROC s_originalButtonProc = nullptr; // also the mark that the takeover is done

// Whether this thread joined a single-threaded apartment; decided once per process.
struct ComApartment
{
    explicit ComApartment(bool joined)
        : joined(joined)
    {
    }
    ~ComApartment()
    {
        if (joined)
            CoUninitialize();
    }
    bool joined;
};
std::unique_ptr<ComApartment> s_comApartment;

LRESULT CALLBACK okButtonProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    // Only a mouse release over the button confirms, with the folder being shown.
    if (message == WM_LBUTTONUP && window == s_okButton && s_dialogWindow && s_currentFolder) {
        s_confirmed = true;
        SendMessageW(s_dialogWindow, WM_CLOSE, 0, 0);
        return 0;
    }
    return CallWindowProcW(s_originalButtonProc, window, message, wParam, lParam);
}

class CDialogEventHandler final : public IFileDialogEvents
{
public:
    IFACEMETHODIMP QueryInterface(REFIID riid, void** object) override
    {
        static const QITAB interfaces[] = {
            QITABENT(CDialogEventHandler, IFileDialogEvents),
            {nullptr, 0},
        };
        return QISearch(this, interfaces, riid, object);
    }

    IFACEMETHODIMP_(ULONG) AddRef() override { return InterlockedIncrement(&m_refCount); }

    IFACEMETHODIMP_(ULONG) Release() override
    {
        const LONG count = InterlockedDecrement(&m_refCount);
        if (count == 0)
            delete this;
        return static_cast<ULONG>(count);
    }

    // Return, a double click on a file and the keyboard on the button are refused:
    // only the button's mouse release, which sets s_confirmed, ends with an answer.
    IFACEMETHODIMP OnFileOk(IFileDialog*) override { return s_confirmed ? S_OK : S_FALSE; }
    IFACEMETHODIMP OnFolderChanging(IFileDialog*, IShellItem*) override { return S_OK; }
    IFACEMETHODIMP OnFolderChange(IFileDialog* dialog) override;
    IFACEMETHODIMP OnSelectionChange(IFileDialog*) override { return S_OK; }
    IFACEMETHODIMP OnShareViolation(IFileDialog*, IShellItem*, FDE_SHAREVIOLATION_RESPONSE*) override
    {
        return S_OK;
    }
    IFACEMETHODIMP OnTypeChange(IFileDialog*) override { return S_OK; }
    IFACEMETHODIMP OnOverwrite(IFileDialog*, IShellItem*, FDE_OVERWRITE_RESPONSE*) override { return S_OK; }

private:
    ~CDialogEventHandler() = default;
    LONG m_refCount = 1;
};

IFACEMETHODIMP CDialogEventHandler::OnFolderChange(IFileDialog* dialog)
{
    IShellItem* folder = nullptr;
    if (SUCCEEDED(dialog->GetFolder(&folder))) {
        // The previous path is not freed here; a virtual folder stores null.
        s_currentFolder = nullptr;
        folder->GetDisplayName(SIGDN_FILESYSPATH, &s_currentFolder);
        folder->Release();
    }
    if (s_originalButtonProc)
        return S_OK; // the takeover happens once per dialog, when it opens

    IOleWindow* oleWindow = nullptr;
    if (FAILED(dialog->QueryInterface(IID_PPV_ARGS(&oleWindow))))
        return S_OK;
    if (SUCCEEDED(oleWindow->GetWindow(&s_dialogWindow))) {
        const HWND button = GetDlgItem(s_dialogWindow, IDOK);
        if (button != INVALID_HANDLE_VALUE) {
            s_okButton = button;
            s_originalButtonProc = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(button, GWLP_WNDPROC));
            SetWindowLongPtrW(button, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&okButtonProc));
        }
    }
    oleWindow->Release();
    return S_OK;
}

bool joinApartment()
{
    if (!s_comApartment) {
        const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
        s_comApartment = std::make_unique<ComApartment>(result >= 0);
    }
    return s_comApartment->joined;
}

void setStartFolder(IFileDialog* dialog, const std::wstring& folder)
{
    if (folder.empty())
        return;
    IShellItem* item = nullptr;
    if (SUCCEEDED(SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_PPV_ARGS(&item)))) {
        dialog->SetFolder(item);
        item->Release();
    }
}

bool forceFileSystem(IFileDialog* dialog)
{
    FILEOPENDIALOGOPTIONS options = 0;
    return SUCCEEDED(dialog->GetOptions(&options)) && SUCCEEDED(dialog->SetOptions(options | FOS_FORCEFILESYSTEM));
}

void createKnownFolderManager()
{
    IKnownFolderManager* manager = nullptr;
    if (SUCCEEDED(CoCreateInstance(CLSID_KnownFolderManager, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&manager))))
        manager->Release();
}

std::wstring takeAnswer()
{
    std::wstring answer;
    if (s_currentFolder) {
        if (s_confirmed)
            answer = s_currentFolder;
        CoTaskMemFree(s_currentFolder);
    }
    s_originalButtonProc = nullptr;
    s_currentFolder = nullptr;
    s_confirmed = false;
    return answer;
}

} // namespace

namespace VexaPlatform {

std::wstring runSelectFolderDialog(std::uintptr_t parentWindow, const std::wstring& buttonText,
                                   const std::wstring& typeName, const std::wstring& patterns,
                                   const std::wstring& title, const std::wstring& folder)
{
    if (!joinApartment())
        return std::wstring();

    IFileDialog* dialog = nullptr;
    if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&dialog))))
        return std::wstring();

    CDialogEventHandler* handler = new CDialogEventHandler();
    IFileDialogEvents* events = nullptr;
    const HRESULT queried = handler->QueryInterface(IID_PPV_ARGS(&events));
    handler->Release();
    DWORD cookie = 0;
    if (FAILED(queried) || FAILED(dialog->Advise(events, &cookie))) {
        if (events)
            events->Release();
        dialog->Release();
        return std::wstring();
    }

    const COMDLG_FILTERSPEC fileType = {typeName.c_str(), patterns.c_str()};
    dialog->SetFileTypes(1, &fileType);
    if (!buttonText.empty())
        dialog->SetOkButtonLabel(buttonText.c_str());
    if (!title.empty())
        dialog->SetTitle(title.c_str());
    setStartFolder(dialog, folder);

    std::wstring answer;
    if (forceFileSystem(dialog)) {
        createKnownFolderManager();
        // The outcome of Show is not looked at: the module variables decide.
        dialog->Show(reinterpret_cast<HWND>(parentWindow));
        answer = takeAnswer();
    }

    dialog->Unadvise(cookie);
    events->Release();
    dialog->Release();
    return answer;
}

} // namespace VexaPlatform
