// The text of the game log.
#include "platform/file_error.h"
#include "storage/modFileIO.h"
#include "tests/TestGame.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth::test {

TEST(GameLog, HoldsTheHistoryOneLineAMoveReturnsWithTheirTwoBlanks) {
    const TempFolder folder;
    Game game;
    game.lstHistory = {"R:RO 5C-4D", "B:BM 4F-4D cRO", "  BP r2G"};
    WriteGameLog(game, folder.File("lastgame.log"));
    EXPECT_EQ(GetBytes(folder.File("lastgame.log")), "R:RO 5C-4D\r\nB:BM 4F-4D cRO\r\n  BP r2G\r\n");
}

TEST(GameLog, OfAnEmptyHistoryIsAnEmptyFileWhateverWasInIt) {
    const TempFolder folder;
    PutBytes(folder.File("lastgame.log"), "an older game\r\n");
    WriteGameLog(Game(), folder.File("lastgame.log"));
    EXPECT_EQ(GetBytes(folder.File("lastgame.log")), "");
}

TEST(GameLog, HoldsWhatWasPlayed) {
    const TempFolder folder;
    TestGame table;
    table.Move("4E", "4D");
    table.Move("4C", "4D");
    WriteGameLog(table.game, folder.File("a.tsg.log"));
    EXPECT_EQ(GetBytes(folder.File("a.tsg.log")), "B:BP 4E-4D\r\nR:RO 4C-4D cBP\r\n");
}

TEST(GameLog, ThatCannotBeWrittenIsAnError) {
    const TempFolder folder;
    EXPECT_THROW(WriteGameLog(Game(), folder.File("none/lastgame.log")), platform::FileError);
}

} // namespace tarveth::test
