// A program that is killed while it saves.
#include "platform/atomic_file.h"
#include "platform/leftovers.h"
#include "platform/win32/wide_text.h"
#include "tests/platform/TempFolder.h"
#include "tests/platform/win32/KilledProcess.h"

#include <gtest/gtest.h>

#include <random>

namespace tarveth {
namespace {

using platform::WriteFileAtomically;

constexpr int kKills = 200;
constexpr std::size_t kMostCalls = 64;

class KilledSave : public testing::Test {
protected:
    const std::string first = std::string(300'000, 'a');
    const std::string second = std::string(200'000, 'b');
};

// For the processes that the other tests kill.
TEST_F(KilledSave, DISABLED_SavesOverAndOver) {
    const std::string file = ToldFile();
    DieAtCall(ToldCall());
    TellReady();
    for (;;) {
        WriteFileAtomically(file, second);
        WriteFileAtomically(file, first);
    }
}

TEST_F(KilledSave, DISABLED_TellsHowManyCallsASaveTakes) {
    DieAtCall(0);
    WriteFileAtomically(ToldFile(), second);
    ExitProcess(static_cast<UINT>(CallsSoFar()));
}

// A folder with the file, on which all the processes work.
class KilledSaveOfAFile : public KilledSave {
protected:
    KilledSaveOfAFile() { PutBytes(file, first); }

    void IsWhole(int round) const {
        const std::string found = GetBytes(file);
        ASSERT_TRUE(found == first || found == second)
            << "round " << round << ", " << found.size() << " bytes";
    }

    const TempFolder folder;
    const std::string file = folder.File("a");
    const std::wstring wideFile = platform::WideFromText(file);
};

TEST_F(KilledSaveOfAFile, AtAnyCallOrMomentLeavesTheOldOrTheNewContentWhole) {
    const int calls = KilledProcess("KilledSave.DISABLED_TellsHowManyCallsASaveTakes", file, 0).Wait();
    ASSERT_GE(calls, 8);
    ASSERT_LE(calls, kMostCalls);
    // At each call of two saves in a row, the longer content over the shorter one and the other way round.
    int kills = 0;
    for (; kills < 2 * calls; ++kills) {
        const KilledProcess process("KilledSave.DISABLED_SavesOverAndOver", file, kills + 1);
        ASSERT_EQ(process.Wait(), kDied);
        IsWhole(kills);
    }
    // At any other moment; and there never is one without a file.
    std::mt19937 random(20260101);
    for (; kills < kKills; ++kills) {
        const KilledProcess process("KilledSave.DISABLED_SavesOverAndOver", file, 0);
        process.WaitUntilReady();
        for (const auto end = GetTickCount64() + random() % 40; GetTickCount64() < end;)
            ASSERT_NE(GetFileAttributesW(wideFile.c_str()), INVALID_FILE_ATTRIBUTES) << "round " << kills;
        process.Kill();
        ASSERT_EQ(process.Wait(), kDied) << "it could not save in round " << kills;
        IsWhole(kills);
    }
    platform::RemoveLeftovers(folder.Path());
    EXPECT_EQ(folder.FileCount(), 1U);
}

} // namespace
} // namespace tarveth
