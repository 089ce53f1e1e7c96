// Known folders, the shell delete, the rename and the loaded module's file name, through
// the real Win32 calls of the seam.
#include "platform/FileManagement.h"
#include "platform/KnownFolders.h"
#include "platform/ModuleFile.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace VexaPlatform;
namespace fs = std::filesystem;

namespace {

std::wstring environment(const wchar_t* name)
{
    const wchar_t* value = _wgetenv(name);
    return value ? value : L"";
}

bool sameTextIgnoringCase(const std::wstring& a, const std::wstring& b)
{
    return CompareStringOrdinal(a.c_str(), int(a.size()), b.c_str(), int(b.size()), TRUE) == CSTR_EQUAL;
}

// Writes a new file; an existing one is left alone and reported.
bool writeFile(const std::wstring& path, const std::string& content)
{
    return !fs::exists(path) && bool(std::ofstream(fs::path(path), std::ios::binary) << content);
}

// A fresh folder under the temporary folder, removed with what it holds.
struct TemporaryFolder
{
    const fs::path path = fs::temp_directory_path()
        / (L"utilsdll-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(GetTickCount64()));
    TemporaryFolder() { fs::create_directory(path); }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    std::wstring filePath(const std::wstring& name) const { return (path / name).wstring(); }
};

} // namespace

TEST(KnownFolders, RestOnTheSystemFolders)
{
    // The environment of every Windows process (and of Wine's) names the folders too.
    for (const auto& [folder, variable] : {std::pair{KnownFolder::LocalAppData, L"LOCALAPPDATA"},
                                           std::pair{KnownFolder::ProgramData, L"ProgramData"}}) {
        SCOPED_TRACE(testing::Message() << "folder " << int(folder));
        const std::wstring base = environment(variable);
        ASSERT_TRUE(fs::is_directory(base));
        const std::wstring path = knownFolderSubPath(folder, L"VexaLabs", L"Rectivo 3");
        EXPECT_TRUE(sameTextIgnoringCase(path, base + L"\\VexaLabs\\Rectivo 3")) << std::string(path.begin(), path.end());
    }

    const std::wstring pictures = commonPicturesFolder();
    const std::wstring publicFolder = environment(L"PUBLIC");
    ASSERT_FALSE(publicFolder.empty());
    EXPECT_TRUE(fs::is_directory(pictures));
    EXPECT_TRUE(sameTextIgnoringCase(pictures.substr(0, publicFolder.size()), publicFolder));
    // The folder is made when missing. Windows' own public pictures folder is never
    // empty (desktop.ini) and not the test's to remove: this part needs Wine's prefix,
    // which Wine's ntdll gives away by exporting its version.
    if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")) {
        ASSERT_TRUE(RemoveDirectoryW(pictures.c_str()));
        EXPECT_EQ(commonPicturesFolder(), pictures);
        EXPECT_TRUE(fs::is_directory(pictures));
    }
}

TEST(ShellDelete, RemovesFilesAndFoldersWithNonAsciiNamesAndFailsOnMissing)
{
    TemporaryFolder folder;
    const std::wstring file = folder.filePath(L"Bild \u00e4\u00f6\u00fc \u65e5\u672c \u0416.jpg");
    ASSERT_TRUE(writeFile(file, "jpeg"));
    const std::wstring subfolder = folder.filePath(L"R\u00e9sultats");
    ASSERT_TRUE(CreateDirectoryW(subfolder.c_str(), nullptr));
    ASSERT_TRUE(writeFile(subfolder + L"\\inside.txt", "x"));

    // Windows puts them in the recycle bin; Wine in the desktop's trash or deletes them.
    EXPECT_TRUE(moveToTrash(file));
    EXPECT_FALSE(fs::exists(file));
    EXPECT_TRUE(moveToTrash(subfolder));
    EXPECT_FALSE(fs::exists(subfolder));
    // The shell's non-zero answer is what the library folds into its error code 2.
    EXPECT_FALSE(moveToTrash(folder.filePath(L"nicht da \u00df.jpg")));
}

// A change of case only takes the new case on Windows; Wine reports success but keeps
// the old name, so it is not tested here.
TEST(Rename, MovesButNeverReplaces)
{
    TemporaryFolder folder;
    const std::wstring source = folder.filePath(L"quelle \u00e9.txt");
    const std::wstring taken = folder.filePath(L"ziel.txt");
    ASSERT_TRUE(writeFile(source, "source"));
    ASSERT_TRUE(writeFile(taken, "taken"));

    EXPECT_FALSE(renameWithoutOverwrite(source, taken));
    EXPECT_EQ(fs::file_size(source), 6u);
    EXPECT_EQ(fs::file_size(taken), 5u);

    const std::wstring subfolder = folder.filePath(L"sub");
    ASSERT_TRUE(CreateDirectoryW(subfolder.c_str(), nullptr));
    const std::wstring moved = subfolder + L"\\neu \u65e5.txt";
    EXPECT_TRUE(renameWithoutOverwrite(source, moved));
    EXPECT_FALSE(fs::exists(source));
    EXPECT_EQ(fs::file_size(moved), 6u);
    EXPECT_FALSE(renameWithoutOverwrite(folder.filePath(L"missing.txt"), folder.filePath(L"other.txt")));
}

TEST(ModuleFile, LoadedModuleOrTheHostExecutable)
{
    std::wstring fileName;
    ASSERT_TRUE(loadedModuleFileName(L"kernel32.dll", fileName));
    EXPECT_TRUE(sameTextIgnoringCase(fileName.substr(fileName.size() - 13), L"\\kernel32.dll"));
    EXPECT_TRUE(fs::exists(fileName));
    // Not loaded: the host executable's own name, whole (its length counted, no terminator
    // inside; Wine may leave the buffer of GetModuleFileNameW unterminated).
    ASSERT_TRUE(loadedModuleFileName(L"PhotoshopPlugin-connectorvrcv3.dll", fileName));
    wchar_t host[MAX_PATH] = {};
    EXPECT_EQ(fileName, std::wstring(host, GetModuleFileNameW(nullptr, host, MAX_PATH)));
}
