// The process walk and the version resource through the real Win32 calls, and the
// portable PE reader of the other platforms fed the same executables.

#include "WinTestSupport.h"

#include "PeSamples.h"
#include "PeVersionReader.h"
#include "platform/ProcessIdentity.h"

#include <gtest/gtest.h>

#include <vector>

using namespace VexaPlatform;
using namespace WinTest;

namespace {

std::wstring besideTest(const std::wstring& name)
{
    return folderOf(hostExecutable()) + L'\\' + name;
}

std::wstring findProcess(const std::wstring& name)
{
    return processImagePath([&name](const std::wstring& baseName) { return sameTextIgnoringCase(baseName, name); });
}

// A running sample program, ended when the object goes.
class RunningProgram
{
public:
    explicit RunningProgram(const std::wstring& path)
    {
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        std::wstring commandLine = L"\"" + path + L"\" 30000";
        m_started = CreateProcessW(path.c_str(), &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &startup, &m_process);
        if (m_started)
            WaitForInputIdle(m_process.hProcess, 2000); // a console program answers at once
    }
    ~RunningProgram()
    {
        if (!m_started)
            return;
        TerminateProcess(m_process.hProcess, 0);
        WaitForSingleObject(m_process.hProcess, 5000);
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    bool started() const { return m_started; }

private:
    PROCESS_INFORMATION m_process = {};
    bool m_started = false;
};

// The module list of a new process is filled in as it starts; the walk only sees the
// program once its main module is there.
std::wstring findProcessSoon(const std::wstring& name)
{
    for (int attempt = 0; attempt < 50; ++attempt) {
        const std::wstring path = findProcess(name);
        if (!path.empty())
            return path;
        Sleep(100);
    }
    return std::wstring();
}

std::string narrow(const std::wstring& path)
{
    return std::string(path.begin(), path.end()); // the build paths are ASCII
}

} // namespace

TEST(ProcessIdentity, CurrentProcessName)
{
    EXPECT_EQ(currentProcessBaseName(), fileNameOf(hostExecutable()));
    EXPECT_EQ(currentProcessBaseName(), L"tst_win_process.exe");
}

TEST(ProcessIdentity, FindsRunningProgramByNameIgnoringCase)
{
    const std::wstring program = besideTest(VERSIONED_SAMPLE);
    RunningProgram running(program);
    ASSERT_TRUE(running.started());

    const std::wstring found = findProcessSoon(L"VERSIONEDSAMPLE.EXE");
    EXPECT_TRUE(sameTextIgnoringCase(found, program)) << narrow(found);
    // The whole base name counts, extension included.
    EXPECT_EQ(findProcess(L"VersionedSample"), L"");
    EXPECT_EQ(findProcess(L"no-such-process.exe"), L"");
    // This process is found like any other.
    EXPECT_TRUE(sameTextIgnoringCase(findProcess(L"TST_WIN_PROCESS.EXE"), hostExecutable()));
    // Windows' own, not shown here: processes of other users cannot be opened and are
    // passed over. Under Wine every process can be opened.
}

TEST(ProcessIdentity, VersionOfTheFoundProgram)
{
    // The library's way: find the program among the processes, then read its file.
    RunningProgram running(besideTest(VERSIONED_SAMPLE));
    ASSERT_TRUE(running.started());
    const FixedFileVersion version = executableFileVersion(findProcessSoon(VERSIONED_SAMPLE));
    ASSERT_TRUE(version.found);
    EXPECT_EQ(version.fileVersionMS, (3u << 16) | 2u);
    EXPECT_EQ(version.fileVersionLS, (0u << 16) | 254u);
}

// Both readers on the same files: the windres-built programs of this project and the
// committed samples that the Linux tests read, against the same table.
TEST(VersionReaders, AgreeOnTheSameExecutables)
{
    struct Case
    {
        std::wstring file;
        bool found;
        std::uint32_t ms;
        std::uint32_t ls;
    };
    std::vector<Case> cases = {
        {besideTest(VERSIONED_SAMPLE), true, (3u << 16) | 2u, (0u << 16) | 254u},
        {besideTest(UNVERSIONED_SAMPLE), false, 0, 0},
    };
    for (const PeSamples::Sample& s : PeSamples::kSamples) {
        const std::string name = s.file;
        cases.push_back({besideTest(L"linux-samples\\" + std::wstring(name.begin(), name.end())), s.found,
                         s.fileVersionMS, s.fileVersionLS});
    }
    for (const Case& c : cases) {
        SCOPED_TRACE(narrow(c.file));
        const FixedFileVersion win32 = executableFileVersion(c.file);
        const PeFileVersion portable = readPeFileVersionFromFile(narrow(c.file));
        EXPECT_EQ(win32.found, c.found);
        EXPECT_EQ(portable.found, c.found);
        EXPECT_EQ(win32.fileVersionMS, c.ms);
        EXPECT_EQ(win32.fileVersionLS, c.ls);
        EXPECT_EQ(portable.fileVersionMS, c.ms);
        EXPECT_EQ(portable.fileVersionLS, c.ls);
    }
    // Not an executable at all: a text file.
    TemporaryFolder folder;
    const std::wstring text = folder.filePath(L"notes.exe");
    ASSERT_TRUE(writeFile(text, "MZ but nothing more"));
    EXPECT_FALSE(executableFileVersion(text).found);
    EXPECT_FALSE(readPeFileVersionFromFile(narrow(text)).found);
}
