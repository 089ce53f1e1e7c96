// Known folders, the shell delete, the rename, the loaded module's file name and the
// window menu, through the real Win32 calls of the seam.

#include "WinTestSupport.h"

#include "platform/FileManagement.h"
#include "platform/KnownFolders.h"
#include "platform/ModuleFile.h"
#include "platform/WindowMenu.h"

#include <gtest/gtest.h>

using namespace VexaPlatform;
using namespace WinTest;

namespace {

std::wstring environment(const wchar_t* name)
{
    const wchar_t* value = _wgetenv(name);
    return value ? value : L"";
}

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
    // empty (desktop.ini) and not the test's to remove: this part needs Wine's prefix.
    if (runningOnWine()) {
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

    EXPECT_TRUE(renameWithoutOverwrite(moved, source));
    EXPECT_TRUE(RemoveDirectoryW(subfolder.c_str()));
}
// A change of case only takes the new case on Windows; Wine reports success but keeps
// the old name, so it is not tested here.

TEST(ShellSelection, FolderThatCannotBeResolvedIsRefused)
{
    TemporaryFolder folder;
    EXPECT_FALSE(showItemsInFileManager(folder.filePath(L"gone\\deeper"), {folder.filePath(L"gone\\deeper\\a.jpg")}));
    // An existing folder with nothing to select opens no window at all.
    EXPECT_TRUE(showItemsInFileManager(folder.path(), {}));
}

TEST(ModuleFile, LoadedModuleOrTheHostExecutable)
{
    std::wstring fileName;
    ASSERT_TRUE(loadedModuleFileName(L"kernel32.dll", fileName));
    EXPECT_TRUE(sameTextIgnoringCase(fileName.substr(fileName.size() - 13), L"\\kernel32.dll"));
    EXPECT_TRUE(fs::exists(fileName));
    // Not loaded: the host executable's own name, whole (its length counted, no terminator inside).
    ASSERT_TRUE(loadedModuleFileName(L"PhotoshopPlugin-connectorvrcv3.dll", fileName));
    EXPECT_EQ(fileName, hostExecutable());
}

TEST(WindowMenu, CloseItemIsGreyedAndEnabledAgain)
{
    const HWND window = CreateWindowExW(0, L"STATIC", L"menu", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr,
                                        nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(window, nullptr) << "hidden windows need Wine's null graphics driver without a display";
    const auto closeState = [window] { return GetMenuState(GetSystemMenu(window, FALSE), SC_CLOSE, MF_BYCOMMAND); };
    ASSERT_NE(closeState(), UINT(-1));

    enableWindowCloseItem(reinterpret_cast<std::uintptr_t>(window), false);
    EXPECT_TRUE(closeState() & MF_GRAYED);
    enableWindowCloseItem(reinterpret_cast<std::uintptr_t>(window), true);
    EXPECT_FALSE(closeState() & (MF_GRAYED | MF_DISABLED));
    DestroyWindow(window);
    enableWindowCloseItem(reinterpret_cast<std::uintptr_t>(window), false); // gone: ignored
}
