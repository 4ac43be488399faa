// Saved games: the bytes that are written, what the reader forgives, and what it refuses.
#include "storage/modFileIO.h"

#include "engine/rules/checkgame.h"
#include "engine/rules/turns.h"
#include "platform/file_error.h"
#include "tests/Dice.h"
#include "tests/TestGame.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>
#include <optional>

namespace tarveth::test {

namespace {

constexpr int kTurnLine = 3;
constexpr int kPieceCountLine = 4;
constexpr int kFirstPieceLine = 5;
constexpr int kJailCountLine = kFirstPieceLine + 10 * kPieces;

// A game of so many turns by chance.
Game PlayedGame(int turns) {
    TestGame table;
    Dice dice(41);
    for (int i = 0; i < turns && table.game.GameState != kGameOver; ++i) {
        const CompleteTurn turn = dice.OneOf(ListTurns(table.game));
        table.port.returnChoice = turn.returnKind == Officer ? Officer : Pawn;
        for (const Square square : {turn.from, turn.to, turn.returnTo}) {
            table.main.DepositSquare(square);
            table.main.RunPasses();
        }
    }
    return table.game;
}

Game GameWithOneCapture() {
    TestGame table;
    table.Move("4E", "4D");
    table.Move("4C", "4D"); // Red's Officer takes the Pawn
    return table.game;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find("\r\n", start);
        lines.push_back(text.substr(start, end - start));
        start = end == std::string::npos ? text.size() : end + 2;
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

// The text of a new game with one line, counted from 1, replaced.
std::string WithLine(int number, const std::string& content) {
    std::vector<std::string> lines = LinesOf(GameText(TestGame().game, ""));
    lines.at(static_cast<std::size_t>(number - 1)) = content;
    return Joined(lines);
}

int FieldLine(int piece, int field) {
    return kFirstPieceLine + 10 * (piece - 1) + field - 1;
}

// The line that the reader names in refusing a text; nothing when it takes it.
std::optional<std::size_t> RefusedLine(const std::string& text) {
    try {
        EXPECT_EQ(CheckGame(ParseGame(text, "a.tsg")), "");
    } catch (const platform::FileError& error) {
        EXPECT_EQ(error.Path(), "a.tsg");
        EXPECT_TRUE(error.Line().has_value());
        return error.Line();
    }
    return std::nullopt;
}

// What a file keeps of a game.
void ExpectSameGame(const Game& read, const Game& written) {
    EXPECT_EQ(read.Turn, written.Turn);
    EXPECT_EQ(read.PieceTable, written.PieceTable);
    EXPECT_EQ(read.JailTable, written.JailTable);
    EXPECT_EQ(read.lstHistory, written.lstHistory);
    EXPECT_EQ(read.DirectionTable, written.DirectionTable);
    EXPECT_EQ(read.GameState, kPickPiece);
    EXPECT_EQ(read.CurPiece, 0);
}

} // namespace

TEST(SavedGames, BeginWithHeaderTitleTurnAndPieceCount) {
    const auto lines = LinesOf(GameText(TestGame().game, "Game 1.tsg"));
    EXPECT_EQ(lines[0], "Tarveth 1.00");
    EXPECT_EQ(lines[1], "Game 1.tsg");
    EXPECT_EQ(lines[2], " 1 ");
    EXPECT_EQ(lines[3], " 26 ");
    EXPECT_EQ(lines.size(), 4U + 260 + 1 + 1);
    EXPECT_EQ(lines[264], " 0 ");
    EXPECT_EQ(lines[265], " 0 ");
}

TEST(SavedGames, WriteTheTenFieldsOfAPieceInOrder) {
    const auto lines = LinesOf(GameText(TestGame().game, ""));
    const std::vector<std::string> bluePawn8(lines.begin() + FieldLine(8, 1) - 1,
                                             lines.begin() + FieldLine(8, 10));
    EXPECT_EQ(bluePawn8,
              (std::vector<std::string>{" 3", " 1", " 3", " 6", " 0", " 0", " 1", " 1", " 3", " 3"}));
}

TEST(SavedGames, AfterOneCaptureHoldOneJailBlockWithNegativeSquares) {
    const Game game = GameWithOneCapture();
    const auto lines = LinesOf(GameText(game, ""));
    EXPECT_EQ(lines[kTurnLine - 1], " 1 ");
    ASSERT_EQ(lines[kJailCountLine - 1], " 1 ");
    const std::vector<std::string> jailed(lines.begin() + kJailCountLine,
                                          lines.begin() + kJailCountLine + 10);
    EXPECT_EQ(jailed, (std::vector<std::string>{" 3", " 1", "-4", "-4", " 4", " 5", " 1", " 1", " 3", " 3"}));
    EXPECT_EQ(lines[kJailCountLine + 10], " 2 ");
    EXPECT_EQ(lines[kJailCountLine + 11], "B:BP 4E-4D");
    EXPECT_EQ(lines[kJailCountLine + 12], "R:RO 4C-4D cBP");

    const Game read = ParseGame(GameText(game, ""), "a.tsg");
    EXPECT_EQ(read.JailCount(), 1);
    EXPECT_EQ(read.Jailed(1).X, -4);
    EXPECT_EQ(read.Piece(12).X, -4);
    EXPECT_EQ(read.Piece(12).Y, -4);
}

TEST(SavedGames, ReadBackAsTheyWereWritten) {
    for (const Game& game : {TestGame().game, GameWithOneCapture(), PlayedGame(60), PlayedGame(150)}) {
        const std::string text = GameText(game, "a title");
        const Game read = ParseGame(text, "a.tsg");
        ExpectSameGame(read, game);
        EXPECT_EQ(ListTurns(read).size(), ListTurns(game).size());
        EXPECT_EQ(GameText(read, "a title"), text);
    }
}

TEST(SavedGames, ReadBackFromAFileAndOverwriteIt) {
    const TempFolder folder;
    const std::string file = folder.File("Game 1.tsg");
    PutBytes(file, "something longer and older");
    const Game game = GameWithOneCapture();
    WriteGame(game, "Game 1.tsg", file);
    EXPECT_EQ(GetBytes(file), GameText(game, "Game 1.tsg"));
    ExpectSameGame(ReadGame(file), game);
}

TEST(SavedGames, ReadTurn2AsRed) {
    EXPECT_EQ(ParseGame(WithLine(kTurnLine, " 2 "), "a.tsg").Turn, Red);
}

TEST(SavedGames, KeepTheTwoBlanksOfAReturnLine) {
    Game game = TestGame().game;
    game.lstHistory = {"B:BM 1A-1B cRO", "  BP r2G", ""};
    EXPECT_EQ(ParseGame(GameText(game, ""), "a.tsg").lstHistory, game.lstHistory);
}

TEST(SavedGames, WithoutAHistoryHaveAnEmptyOne) {
    std::vector<std::string> lines = LinesOf(GameText(TestGame().game, ""));
    lines.resize(kJailCountLine);
    EXPECT_TRUE(ParseGame(Joined(lines), "a.tsg").lstHistory.empty());
}

TEST(SavedGames, MayHaveAnyHeaderAndTitle) {
    EXPECT_EQ(RefusedLine(WithLine(1, "")), std::nullopt);
    EXPECT_EQ(RefusedLine(WithLine(2, "26")), std::nullopt);
}

TEST(SavedGames, MayEndTheirLinesWithLineFeedsOnly) {
    const Game game = GameWithOneCapture();
    std::string text = GameText(game, "");
    std::erase(text, '\r');
    ExpectSameGame(ParseGame(text, "a.tsg"), game);
}

TEST(SavedGames, MayLackTheLastLineEnd) {
    const Game game = GameWithOneCapture();
    std::string text = GameText(game, "");
    text.resize(text.size() - 2);
    ExpectSameGame(ParseGame(text, "a.tsg"), game);
}

TEST(SavedGames, IgnoreWhatFollowsTheHistory) {
    const Game game = GameWithOneCapture();
    ExpectSameGame(ParseGame(GameText(game, "") + "more\r\n", "a.tsg"), game);
}

TEST(SavedGames, TakeTheNumberThatALineBeginsWith) {
    EXPECT_EQ(ParseGame(WithLine(FieldLine(1, 5), "12 and more"), "a.tsg").Piece(1).PrevX, 12);
    EXPECT_EQ(ParseGame(WithLine(FieldLine(1, 5), "abc"), "a.tsg").Piece(1).PrevX, 0);
    EXPECT_EQ(ParseGame(WithLine(FieldLine(1, 5), ""), "a.tsg").Piece(1).PrevX, 0);
}

TEST(SavedGames, RoundHalvesToTheEvenNumber) {
    EXPECT_EQ(ParseGame(WithLine(FieldLine(1, 7), " 2.5"), "a.tsg").Piece(1).MaxMove, 2);
    EXPECT_EQ(ParseGame(WithLine(FieldLine(1, 7), " 3.5"), "a.tsg").Piece(1).MaxMove, 4);
    EXPECT_EQ(ParseGame(WithLine(FieldLine(1, 7), "-2.5"), "a.tsg").Piece(1).MaxMove, -2);
}

TEST(SavedGames, RefuseNumbersBeyondSixteenBits) {
    const int line = FieldLine(3, 6);
    EXPECT_EQ(ParseGame(WithLine(line, " 32767"), "a.tsg").Piece(3).PrevY, 32767);
    EXPECT_EQ(ParseGame(WithLine(line, "-32768"), "a.tsg").Piece(3).PrevY, -32768);
    for (const char* number : {" 32768", " 32767.5", "-32769", "1e9", "1e999", "-1e999"})
        EXPECT_EQ(RefusedLine(WithLine(line, number)), line) << number;
}

TEST(SavedGames, RefuseAnotherTurnThanBluesOrReds) {
    for (const char* turn : {" 0 ", " 3 ", "-1 ", "abc", " 65537 "})
        EXPECT_EQ(RefusedLine(WithLine(kTurnLine, turn)), kTurnLine) << turn;
}

TEST(SavedGames, RefuseAnotherNumberOfPiecesThan26) {
    for (const char* count : {" 25 ", " 27 ", " 0 ", "-1 ", " 1000000000 ", "1e999"})
        EXPECT_EQ(RefusedLine(WithLine(kPieceCountLine, count)), kPieceCountLine) << count;
}

TEST(SavedGames, RefuseCountsThatTheFileDoesNotHold) {
    for (const char* count : {" 1 ", " 26 ", " 27 ", "-1 ", " 32767 ", "1e300"})
        EXPECT_EQ(RefusedLine(WithLine(kJailCountLine, count)), kJailCountLine) << count;
    for (const char* count : {" 1 ", " 100000 ", " 100001 ", "-1 ", "1e300"})
        EXPECT_EQ(RefusedLine(WithLine(kJailCountLine + 1, count)), kJailCountLine + 1) << count;
}

TEST(SavedGames, MayHaveAHundredThousandHistoryLinesAndNoMore) {
    Game game = TestGame().game;
    game.lstHistory.assign(100'000, "B:BP 4E-4D");
    EXPECT_EQ(ParseGame(GameText(game, ""), "a.tsg").lstHistory.size(), 100'000U);
    game.lstHistory.emplace_back();
    EXPECT_EQ(RefusedLine(GameText(game, "")), kJailCountLine + 1);
}

TEST(SavedGames, RefuseUnknownKindsAndSides) {
    for (const char* number : {" 0", " 4", "-1"}) {
        EXPECT_EQ(RefusedLine(WithLine(FieldLine(7, 1), number)), FieldLine(7, 1)) << number;
        EXPECT_EQ(RefusedLine(WithLine(FieldLine(7, 2), number)), FieldLine(7, 2)) << number;
    }
    EXPECT_EQ(RefusedLine(WithLine(FieldLine(7, 2), " 3")), FieldLine(7, 2));
}

TEST(SavedGames, RefuseCoordinatesThatAreNoSquare) {
    for (const char* number : {" 0", " 9", "-9", " 1.5", " .9999", "abc", "1e999"}) {
        EXPECT_EQ(RefusedLine(WithLine(FieldLine(1, 3), number)), FieldLine(1, 3)) << number;
        EXPECT_EQ(RefusedLine(WithLine(FieldLine(1, 4), number)), FieldLine(1, 4)) << number;
    }
}

TEST(SavedGames, RefuseAColumnOnTheBoardWithARowInTheJail) {
    EXPECT_EQ(RefusedLine(WithLine(FieldLine(1, 4), "-8")), FieldLine(1, 4));
}

TEST(SavedGames, RefuseTwoPiecesOnOneSquare) {
    EXPECT_EQ(RefusedLine(WithLine(FieldLine(2, 3), " 4")), FieldLine(2, 1)); // piece 1 stands on (4, 8)
}

TEST(SavedGames, RefuseAJailEntryWhosePieceIsOnTheBoard) {
    auto lines = LinesOf(GameText(GameWithOneCapture(), ""));
    lines[kJailCountLine] = " 2"; // an Officer: none has been taken
    EXPECT_EQ(RefusedLine(Joined(lines)), kJailCountLine + 1);
    lines[kJailCountLine] = " 3";
    lines[kJailCountLine + 2] = " 4";
    lines[kJailCountLine + 3] = " 4";
    EXPECT_EQ(RefusedLine(Joined(lines)), kJailCountLine + 1);
}

TEST(SavedGames, CutShortAnywhereAreRefusedOrWhole) {
    const std::string text = GameText(GameWithOneCapture(), "title");
    const std::size_t endOfJail = text.rfind(" 2 \r\n");
    // A line without its number is 0: no pieces in the jail, or a limit of the last piece in it.
    const std::size_t jailCount = text.rfind(" 1 \r\n", endOfJail) + 1;
    const std::size_t lastField = endOfJail - 3;
    for (std::size_t length = 0; length < lastField; ++length)
        EXPECT_TRUE(RefusedLine(text.substr(0, length)) || length == jailCount) << "cut to " << length;
    for (std::size_t length = lastField; length < text.size(); ++length)
        RefusedLine(text.substr(0, length)); // checks what it takes
    EXPECT_EQ(RefusedLine(text.substr(0, endOfJail)), std::nullopt);
}

TEST(SavedGames, WithBytesChangedAtWillAreRefusedOrSound) {
    const std::string text = GameText(GameWithOneCapture(), "title");
    constexpr std::string_view kBytes = " -.0123456789eE\r\n\0a\xFF";
    Dice dice(31);
    for (int i = 0; i < 3000; ++i) {
        std::string changed = text;
        for (int change = dice.Between(1, 3); change > 0; --change)
            changed[static_cast<std::size_t>(dice.Below(static_cast<int>(text.size())))] =
                kBytes[static_cast<std::size_t>(dice.Below(static_cast<int>(kBytes.size())))];
        RefusedLine(changed); // checks what it takes
    }
}

TEST(SavedGames, ErrorsNameFileLineAndCause) {
    try {
        ParseGame(WithLine(kTurnLine, " 3 "), "C:\\games\\a.tsg");
        FAIL() << "nothing thrown";
    } catch (const platform::FileError& error) {
        EXPECT_STREQ(error.what(), "C:\\games\\a.tsg, line 3: the side to move must be 1 to 2.");
    }
}

TEST(SavedGames, AMissingOrOverlongFileIsAnError) {
    const TempFolder folder;
    EXPECT_THROW(ReadGame(folder.File("none.tsg")), platform::FileError);
    PutBytes(folder.File("long.tsg"), std::string(std::size_t{8} * 1024 * 1024 + 1, '\n'));
    EXPECT_THROW(ReadGame(folder.File("long.tsg")), platform::FileError);
    EXPECT_THROW(WriteGame(TestGame().game, "", folder.File("none/a.tsg")), platform::FileError);
}

TEST(SavedGames, ATitleWithLineEndsStaysOnItsLine) {
    const Game game = TestGame().game;
    EXPECT_EQ(LinesOf(GameText(game, "a\r\nb"))[1], "a  b");
    ExpectSameGame(ParseGame(GameText(game, "a\nb"), "a.tsg"), game);
}

} // namespace tarveth::test
