#pragma once

#include <windows.h>

#include <string>

namespace WinTest {

// Wine exports this from its ntdll; Windows does not. Expectations that only Windows
// can show are skipped or left out under Wine, with the reason written beside them.
inline bool runningOnWine()
{
    const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll && GetProcAddress(ntdll, "wine_get_version");
}

inline std::wstring hostExecutable()
{
    wchar_t path[MAX_PATH] = {};
    return std::wstring(path, GetModuleFileNameW(nullptr, path, MAX_PATH)); // Wine may leave it unterminated
}

inline bool sameTextIgnoringCase(const std::wstring& a, const std::wstring& b)
{
    return CompareStringOrdinal(a.c_str(), int(a.size()), b.c_str(), int(b.size()), TRUE) == CSTR_EQUAL;
}

inline bool exists(const std::wstring& path, DWORD attribute = 0)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & attribute) == attribute;
}

inline bool writeFile(const std::wstring& path, const std::string& content)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    const bool ok = file != INVALID_HANDLE_VALUE
        && WriteFile(file, content.data(), DWORD(content.size()), &written, nullptr) && written == content.size();
    CloseHandle(file);
    return ok;
}

// A fresh folder under the temporary folder, removed with the files it holds.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        wchar_t base[MAX_PATH] = {};
        m_path = std::wstring(base, GetTempPathW(MAX_PATH, base)) + L"utilsdll-"
            + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(GetTickCount64());
        CreateDirectoryW(m_path.c_str(), nullptr);
    }
    ~TemporaryFolder()
    {
        WIN32_FIND_DATAW entry;
        const HANDLE search = FindFirstFileW(filePath(L"*").c_str(), &entry);
        for (BOOL more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &entry))
            DeleteFileW(filePath(entry.cFileName).c_str()); // "." and ".." are no files: refused
        FindClose(search);
        RemoveDirectoryW(m_path.c_str());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::wstring& path() const { return m_path; }
    std::wstring filePath(const std::wstring& name) const { return m_path + L'\\' + name; }

private:
    std::wstring m_path;
};

} // namespace WinTest
