// The shell delete and the rename through the real Win32 calls of the seam. The known
// folders and the module lookup are checked through the library by the storage location
// and plug-in folder tests of the Windows suite.
#include "platform/FileManagement_p.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace VexaPlatform;
namespace fs = std::filesystem;

namespace {

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
