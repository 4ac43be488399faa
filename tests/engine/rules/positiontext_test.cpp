// Positions as one line of text: what is written is read again, and what is wrong is named.
#include "engine/rules/Game.h"
#include "engine/rules/positiontext.h"
#include "engine/rules/writeposition.h"
#include "tests/PickTurn.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tarveth::test {
namespace {

// Why the text is no position; empty if it is one.
std::string FaultIn(const std::string& text) {
    Game game;
    try {
        SetPosition(game, text);
    } catch (const std::invalid_argument& fault) {
        return fault.what();
    }
    return {};
}

TEST(PositionText, NamesTurnPiecesBarsAndJail) {
    const TestGame g("turn R | BM 4D | RP 4E<4F | jail RO BP");
    EXPECT_EQ(PositionText(g.game), "turn R | BM 4D | RP 4E<4F | jail RO BP");
    EXPECT_EQ(PositionText(TestGame("turn B").game), "turn B");
}

TEST(PositionText, OfRandomGamesIsReadAgain) {
    Dice dice(11);
    for (int i = 0; i < 30; ++i) {
        TestGame g;
        for (int turn = 0; turn < 60 && g.game.GameState != kGameOver; ++turn) {
            const CompleteTurn next = PickTurn(g.game, dice);
            for (const Square square : {next.from, next.to, next.returnTo})
                if (square.OnBoard()) {
                    g.port.returnChoice = next.returnKind == Officer ? Officer : Pawn;
                    g.main.DepositSquare(square);
                    g.Settle();
                }
            const std::string text = PositionText(g.game);
            EXPECT_EQ(PositionText(TestGame(text).game), text);
        }
    }
}

TEST(SetPosition, SaysWhichItemIsWrongAndHow) {
    const std::vector<std::pair<std::string, std::string>> texts{
        {"", "Item 1 of the position is wrong: nothing stands there."},
        {"turn B | | BM 4D", "Item 2 of the position is wrong: nothing stands there."},
        {"turn G", "Item 1 of the position is wrong: the turn is B or R, as in \"turn B\"."},
        {"turn", "Item 1 of the position is wrong: the turn is B or R, as in \"turn B\"."},
        {"turn B | BM",
         "Item 2 of the position is wrong: a piece and its square are expected, as in \"BM 4D\"."},
        {"turn B | BK 4D",
         "Item 2 of the position is wrong: \"BK\" is no piece, which is B or R and M, O or P."},
        {"turn B | BM 4I",
         "Item 2 of the position is wrong: \"4I\" is no square, which is a column 1 to 8 and a row "
         "A to H."},
        {"turn B | BM 4D<9A",
         "Item 2 of the position is wrong: \"9A\" is no square, which is a column 1 to 8 and a "
         "row A to H."},
        {"turn B | BM 4D | RM 4D", "Item 3 of the position is wrong: another piece stands on 4D."},
        {"turn B | jail BM BM BM BM", "Item 2 of the position is wrong: there are too many Blue Masters."},
        {"turn B | jail BX",
         "Item 2 of the position is wrong: \"BX\" is no piece, which is B or R and M, O or P."},
        {"turn B | thisisaverylongword 4D",
         "Item 2 of the position is wrong: a long word is no piece, which is B or R and M, O or P."},
    };
    for (const auto& [text, fault] : texts)
        EXPECT_EQ(FaultIn(text), fault);
}

} // namespace
} // namespace tarveth::test
