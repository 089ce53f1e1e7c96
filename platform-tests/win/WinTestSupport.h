#pragma once

// Small helpers shared by the Windows seam tests.

#include <windows.h>

#include <string>

namespace WinTest {

// Wine exports this from its ntdll; Windows does not. Expectations that only Windows
// can show are skipped under Wine with the reason written beside them. Where Wine
// differs from Windows:
// - a rename that only changes the case of a name succeeds but keeps the old name;
// - every process can be opened, so passing over those of other users is not shown;
// - the shell delete goes to the desktop's trash (or deletes), not to a recycle bin;
// - a module name that fills the buffer is left unterminated: only lengths count.
inline bool runningOnWine()
{
    const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll && GetProcAddress(ntdll, "wine_get_version");
}

inline std::wstring hostExecutable()
{
    wchar_t path[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path, length); // Wine leaves a truncated name unterminated
}

inline std::wstring folderOf(const std::wstring& path)
{
    return path.substr(0, path.find_last_of(L"\\/"));
}

inline std::wstring fileNameOf(const std::wstring& path)
{
    return path.substr(path.find_last_of(L"\\/") + 1);
}

inline bool sameTextIgnoringCase(const std::wstring& a, const std::wstring& b)
{
    return CompareStringOrdinal(a.c_str(), int(a.size()), b.c_str(), int(b.size()), TRUE) == CSTR_EQUAL;
}

inline bool endsWithIgnoringCase(const std::wstring& text, const std::wstring& tail)
{
    return text.size() >= tail.size() && sameTextIgnoringCase(text.substr(text.size() - tail.size()), tail);
}

inline DWORD attributesOf(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str());
}

inline bool isFolder(const std::wstring& path)
{
    const DWORD attributes = attributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

inline bool exists(const std::wstring& path)
{
    return attributesOf(path) != INVALID_FILE_ATTRIBUTES;
}

inline std::wstring environment(const wchar_t* name)
{
    wchar_t value[MAX_PATH * 2] = {};
    const DWORD length = GetEnvironmentVariableW(name, value, MAX_PATH * 2);
    return length < MAX_PATH * 2 ? std::wstring(value, length) : std::wstring();
}

// Writes a file with the given bytes; true on success.
inline bool writeFile(const std::wstring& path, const std::string& content)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    DWORD written = 0;
    const BOOL ok = WriteFile(file, content.data(), DWORD(content.size()), &written, nullptr);
    CloseHandle(file);
    return ok && written == content.size();
}

inline std::string readFile(const std::wstring& path)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return std::string();
    char buffer[256];
    DWORD got = 0;
    std::string content;
    while (ReadFile(file, buffer, sizeof(buffer), &got, nullptr) && got)
        content.append(buffer, got);
    CloseHandle(file);
    return content;
}

// A fresh folder under the temporary folder, removed with what it holds (one level).
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        wchar_t base[MAX_PATH] = {};
        const DWORD length = GetTempPathW(MAX_PATH, base);
        m_path = std::wstring(base, length) + L"utilsdll-" + std::to_wstring(GetCurrentProcessId()) + L"-"
            + std::to_wstring(GetTickCount64());
        CreateDirectoryW(m_path.c_str(), nullptr);
    }
    ~TemporaryFolder()
    {
        WIN32_FIND_DATAW entry;
        const HANDLE search = FindFirstFileW((m_path + L"\\*").c_str(), &entry);
        if (search != INVALID_HANDLE_VALUE) {
            do {
                const std::wstring name = entry.cFileName;
                if (name != L"." && name != L"..")
                    DeleteFileW(filePath(name).c_str());
            } while (FindNextFileW(search, &entry));
            FindClose(search);
        }
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
