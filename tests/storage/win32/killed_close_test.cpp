// A program that is killed while it writes tarveth.ini, as it does when its window closes.
#include "platform/leftovers.h"
#include "storage/settingsfile.h"
#include "storage/window_positions.h"
#include "tests/platform/TempFolder.h"
#include "tests/platform/win32/KilledProcess.h"

#include <gtest/gtest.h>

#include <random>

namespace tarveth {
namespace {

constexpr int kKills = 200;
constexpr char kCloses[] = "KilledClose.DISABLED_ClosesOverAndOver";

// What the main window does when it is asked to close. The one and the other differ in several sections.
void Close(const std::string& folder, bool other) {
    modINI ini([](const std::string& text, const std::string&) { ADD_FAILURE() << text; });
    Settings settings;
    if (other) {
        settings.BoardVariant = kDraumeCrownBoard;
        settings.Nickname = "Somebody with a longer name";
        settings.BoardBlack = {1, 2, 3};
        settings.ChatTextFontSize = 12;
    }
    SaveClientOptions(settings, ini, folder);
    SaveSettings(settings, ini, folder);
    SaveMainPosition({other ? 15.F : 30.F, 15, 9000, 7200}, ini, folder);
    ini.IniFlush();
}

// For the processes that the other tests kill.
TEST(KilledClose, DISABLED_ClosesOverAndOver) {
    const std::string folder = ToldFile();
    DieAtCall(ToldCall());
    TellReady();
    for (;;) {
        Close(folder, true);
        Close(folder, false);
    }
}

TEST(KilledClose, DISABLED_TellsHowManyCallsItTakes) {
    DieAtCall(0);
    Close(ToldFile(), true);
    ExitProcess(static_cast<UINT>(CallsSoFar()));
}

class KilledCloseOfAProgram : public testing::Test {
protected:
    KilledCloseOfAProgram() {
        Close(folder.Name(), true);
        second = GetBytes(file);
        Close(folder.Name(), false);
        first = GetBytes(file);
    }

    bool IsWhole() const {
        const std::string found = GetBytes(file);
        return found == first || found == second;
    }

    int CallsOfAClose() const {
        const TempFolder another;
        return KilledProcess("KilledClose.DISABLED_TellsHowManyCallsItTakes", another.Name(), 0).Wait();
    }

    const TempFolder folder;
    const std::string file = folder.File("tarveth.ini");
    std::string first;
    std::string second;
};

TEST_F(KilledCloseOfAProgram, LeavesTheSettingsAsTheyWereBeforeOrAfterIt) {
    const int calls = CallsOfAClose();
    ASSERT_GE(calls, 39) << "one for each key";
    ASSERT_LE(calls, kKills / 2);
    int kills = 0;
    for (; kills < calls; ++kills) {
        const KilledProcess process(kCloses, folder.Name(), kills + 1);
        ASSERT_EQ(process.Wait(), kDied);
        ASSERT_TRUE(IsWhole()) << "call " << kills + 1 << ": " << GetBytes(file);
    }
    std::mt19937 random(20260101);
    for (; kills < kKills; ++kills) {
        const KilledProcess process(kCloses, folder.Name(), 0);
        process.WaitUntilReady();
        Sleep(random() % 80);
        process.Kill();
        ASSERT_EQ(process.Wait(), kDied);
        ASSERT_TRUE(IsWhole()) << "round " << kills << ": " << GetBytes(file);
    }
    platform::RemoveLeftovers(folder.Path());
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST_F(KilledCloseOfAProgram, LeavesNoSettingsOrAllOfThemTheFirstTime) {
    const int calls = CallsOfAClose();
    for (int call = 1; call <= calls; call += 7) {
        std::filesystem::remove(file);
        const KilledProcess process(kCloses, folder.Name(), call);
        ASSERT_EQ(process.Wait(), kDied);
        ASSERT_TRUE(!std::filesystem::exists(file) || GetBytes(file) == second) << call;
    }
}

} // namespace
} // namespace tarveth
