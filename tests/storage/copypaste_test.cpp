// What the clipboard takes of a game, and what it may give.
#include "engine/rules/writeposition.h"
#include "storage/copypaste.h"
#include "storage/modFileIO.h"
#include "tests/RecordedPlay.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

TEST(HistoryText, IsEveryLine) {
    TestGame g;
    EXPECT_EQ(HistoryText(g.game), "");
    g.Move("4E", "4D");
    g.Move("4C", "4D");
    EXPECT_EQ(HistoryText(g.game), "B:BP 4E-4D\nR:RO 4C-4D cBP\n");
}

TEST(PastedPosition, OfAnyGameCanBeSavedAndIsTheSame) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        RecordedPlay play(kDraumeCrownBoard, seed);
        play.Play(static_cast<int>(seed) * 4);
        const std::string text = PositionText(play.table.game);
        const PastedPosition pasted = ReadPastedPosition("  " + text + "\r\n");
        ASSERT_TRUE(pasted.game) << pasted.refusal;
        EXPECT_EQ(PositionText(ParseGame(GameText(*pasted.game, ""), "a.tsg")), text);
    }
}

TEST(PastedPosition, WithFewPiecesCanBeSavedToo) {
    const PastedPosition pasted = ReadPastedPosition("turn R | BM 4D | RM 8H");
    ASSERT_TRUE(pasted.game) << pasted.refusal;
    EXPECT_EQ(PositionText(ParseGame(GameText(*pasted.game, ""), "a.tsg")), "turn R | BM 4D | RM 8H");
}

TEST(PastedPosition, IsRefusedWithOneSentence) {
    EXPECT_EQ(ReadPastedPosition(" \r\n").refusal, "The clipboard holds no text.");
    const char* noLine = "The clipboard holds no position, which is one line of text.";
    EXPECT_EQ(ReadPastedPosition("turn B | BM 4D\n| RM 8H").refusal, noLine);
    EXPECT_EQ(ReadPastedPosition(std::string(5000, 'x')).refusal, noLine);
    EXPECT_EQ(ReadPastedPosition("BM 4D").refusal,
              "The position does not say whose turn it is, as in \"turn B\".");
    EXPECT_EQ(
        ReadPastedPosition("turn B | BM 9D").refusal,
        "Item 2 of the position is wrong: \"9D\" is no square, which is a column 1 to 8 and a row A to H.");
    EXPECT_FALSE(ReadPastedPosition("turn B | BM 9D").game);
}

} // namespace
} // namespace tarveth::test
