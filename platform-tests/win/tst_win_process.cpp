// The process walk and the version resource through the real Win32 calls, and the
// portable PE reader of the other platforms fed the same executables.

#include "WinTestSupport.h"

#include "PeSamples.h"
#include "PeVersionReader.h"
#include "platform/ProcessIdentity.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

using namespace VexaPlatform;
using namespace WinTest;

namespace {

std::wstring besideTest(const std::wstring& name)
{
    const std::wstring host = hostExecutable();
    return host.substr(0, host.find_last_of(L'\\') + 1) + name;
}

std::wstring findProcess(const std::wstring& name)
{
    return processImagePath([&name](const std::wstring& baseName) { return sameTextIgnoringCase(baseName, name); });
}

std::string narrow(const std::wstring& path)
{
    return std::string(path.begin(), path.end()); // the build paths are ASCII
}

} // namespace

TEST(ProcessIdentity, FindsProgramsByWholeNameIgnoringCase)
{
    EXPECT_EQ(currentProcessBaseName(), L"tst_win_process.exe");

    const std::wstring program = besideTest(VERSIONED_SAMPLE);
    std::wstring commandLine = L"\"" + program + L"\" 30000";
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION running = {};
    ASSERT_TRUE(CreateProcessW(program.c_str(), &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &running));
    // The module list of a new process is filled in as it starts: the walk only sees the
    // program once its main module is there.
    std::wstring found;
    for (int attempt = 0; attempt < 50 && found.empty(); ++attempt, Sleep(100))
        found = findProcess(L"VERSIONEDSAMPLE.EXE");
    EXPECT_TRUE(sameTextIgnoringCase(found, program)) << narrow(found);
    // The whole base name counts, extension included.
    EXPECT_EQ(findProcess(L"VersionedSample"), L"");
    // This process is found like any other. Windows' own, not shown here: processes of
    // other users cannot be opened and are passed over; under Wine every one can be.
    EXPECT_TRUE(sameTextIgnoringCase(findProcess(L"TST_WIN_PROCESS.EXE"), hostExecutable()));
    TerminateProcess(running.hProcess, 0);
    WaitForSingleObject(running.hProcess, 5000);
    CloseHandle(running.hThread);
    CloseHandle(running.hProcess);
}

// Both readers on the same files: the windres-built programs of this project and the
// committed samples that the Linux tests read, against the same table.
TEST(VersionReaders, AgreeOnTheSameExecutables)
{
    struct Case { std::wstring file; bool found; std::uint32_t ms, ls; };
    std::vector<Case> cases = {
        {besideTest(VERSIONED_SAMPLE), true, (3u << 16) | 2u, (0u << 16) | 254u},
        {besideTest(UNVERSIONED_SAMPLE), false, 0, 0},
    };
    for (const PeSamples::Sample& s : PeSamples::kSamples) {
        const std::string name = s.file;
        cases.push_back({besideTest(L"linux-samples\\" + std::wstring(name.begin(), name.end())), s.found,
                         s.fileVersionMS, s.fileVersionLS});
    }
    // Not an executable at all: a text file.
    TemporaryFolder folder;
    cases.push_back({folder.filePath(L"notes.exe"), false, 0, 0});
    ASSERT_TRUE(writeFile(cases.back().file, "MZ but nothing more"));
    for (const Case& c : cases) {
        SCOPED_TRACE(narrow(c.file));
        const FixedFileVersion win32 = executableFileVersion(c.file);
        const PeFileVersion portable = readPeFileVersionFromFile(narrow(c.file));
        EXPECT_EQ(std::make_tuple(win32.found, win32.fileVersionMS, win32.fileVersionLS),
                  std::make_tuple(c.found, c.ms, c.ls));
        EXPECT_EQ(std::make_tuple(portable.found, portable.fileVersionMS, portable.fileVersionLS),
                  std::make_tuple(c.found, c.ms, c.ls));
    }
}
