#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace WinTest {

namespace fs = std::filesystem;

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

// Writes a new file; an existing one is left alone and reported.
inline bool writeFile(const std::wstring& path, const std::string& content)
{
    return !fs::exists(path) && bool(std::ofstream(fs::path(path), std::ios::binary) << content);
}

// A fresh folder under the temporary folder, removed with what it holds.
class TemporaryFolder
{
public:
    TemporaryFolder() { fs::create_directory(m_path); }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::wstring path() const { return m_path.wstring(); }
    std::wstring filePath(const std::wstring& name) const { return (m_path / name).wstring(); }

private:
    const fs::path m_path = fs::temp_directory_path()
        / (L"utilsdll-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(GetTickCount64()));
};

} // namespace WinTest
