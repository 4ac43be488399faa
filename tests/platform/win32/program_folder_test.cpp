// Where a program that lies in an odd folder finds itself, and where an installed one writes.
#include "platform/program_folder.h"
#include "platform/text_path.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <process.h>

namespace tarveth {
namespace {

namespace fs = std::filesystem;
using platform::ProgramFolder;
using platform::WritableFolder;

// For the copy that the next test starts.
TEST(ProgramFolder, DISABLED_EndsInLettersThatTheCodePageLacks) {
    EXPECT_TRUE(ProgramFolder().ends_with("\\\xe5\xb0\x86\xe6\xa3\x8b\\")) << ProgramFolder();
}

TEST(ProgramFolder, MayHaveANameWithoutLettersInTheCodePage) {
    const TempFolder folder;
    const fs::path home = folder.Path() / platform::PathFromText("\xe5\xb0\x86\xe6\xa3\x8b");
    fs::create_directory(home);
    fs::copy_file(ProgramFolder() + PROGRAM_NAME, home / "copy.exe");
    const std::wstring program = (home / "copy.exe").wstring();
    const std::wstring name = L"copy.exe";
    EXPECT_EQ(_wspawnl(_P_WAIT, program.c_str(), name.c_str(), L"--gtest_also_run_disabled_tests",
                       L"--gtest_brief=1",
                       L"--gtest_filter=ProgramFolder.DISABLED_EndsInLettersThatTheCodePageLacks", nullptr),
              0);
}

TEST(WritableFolder, IsTheUsersDataFolderForAnInstalledProgramAndIsCreated) {
    const TempFolder folder;
    const std::wstring before = _wgetenv(L"APPDATA");
    _putenv_s("APPDATA", folder.File("data").c_str());
    EXPECT_EQ(WritableFolder(folder.File("missing")), folder.File("data\\Tarveth\\"));
    EXPECT_TRUE(fs::is_directory(folder.File("data\\Tarveth")));
    _wputenv_s(L"APPDATA", L"");
    EXPECT_EQ(WritableFolder(folder.File("missing")), folder.File("missing\\"));
    _wputenv_s(L"APPDATA", before.c_str());
}

} // namespace
} // namespace tarveth
