#include "../KnownFolders_p.h"

#include <windows.h>
#include <knownfolders.h>
#include <shlobj.h>

namespace VexaPlatform {

namespace {

const KNOWNFOLDERID& folderId(KnownFolder folder)
{
    return folder == KnownFolder::ProgramData ? FOLDERID_ProgramData : FOLDERID_LocalAppData;
}

} // namespace

std::wstring knownFolderSubPath(KnownFolder folder, const std::wstring& first, const std::wstring& second)
{
    PWSTR raw = nullptr;
    const HRESULT result = SHGetKnownFolderPath(folderId(folder), 0, nullptr, &raw);
    std::wstring base;
    if (SUCCEEDED(result) && raw)
        base = raw;
    CoTaskMemFree(raw);
    if (base.empty())
        return std::wstring();
    return base + L'\\' + first + L'\\' + second;
}

std::wstring commonPicturesFolder()
{
    wchar_t buffer[MAX_PATH + 1] = {};
    if (!SHGetSpecialFolderPathW(nullptr, buffer, CSIDL_COMMON_PICTURES, TRUE))
        return std::wstring();
    return std::wstring(buffer);
}

} // namespace VexaPlatform
