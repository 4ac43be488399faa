// The file of a game that is kept: it comes back as it was, and any damage is seen.
#include "engine/rules/atrest.h"
#include "platform/file_error.h"
#include "storage/keptgame.h"
#include "storage/modFileIO.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

KeptGame Sample() {
    TestGame t;
    t.game.lstHistory = {"B:BP 4E-4D", "Kept game", "Sum 1"};
    return {AtRest(t.game), 1'763'845'240, "/home/ann/G\u00e4me 1.tsg", "Ann", Red};
}

bool IsRefused(const std::string& bytes) {
    try {
        ParseKeptGame(bytes, "kept.tsg");
        return false;
    } catch (const platform::FileError& error) {
        return error.Path() == "kept.tsg";
    }
}

TEST(KeptGameFile, GivesBackWhatWasWritten) {
    const KeptGame kept = Sample();
    EXPECT_EQ(ParseKeptGame(KeptGameBytes(kept), ""), kept);
}

TEST(KeptGameFile, IsASavedGameToo) {
    const KeptGame kept = Sample();
    const Game loaded = ParseGame(KeptGameBytes(kept), "");
    EXPECT_EQ(loaded, kept.game);
}

TEST(KeptGameFile, KeepsNamesThatLookLikeItsOwnLines) {
    KeptGame kept = Sample();
    kept.opponent = "Kept game";
    kept.fileName = "Opponent Sum 0123";
    EXPECT_EQ(ParseKeptGame(KeptGameBytes(kept), ""), kept);
    kept.opponent = "A\r\nSide 1";
    KeptGame blanks = kept;
    blanks.opponent = "A  Side 1";
    EXPECT_EQ(ParseKeptGame(KeptGameBytes(kept), ""), blanks) << "a name is one line";
}

TEST(KeptGameFile, IsRefusedWhenAnyByteHasChangedOrIsMissing) {
    const std::string bytes = KeptGameBytes(Sample());
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        std::string damaged = bytes;
        damaged[at] = static_cast<char>(damaged[at] ^ 1);
        EXPECT_TRUE(IsRefused(damaged)) << "byte " << at;
        EXPECT_TRUE(IsRefused(bytes.substr(0, at))) << "cut at " << at;
    }
    EXPECT_TRUE(IsRefused(bytes + "x"));
}

TEST(KeptGameFile, IsRefusedWithoutItsOwnLines) {
    EXPECT_TRUE(IsRefused(""));
    EXPECT_TRUE(IsRefused(GameText(Sample().game, "")));
}

} // namespace
} // namespace tarveth::test
