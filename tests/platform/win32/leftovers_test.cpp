// What a save left whose process number is, or seems to be, that of a running program.
#include "platform/leftovers.h"

#include "platform/win32/wide_text.h"
#include "tests/platform/TempFolder.h"
#include "tests/platform/win32/KilledProcess.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tarveth {
namespace {

namespace fs = std::filesystem;
using platform::RemoveLeftovers;

// For the process that the next test kills.
TEST(LeftoversHere, DISABLED_Sleeps) {
    TellReady();
    Sleep(60'000);
}

TEST(LeftoversHere, OfARunningProgramStayForAMinuteOnly) {
    const TempFolder folder;
    const KilledProcess running("LeftoversHere.DISABLED_Sleeps", "", 0);
    running.WaitUntilReady();
    const std::string file = folder.File(".tarveth-" + std::to_string(running.Number()) + "-0");
    PutBytes(file, "half a game");
    RemoveLeftovers(folder.Path());
    EXPECT_TRUE(fs::exists(file));
    fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::seconds(50));
    RemoveLeftovers(folder.Path());
    EXPECT_TRUE(fs::exists(file));
    fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::seconds(70));
    RemoveLeftovers(folder.Path());
    EXPECT_FALSE(fs::exists(file)) << "another program has the number by now";
}

TEST(LeftoversHere, OfAKilledProgramAreRemovedHoweverYoung) {
    const TempFolder folder;
    std::string file;
    {
        const KilledProcess running("LeftoversHere.DISABLED_Sleeps", "", 0);
        running.WaitUntilReady();
        file = folder.File(".tarveth-" + std::to_string(running.Number()) + "-0");
        PutBytes(file, "half a game");
        RemoveLeftovers(folder.Path());
        EXPECT_TRUE(fs::exists(file));
    }
    RemoveLeftovers(folder.Path());
    EXPECT_FALSE(fs::exists(file));
}

TEST(LeftoversHere, ThatSomebodyStillWritesStay) {
    const TempFolder folder;
    const std::string file = folder.File(".tarveth-2147483640-0");
    const HANDLE writer = CreateFileW(platform::WideFromText(file).c_str(), GENERIC_WRITE, 0, nullptr,
                                      CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(writer, INVALID_HANDLE_VALUE);
    RemoveLeftovers(folder.Path());
    EXPECT_TRUE(fs::exists(file));
    CloseHandle(writer);
    RemoveLeftovers(folder.Path());
    EXPECT_FALSE(fs::exists(file));
}

} // namespace
} // namespace tarveth
