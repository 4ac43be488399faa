// Captures, the jail, returns and victory.
#include "engine/rules/captures.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarveth::test {
namespace {

using Lines = std::vector<std::string>;

// Gives the jail from slot 1 on as text, as in "BP BO RM".
std::string JailText(const Game& game) {
    std::string text;
    for (int slot = 1; slot <= game.JailCount(); ++slot)
        text += (slot > 1 ? " " : "") + std::string{SideName(game.Jailed(slot).Side).front(),
                                                    KindName(game.Jailed(slot).Kind).front()};
    return text;
}

TEST(Captures, TheTakenPieceGoesToTheJailWithItsSquareNegated) {
    TestGame g("turn B | BM 4D | RP 4E | RP 1H");
    g.Move("4D", "4E");
    ASSERT_EQ(g.game.JailCount(), 1);
    EXPECT_EQ(g.game.Piece(21).X, -4);
    EXPECT_EQ(g.game.Piece(21).Y, -5);
    EXPECT_EQ(g.game.Jailed(1).X, -4);
    EXPECT_EQ(g.game.Jailed(1).Y, -5);
    EXPECT_EQ(g.game.Jailed(1).Side, Red);
    EXPECT_EQ(g.game.Jailed(1).Kind, Pawn);
    EXPECT_EQ(g.game.Return.CapturedPiece, 21);
    EXPECT_EQ(g.On("4E"), 1);
}

// The window may redraw the board and the jail from these tables while the capturing piece moves.
TEST(Captures, TheTakenPieceStaysOnItsSquareAndOutOfTheJailWhileTheCapturingOneGlides) {
    TestGame g("turn B | BM 4D | RO 4F | jail RP");
    g.settings.AnimateMoves = -1;
    Game during;
    g.port.onAnimate = [&] { during = g.game; };
    g.Move("4D", "4F");
    ASSERT_EQ(g.port.animations, 1);
    EXPECT_EQ(PieceOn(during, SquareOf("4F")), 17);
    EXPECT_EQ(JailText(during), "RP");
    EXPECT_EQ(g.On("4F"), 1);
    EXPECT_EQ(JailText(g.game), "RP RO");
}

TEST(Captures, TheJailEntryKeepsThePreviousSquareOfTheTakenPiece) {
    TestGame g("turn B | BM 4D | RP 4E<5F");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.Jailed(1).PrevX, 5);
    EXPECT_EQ(g.game.Jailed(1).PrevY, 6);
}

TEST(Captures, LaterPiecesAreAddedAtTheEndOfTheJail) {
    TestGame g("turn B | BM 4D | RP 4E | jail BO RP");
    g.Move("4D", "4E");
    EXPECT_EQ(JailText(g.game), "BO RP RP");
    EXPECT_EQ(g.game.Jailed(3).X, -4);
}

TEST(Captures, AreToldByTheSideToMoveAndBeep) {
    TestGame blue("turn B | BM 4D | RP 4E");
    blue.Move("4D", "4E");
    EXPECT_EQ(blue.port.message, "Blue captured the piece.");
    EXPECT_EQ(blue.port.beeps, 1);
    TestGame red("turn R | RM 4D | BP 4E");
    red.Move("4D", "4E");
    EXPECT_EQ(red.port.message, "Red captured the piece.");
}

TEST(Captures, AreRecordedAsMoveAndCapture) {
    TestGame g("turn B | BM 4D | RP 5E | RO 5F");
    g.Move("5E", "5F");
    EXPECT_EQ(g.game.lstHistory, Lines{"B:RP 5E-5F cRO"});
}

TEST(Captures, ThePawnIsTakenAndTheTurnIsOverAtOnce) {
    TestGame g("turn B | BM 4D | RP 4E | jail BP BO");
    g.Click("4D");
    g.ClickOnePass("4E");
    EXPECT_EQ(g.game.GameState, kTurnOver);
    g.main.RunPasses();
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(Captures, AMasterOrOfficerTakenLeadsToTheReturnCheckAfterARedraw) {
    for (const char* taken : {"RM", "RO"}) {
        TestGame g(std::string("turn B | BM 4D | ") + taken + " 4E");
        g.Click("4D");
        const int redraws = g.port.redraws;
        g.ClickOnePass("4E");
        EXPECT_EQ(g.game.GameState, kAllowReturn) << taken;
        EXPECT_EQ(g.port.prompt, "Allow Return");
        EXPECT_EQ(g.port.redraws, redraws + 1);
    }
}

TEST(Returns, ForAnOfficerAPawnComesBack) {
    TestGame g("turn B | BM 4D | RO 4E | jail BO BP");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.game.Return.ReturnKind, Pawn);
    EXPECT_EQ(g.game.Return.ReturnSlot, 2);
    EXPECT_EQ(g.game.Return.ReturnName(), "Pawn");
    EXPECT_EQ(g.port.returnQuestions, 0);
    EXPECT_EQ(g.port.prompt, "Return piece");
}

TEST(Returns, ForAnOfficerNothingComesBackWhenOnlyOfficersAreJailed) {
    TestGame g("turn B | BM 4D | RO 4E | jail BO BO");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_EQ(g.game.JailCount(), 3);
}

TEST(Returns, ForAMasterAnOfficerComesBackUnaskedWhenOnlyOfficersAreJailed) {
    TestGame g("turn B | BM 4D | RM 4E | jail RO BO BO");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.game.Return.ReturnKind, Officer);
    EXPECT_EQ(g.game.Return.ReturnSlot, 2);
    EXPECT_EQ(g.game.Return.ReturnName(), "Officer");
    EXPECT_EQ(g.port.returnQuestions, 0);
}

TEST(Returns, ForAMasterAPawnComesBackUnaskedWhenOnlyPawnsAreJailed) {
    TestGame g("turn B | BM 4D | RM 4E | jail BP");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.Return.ReturnKind, Pawn);
    EXPECT_EQ(g.game.Return.ReturnSlot, 1);
    EXPECT_EQ(g.port.returnQuestions, 0);
}

TEST(Returns, ForAMasterThePlayerChoosesWhenBothKindsAreJailed) {
    TestGame pawn("turn B | BM 4D | RM 4E | jail BO BP");
    pawn.port.returnChoice = Pawn;
    pawn.Move("4D", "4E");
    EXPECT_EQ(pawn.port.returnQuestions, 1);
    EXPECT_EQ(pawn.game.Return.ReturnKind, Pawn);
    EXPECT_EQ(pawn.game.Return.ReturnSlot, 2);

    TestGame officer("turn B | BM 4D | RM 4E | jail BO BP");
    officer.port.returnChoice = Officer;
    officer.Move("4D", "4E");
    EXPECT_EQ(officer.port.returnQuestions, 1);
    EXPECT_EQ(officer.game.Return.ReturnKind, Officer);
    EXPECT_EQ(officer.game.Return.ReturnSlot, 1);
    EXPECT_EQ(officer.game.Return.ReturnName(), "Officer");
}

TEST(Returns, TheChoiceIsAmongThePiecesOfTheSideToMove) {
    TestGame blue("turn B | BM 4D | RM 4E | jail BO BP");
    blue.Move("4D", "4E");
    EXPECT_EQ(blue.port.returnSide, Blue);
    TestGame red("turn R | RM 4D | BM 4E | jail RO RP");
    red.Move("4D", "4E");
    EXPECT_EQ(red.port.returnSide, Red);
}

TEST(Returns, ForAPawnNothingEverComesBack) {
    const TestGame g("turn B | BM 4D | jail BP BO RP");
    EXPECT_FALSE(FindReturnCandidates(g.game, 21).Any());
    EXPECT_TRUE(FindReturnCandidates(g.game, 17).Any());
}

TEST(Returns, TheEarliestJailedOfTheOwnSideIsTheCandidate) {
    TestGame g("turn B | BM 4D | RM 4E | jail RP RO BM BP BO BP BO");
    const ReturnCandidates candidates = FindReturnCandidates(g.game, 14);
    EXPECT_EQ(candidates.pawnSlot, 4);
    EXPECT_EQ(candidates.officerSlot, 5);
}

TEST(Returns, AJailedMasterIsNeverACandidate) {
    TestGame g("turn B | BM 4D | RM 4E | jail BM BM");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(Returns, TheOpponentsJailedPiecesAreNoCandidates) {
    TestGame g("turn B | BM 4D | RM 4E | jail RP RO");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(Returns, NoneIsDueForAPieceOfTheOwnSide) {
    TestGame g("turn B | BM 4D | BO 4E | jail BP");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_EQ(g.game.GameState, kPickPiece);
}

TEST(Returns, OneIsDueForAnOpposingPieceTakenByAControlledOne) {
    TestGame g("turn B | BM 4D | RP 5E | RO 5F | jail BP");
    g.Move("5E", "5F");
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.game.Turn, Blue);
}

TEST(Returns, NoCaptureOnRecordMeansNoReturn) {
    TestGame g("turn B | BM 4D | jail BP BO");
    for (const std::int16_t captured : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{27}}) {
        g.game.Return.CapturedPiece = captured;
        g.main.SetGameState(kAllowReturn);
        g.main.CheckReturnDue();
        EXPECT_EQ(g.game.GameState, kTurnOver) << captured;
    }
}

TEST(Returns, TheFirstJailedPieceOfTheKindStandsOnTheSquareChosen) {
    TestGame g("turn B | BP 8A | BM 4D | RO 4E | jail BP BP RP");
    g.Move("4D", "4E");
    g.Click("2G");
    EXPECT_EQ(g.On("2G"), 9);
    EXPECT_LT(g.game.Piece(10).X, 0);
    EXPECT_EQ(g.game.lstHistory, (Lines{"B:BM 4D-4E cRO", "  BP r2G"}));
    EXPECT_EQ(g.port.message, "Blue Pawn returned to play.");
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_EQ(g.game.GameState, kPickPiece);
}

TEST(Returns, EndTheTurnAndNameRedToo) {
    TestGame g("turn R | RM 4D | BM 4E | jail RO");
    g.Move("4D", "4E");
    g.ClickOnePass("1A");
    EXPECT_EQ(g.game.GameState, kTurnOver);
    EXPECT_EQ(g.port.message, "Red Officer returned to play.");
    EXPECT_EQ(g.port.beeps, 2);
}

TEST(Returns, TheLastJailedPieceMovesIntoTheFreedSlot) {
    TestGame g("turn B | BM 4D | RO 4E | jail RP BP RM BO");
    g.Move("4D", "4E");
    EXPECT_EQ(JailText(g.game), "RP BP RM BO RO");
    g.Click("1A");
    EXPECT_EQ(JailText(g.game), "RP RO RM BO");
}

TEST(Returns, TheLastSlotIsFreedByShrinking) {
    TestGame g("turn B | BM 4D | jail RP BO");
    RemoveJailEntry(g.game, 2);
    EXPECT_EQ(JailText(g.game), "RP");
    RemoveJailEntry(g.game, 1);
    EXPECT_EQ(g.game.JailTable.size(), 1U);
}

TEST(Returns, AReturnedPieceMayStandAnywhereFreeAndMoveAnywhereNext) {
    TestGame g("turn B | BM 4D | RO 4E | RO 8H | jail BP");
    g.Move("4D", "4E");
    g.Click("7H");
    ASSERT_EQ(g.On("7H"), 8);
    g.Move("8H", "8G");
    g.Move("7H", "6G");
    EXPECT_EQ(g.On("6G"), 8);
}

TEST(Returns, ATakenSquareIsNotReturnedToEvenWhenItWasNotClicked) {
    TestGame g("turn B | BM 4D | RO 4E | jail BP");
    g.Move("4D", "4E");
    const Game before = g.game;
    EXPECT_EQ(ReturnPiece(g.game, {4, 5}), 0);
    EXPECT_EQ(g.game, before);
}

TEST(Returns, WithoutAJailedPieceOrSlotNothingHappens) {
    TestGame g("turn B | BO 1B | BO 1C | BO 1D | BO 1E | jail BP");
    g.game.GameState = kReturnPiece;
    g.game.Return.ReturnKind = Officer;
    g.game.Return.ReturnSlot = 1;
    EXPECT_EQ(ReturnPiece(g.game, {1, 1}), 0);
    g.game.Return.ReturnKind = Pawn;
    for (const std::int16_t slot : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{2}}) {
        g.game.Return.ReturnSlot = slot;
        EXPECT_EQ(ReturnPiece(g.game, {1, 1}), 0);
    }
    EXPECT_EQ(g.game.JailCount(), 1);
    EXPECT_EQ(g.On("1A"), 0);
}

TEST(Victory, EachHasItsSentence) {
    const auto sentence = [](const std::string& jail) {
        const TestGame g("turn B | jail " + jail);
        return std::string(FindVictory(g.game).sentence);
    };
    const std::string blueMasters = "BM BM BM";
    const std::string redMasters = "RM RM RM";
    const std::string blueOthers = "BO BO BO BO BP BP BP BP BP BP";
    const std::string redOthers = "RO RO RO RO RP RP RP RP RP RP";
    const std::string redByMasters = "Red has captured all Blue's Masters, and wins!";
    const std::string redByOthers = "Red has captured all Blue's Officers and Pawns, and wins!";
    const std::string blueByMasters = "Blue has captured all Red's Masters, and wins!";
    const std::string blueByOthers = "Blue has captured all Red's Officers and Pawns, and wins!";
    EXPECT_EQ(sentence(blueMasters), redByMasters);
    EXPECT_EQ(sentence(blueOthers), redByOthers);
    EXPECT_EQ(sentence(redMasters), blueByMasters);
    EXPECT_EQ(sentence(redOthers), blueByOthers);
    // a later one replaces an earlier one
    EXPECT_EQ(sentence(blueMasters + ' ' + blueOthers), redByOthers);
    EXPECT_EQ(sentence(blueOthers + ' ' + redMasters), blueByMasters);
    EXPECT_EQ(sentence(redMasters + ' ' + redOthers), blueByOthers);
    EXPECT_EQ(sentence(redOthers + ' ' + blueMasters), blueByOthers);
}

TEST(Victory, IsNotYetWithOnePieceLeft) {
    for (const char* jail : {"BM BM", "RM RM", "BO BO BO BP BP BP BP BP BP", "BO BO BO BO BP BP BP BP BP",
                             "RO RO RO RP RP RP RP RP RP", "RO RO RO RO RP RP RP RP RP", "BM BM RM RM",
                             "BO BO BO BO", "RP RP RP RP RP RP"}) {
        const TestGame g(std::string("turn B | jail ") + jail);
        EXPECT_EQ(FindVictory(g.game).sentence, "") << jail;
    }
    EXPECT_EQ(FindVictory(Game{}).sentence, "") << "a game without a jail";
}

TEST(Victory, ThreeJailedMastersEndTheGameAtTheNextPass) {
    TestGame g("turn B | BM 4D | jail RM RM RM");
    EXPECT_EQ(g.game.GameState, kPickPiece);
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kGameOver);
    EXPECT_EQ(g.port.prompt, "Game Over");
    EXPECT_EQ(g.port.message, "Blue has captured all Red's Masters, and wins!");
    EXPECT_EQ(g.game.VictoryText, g.port.message);
    EXPECT_EQ(g.port.beeps, 0);
}

TEST(Victory, ComesInThePassOfTheCaptureBeforeTheReturnCheck) {
    TestGame g("turn B | BM 4D | RM 4E | jail RM RM BP BO");
    g.net.NetConnected = g.net.InGame = true;
    g.Click("4D");
    g.ClickOnePass("4E");
    EXPECT_EQ(g.game.GameState, kGameOver);
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kGameOver);
    EXPECT_EQ(g.port.returnQuestions, 0);
    EXPECT_EQ(g.game.JailCount(), 5);
    EXPECT_EQ(g.port.sent, (Lines{"M(4, 4)", "M(4, 5)"}));
}

TEST(Victory, TheLastPawnEndsTheGameToo) {
    TestGame g("turn R | RM 4D | BP 4E | jail BO BO BO BO BP BP BP BP BP");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.GameState, kGameOver);
    EXPECT_EQ(g.port.message, "Red has captured all Blue's Officers and Pawns, and wins!");
}

TEST(Victory, AReturnThatEmptiesTheJailInTimeKeepsTheGameOn) {
    TestGame g("turn B | BM 4D | RO 4E | BO 1A | jail BP BP BP BP BP BP BO BO BO");
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    g.Click("8H");
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(Victory, IsToldOnceAndSoundsForTheLocalPlayer) {
    TestGame g("turn B | BM 4D | jail RM RM RM");
    g.main.RunPasses();
    g.main.RunPasses();
    EXPECT_EQ(g.port.gameEndSounds, std::vector<bool>{true}) << "a local game counts the player as Blue";
    EXPECT_TRUE(g.port.victoriesAnnounced.empty());
}

TEST(Victory, IsAnnouncedInANetworkGameWithTheSoundOfTheLocalSide) {
    for (const bool playingBlue : {true, false})
        for (const bool blueWins : {true, false}) {
            TestGame g(blueWins ? "turn B | jail RM RM RM" : "turn B | jail BM BM BM");
            g.net.NetConnected = g.net.InGame = true;
            g.net.PlayingBlue = playingBlue;
            g.main.RunPasses();
            EXPECT_EQ(g.port.victoriesAnnounced, std::vector<bool>{blueWins});
            EXPECT_EQ(g.port.gameEndSounds, std::vector<bool>{blueWins == playingBlue});
        }
}

} // namespace
} // namespace tarveth::test
