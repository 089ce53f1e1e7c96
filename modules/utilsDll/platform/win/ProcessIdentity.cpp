#include "../ProcessIdentity_p.h"

#include <windows.h>
#include <psapi.h>

#include <cstring>
#include <cwchar>

namespace VexaPlatform {

namespace {

constexpr DWORD kMaxProcesses = 1024;
constexpr DWORD kProcessAccess = PROCESS_QUERY_INFORMATION | PROCESS_VM_READ; // 0x410
constexpr WORD kVersionResourceName = 1;

// A name that fills the buffer is cut and terminated by Windows but left unterminated
// by Wine: the text ends at the returned length or at the first zero, if sooner.
std::wstring textOf(const wchar_t* buffer, DWORD length)
{
    return std::wstring(buffer, wcsnlen(buffer, length));
}

std::wstring firstModuleBaseName(HANDLE process)
{
    wchar_t name[MAX_PATH] = {};
    HMODULE module = nullptr;
    DWORD needed = 0;
    DWORD length = 0;
    if (EnumProcessModules(process, &module, sizeof(module), &needed))
        length = GetModuleBaseNameW(process, module, name, MAX_PATH);
    return textOf(name, length);
}

} // namespace

std::wstring currentProcessBaseName()
{
    wchar_t name[MAX_PATH] = {};
    const DWORD length = GetModuleBaseNameW(GetCurrentProcess(), nullptr, name, MAX_PATH);
    return textOf(name, length);
}

std::wstring processImagePath(const std::function<bool(const std::wstring& baseName)>& matches)
{
    DWORD processIds[kMaxProcesses] = {};
    DWORD bytesReturned = 0;
    if (!EnumProcesses(processIds, sizeof(processIds), &bytesReturned) || bytesReturned < sizeof(DWORD))
        return std::wstring();

    const DWORD count = bytesReturned / sizeof(DWORD);
    for (DWORD i = 0; i < count; ++i) {
        if (processIds[i] == 0)
            continue;
        HANDLE process = OpenProcess(kProcessAccess, FALSE, processIds[i]);
        if (!process)
            continue; // the normal case for processes of other users
        if (!matches(firstModuleBaseName(process))) {
            CloseHandle(process);
            continue;
        }
        // The search ends at the first match, even if its path cannot be had.
        wchar_t path[MAX_PATH] = {};
        const DWORD length = GetModuleFileNameExW(process, nullptr, path, MAX_PATH);
        CloseHandle(process);
        return textOf(path, length);
    }
    return std::wstring();
}

FixedFileVersion executableFileVersion(const std::wstring& path)
{
    // Loaded and deliberately never freed: the host's executable stays mapped for
    // the rest of the process, and a repeated call only raises the reference count.
    HMODULE module = LoadLibraryW(path.c_str());
    if (!module)
        return FixedFileVersion();

    HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(kVersionResourceName), MAKEINTRESOURCEW(16));
    if (!resource)
        return FixedFileVersion();
    const DWORD size = SizeofResource(module, resource);
    if (size == 0)
        return FixedFileVersion();
    HGLOBAL loaded = LoadResource(module, resource);
    if (!loaded)
        return FixedFileVersion();
    const void* data = LockResource(loaded);
    if (!data)
        return FixedFileVersion();

    // VerQueryValueW wants a writable copy of the block.
    HLOCAL copy = LocalAlloc(0, size);
    if (!copy)
        return FixedFileVersion();
    std::memcpy(copy, data, size);
    FreeResource(loaded);

    VS_FIXEDFILEINFO* fixedInfo = nullptr;
    UINT fixedInfoSize = 0;
    if (!VerQueryValueW(copy, L"\\", reinterpret_cast<LPVOID*>(&fixedInfo), &fixedInfoSize) || !fixedInfo)
        return FixedFileVersion(); // the block is left allocated on this path, as it always was

    FixedFileVersion version;
    version.found = true;
    version.fileVersionMS = fixedInfo->dwFileVersionMS;
    version.fileVersionLS = fixedInfo->dwFileVersionLS;
    LocalFree(copy);
    return version;
}

} // namespace VexaPlatform
