// The marks on the board: which there are, how well they are seen, and that they differ in shape.
#include "display/boardmarks.h"

#include "display/contrast.h"
#include "tests/Dice.h"
#include "tests/TestGame.h"
#include "tests/display/DisplayGame.h"
#include "tests/engine/RandomPosition.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace tarveth::test {

namespace {

constexpr std::array kChoices = {Choice::PickOwn, Choice::PickControlled, Choice::Move,
                                 Choice::Capture, Choice::WinningCapture, Choice::Return};
constexpr Square kMarked{4, 4};

BoardMarks With(Choice choice) {
    BoardMarks marks;
    marks.choices[kMarked.column][kMarked.row] = choice;
    return marks;
}

BoardMarks WithLast(const MoveTrace& last) {
    BoardMarks marks;
    marks.last = last;
    return marks;
}

BoardMarks WithHint(const MoveTrace& hint) {
    BoardMarks marks;
    marks.hint = hint;
    return marks;
}

constexpr Square kElsewhere{8, 8};

// Every kind of mark that stays in its square, by name.
std::map<std::string, BoardMarks> MarksOfSquares() {
    std::map<std::string, BoardMarks> marks;
    for (const Choice choice : kChoices)
        marks["choice " + std::to_string(static_cast<int>(choice))] = With(choice);
    marks["from"] = WithLast({kMarked, kElsewhere, false, {}});
    marks["to"] = WithLast({kElsewhere, kMarked, false, {}});
    marks["to, capturing"] = WithLast({kElsewhere, kMarked, true, {}});
    marks["returned"] = WithLast({kElsewhere, kElsewhere, false, kMarked});
    return marks;
}

// Every kind of mark, by name.
std::map<std::string, BoardMarks> AllMarks() {
    std::map<std::string, BoardMarks> marks = MarksOfSquares();
    marks["advised from"] = WithHint({kMarked, kElsewhere, false, {}});
    marks["advised to"] = WithHint({kElsewhere, kMarked, false, {}});
    marks["advised return"] = WithHint({{1, 1}, {2, 1}, false, kMarked});
    return marks;
}

PixelBuffer MarkedSquare(const PixelBuffer& board) {
    const int edge = board.Width() / kBoardSize;
    PixelBuffer square(edge, edge);
    square.CopyFrom(board, -(kMarked.column - 1) * edge, -(kMarked.row - 1) * edge);
    return square;
}

// The pixels of the square that the mark changes, as text: one letter each.
std::string ShapeOf(const PixelBuffer& before, const PixelBuffer& after) {
    std::string shape;
    for (int y = 0; y < before.Height(); ++y)
        for (int x = 0; x < before.Width(); ++x)
            shape += Contrast(before.At(x, y), after.At(x, y)) >= kShapeContrast ? '#' : '.';
    return shape;
}

std::size_t Inked(const std::string& shape) {
    return static_cast<std::size_t>(std::ranges::count(shape, '#'));
}

// A plain board of one colour, as large as `edge` asks.
PixelBuffer PlainBoard(int edge, Pixel colour) {
    return PixelBuffer(edge * kBoardSize, edge * kBoardSize, colour);
}

std::string ShapeOn(const PixelBuffer& board, const BoardMarks& marks) {
    PixelBuffer marked = board;
    DrawMarks(marked, marks, Rgb(0, 0, 0), Rgb(255, 255, 255));
    return ShapeOf(MarkedSquare(board), MarkedSquare(marked));
}

int ZoneAt(const ZoneMap& map, int column, int row) {
    return map[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)];
}

} // namespace

TEST(ReadableOn, HasTheContrastOnEveryGround) {
    for (int red = 0; red <= 255; red += 17)
        for (int green = 0; green <= 255; green += 17)
            for (int blue = 0; blue <= 255; blue += 17)
                for (const Pixel wanted : {Rgb(0, 145, 110), Rgb(255, 255, 255), Rgb(0, 0, 0)}) {
                    const Pixel ground = Rgb(red, green, blue);
                    ASSERT_GE(Contrast(ReadableOn(ground, wanted), ground), kShapeContrast);
                    ASSERT_GE(Contrast(LayerOn(ground, wanted), ground), kShapeContrast);
                }
}

TEST(ReadableOn, LeavesAColourThatHasTheContrastAlready) {
    EXPECT_EQ(ReadableOn(Rgb(0, 0, 0), Rgb(0, 145, 110)), Rgb(0, 145, 110));
    EXPECT_EQ(ReadableOn(Rgb(255, 255, 255), Rgb(0, 145, 110)), Rgb(0, 145, 110));
}

TEST(Marks, AreSeenOnGroundsOfAnyColourAndSize) {
    for (const int edge : {24, 37, 77, 200})
        for (int shade = 0; shade <= 255; shade += edge < 77 ? 51 : 255)
            for (const Pixel ground :
                 {Rgb(shade, shade, shade), Rgb(shade, 128, 64), Rgb(139, shade, 43), Rgb(30, 90, shade)})
                for (const auto& [name, marks] : AllMarks()) {
                    const std::size_t inked = Inked(ShapeOn(PlainBoard(edge, ground), marks));
                    ASSERT_GE(inked, static_cast<std::size_t>(edge * edge / 60))
                        << name << " on " << ground << " at " << edge;
                }
}

TEST(Marks, EachPixelThatAMarkCoversWhollyHasTheContrast) {
    const DisplayGame g(64);
    for (const auto& [name, marks] : AllMarks()) {
        PixelBuffer marked = g.board.picDisplay.Pixels;
        DrawMarks(marked, marks, Rgb(0, 0, 0), Rgb(255, 255, 255));
        const PixelBuffer before = MarkedSquare(g.board.picDisplay.Pixels);
        const PixelBuffer after = MarkedSquare(marked);
        const std::string shape = ShapeOf(before, after);
        // What has less contrast is the smooth edge of a shape: a neighbour of a pixel that has it.
        for (int y = 1; y < 63; ++y)
            for (int x = 1; x < 63; ++x) {
                if (before.At(x, y) == after.At(x, y))
                    continue;
                bool nearInk = false;
                for (int i = 0; i < 9; ++i)
                    nearInk |= shape[static_cast<std::size_t>((y + i / 3 - 1) * 64 + x + i % 3 - 1)] == '#';
                ASSERT_TRUE(nearInk) << name << ' ' << x << ' ' << y;
            }
    }
}

TEST(Marks, DifferInShapeAtEverySize) {
    for (const int edge : {24, 32, 64, 200}) {
        std::map<std::string, std::string> shapes;
        for (const auto& [name, marks] : AllMarks())
            shapes[name] = ShapeOn(PlainBoard(edge, Rgb(255, 255, 255)), marks);
        for (const auto& [name, shape] : shapes)
            for (const auto& [other, otherShape] : shapes) {
                std::size_t different = 0;
                for (std::size_t i = 0; i < shape.size(); ++i)
                    different += shape[i] == otherShape[i] ? 0 : 1;
                if (name == other)
                    continue;
                EXPECT_GE(different, static_cast<std::size_t>(edge * edge / 90))
                    << name << " and " << other << " at " << edge;
            }
    }
}

TEST(Marks, StayInTheirSquare) {
    for (const auto& [name, marks] : MarksOfSquares()) {
        PixelBuffer board = PlainBoard(32, Rgb(255, 255, 255));
        DrawMarks(board, marks, Rgb(0, 0, 0), Rgb(255, 255, 255));
        PixelBuffer around = board;
        const PixelBuffer blank(32, 32, Rgb(255, 255, 255));
        around.CopyFrom(blank, (kMarked.column - 1) * 32, (kMarked.row - 1) * 32);
        around.CopyFrom(blank, 7 * 32, 7 * 32); // the other end of a last move
        EXPECT_TRUE(around == PlainBoard(32, Rgb(255, 255, 255))) << name;
    }
}

TEST(Marks, AHintIsNotShownWhileAPieceGlides) {
    DisplayGame g(32);
    MarkedView view;
    view.hint = {{4, 5}, {4, 4}, false, {}};
    EXPECT_EQ(FindMarks(g.game, g.settings, view).hint, view.hint);
    g.game.Animating = true;
    EXPECT_EQ(FindMarks(g.game, g.settings, view).hint, MoveTrace());
}

TEST(Marks, OfARunningGameAreItsChoices) {
    DisplayGame g(32);
    const auto found = [&] { return FindMarks(g.game, g.settings, {true, false, {{4, 5}, {4, 3}, {}}, {}}); };
    EXPECT_EQ(found().choices[4][5], Choice::PickOwn);
    EXPECT_EQ(found().choices[4][3], Choice::None);
    g.Click({4, 5});
    EXPECT_EQ(found().choices, ListDestinations(g.game));
    EXPECT_EQ(found().choices[4][4], Choice::Move);
    EXPECT_EQ(found().choices[3][4], Choice::Capture);
    g.game.Animating = true;
    EXPECT_TRUE(found().Empty()) << "the piece is on its way";
}

TEST(Marks, AreNoChoicesOutOfTurn) {
    DisplayGame g(32);
    EXPECT_TRUE(FindMarks(g.game, g.settings, {false, false, {{4, 5}}, {}}).Empty());
}

TEST(Marks, AreGoneWhileZonesArePaintedOverTheBoard) {
    DisplayGame g(32);
    g.Click({4, 5});
    EXPECT_FALSE(g.board.ZonePainted);
    g.mouse.MouseDown(MouseButton::Right, g.MiddleOf(4), g.MiddleOf(8));
    EXPECT_TRUE(g.board.ZonePainted);
    EXPECT_TRUE(
        FindMarks(g.game, g.settings, {true, g.board.ZonePainted, {}, {{1, 1}, {2, 2}, false, {}}}).Empty());
    g.mouse.MouseUp(MouseButton::Right, g.MiddleOf(4), g.MiddleOf(8));
    EXPECT_FALSE(g.board.ZonePainted);
}

TEST(Marks, AreOnlyThoseThatTheSettingsAskFor) {
    DisplayGame g(32);
    g.Click({4, 5});
    const MarkedView view{true, false, {}, {{1, 1}, {2, 2}, true, {}}};
    g.settings.LegalMoves = 0;
    EXPECT_EQ(FindMarks(g.game, g.settings, view), WithLast(view.last));
    g.settings.LastMove = 0;
    EXPECT_TRUE(FindMarks(g.game, g.settings, view).Empty());
    g.settings.Zones = -1;
    EXPECT_EQ(FindMarks(g.game, g.settings, view).zones[Red], ZoneMap{});
    g.settings.BothZones = -1;
    EXPECT_NE(FindMarks(g.game, g.settings, view).zones[Red], ZoneMap{});
}

TEST(Marks, OfTheZonesAreThoseThatTheRulesCompute) {
    Dice dice(21);
    Settings settings;
    settings.Zones = -1;
    for (int i = 0; i < 2'000; ++i) {
        const Game game = RandomPosition(dice);
        ZoneMap zones{};
        ComputeZones(game, zones);
        const BoardMarks marks = FindMarks(game, settings, {});
        ASSERT_EQ(marks.zones[static_cast<std::size_t>(game.Turn)], zones);
        ASSERT_EQ(marks.zones[static_cast<std::size_t>(Opponent(game.Turn))], ZoneMap{});
    }
}

TEST(ZonePatterns, LieUnderThePiecesAndOnTheirSquaresAlone) {
    const DisplayGame g(64);
    const PixelBuffer& before = g.board.picDisplay.Pixels;
    BoardMarks marks;
    ComputeZones(g.game, marks.zones[Blue]);
    PixelBuffer after = before;
    DrawMarks(after, marks, Rgb(0, 0, 0), Rgb(255, 255, 255));
    for (int y = 0; y < before.Height(); ++y)
        for (int x = 0; x < before.Width(); ++x) {
            if (before.At(x, y) == after.At(x, y))
                continue;
            const bool black = (x / 64 + y / 64) % 2 == 0;
            ASSERT_EQ(before.At(x, y), black ? Rgb(0, 0, 0) : Rgb(255, 255, 255)) << x << ' ' << y;
            ASSERT_NE(ZoneAt(marks.zones[Blue], x / 64 + 1, y / 64 + 1), 0) << x << ' ' << y;
        }
    // The middle of a square with a piece is the piece's, even where it has the colour of the ground.
    for (int i = 1; i <= kPieces; ++i) {
        const int x = g.game.Piece(i).X.ToInt16() * 64 - 32;
        const int y = g.game.Piece(i).Y.ToInt16() * 64 - 32;
        ASSERT_EQ(before.At(x, y), after.At(x, y)) << i;
    }
}

TEST(ZonePatterns, OfKindsAndSidesDifferAndAreSeenOnEveryGround) {
    for (const int edge : {24, 37, 64})
        for (int shade = 0; shade <= 255; shade += 85) {
            std::set<std::string> shapes;
            for (const Side side : {Blue, Red})
                for (const PieceKind kind : {Master, Officer}) {
                    const Pixel ground = Rgb(shade, shade, shade);
                    BoardMarks marks;
                    for (auto& column : marks.zones[static_cast<std::size_t>(side)])
                        column.fill(kind); // so that no outline is drawn inside
                    PixelBuffer board = PlainBoard(edge, ground);
                    DrawMarks(board, marks, ground, ground);
                    const std::string shape =
                        ShapeOf(MarkedSquare(PlainBoard(edge, ground)), MarkedSquare(board));
                    EXPECT_GE(Inked(shape), static_cast<std::size_t>(edge * edge / 50))
                        << shade << ' ' << edge;
                    shapes.insert(shape);
                }
            EXPECT_EQ(shapes.size(), 4U) << shade << ' ' << edge;
        }
}

TEST(JailMark, SurroundsTheEntryThatComesBack) {
    PixelBuffer jail(256, 96, Rgb(200, 200, 200));
    const PixelBuffer before = jail;
    DrawJailMark(jail, 10); // the second of the second row
    EXPECT_NE(jail.At(32, 32), before.At(32, 32));
    EXPECT_EQ(jail.At(48, 48), before.At(48, 48));
    PixelBuffer around = jail;
    around.CopyFrom(PixelBuffer(32, 32, Rgb(200, 200, 200)), 32, 32);
    EXPECT_TRUE(around == before);
    for (const int slot : {0, -1, 25, 1000}) {
        PixelBuffer same = before;
        DrawJailMark(same, slot);
        EXPECT_TRUE(same == before) << slot;
    }
}

TEST(BoardMousePointed, FollowsThePointerAndForgetsWhereItHasClicked) {
    DisplayGame g(32);
    EXPECT_TRUE(g.mouse.Point(g.MiddleOf(4), g.MiddleOf(5)));
    EXPECT_EQ(g.mouse.Pointed, (Square{4, 5}));
    EXPECT_FALSE(g.mouse.Point(g.MiddleOf(4) + 1, g.MiddleOf(5)));
    for (const MouseButton button : {MouseButton::Left, MouseButton::Right, MouseButton::Other}) {
        g.mouse.Point(g.MiddleOf(5), g.MiddleOf(5));
        g.mouse.Point(g.MiddleOf(4), g.MiddleOf(5));
        g.mouse.MouseDown(button, g.MiddleOf(4), g.MiddleOf(5));
        EXPECT_EQ(g.mouse.Pointed, Square{});
        g.mouse.MouseUp(button, g.MiddleOf(4), g.MiddleOf(5));
        EXPECT_FALSE(g.mouse.Point(g.MiddleOf(4) + 2, g.MiddleOf(5))) << "still on the square";
    }
    EXPECT_TRUE(g.mouse.Point(g.MiddleOf(5), g.MiddleOf(5)));
    EXPECT_TRUE(g.mouse.Point(g.MiddleOf(4), g.MiddleOf(5)));
    EXPECT_TRUE(g.mouse.Point(-1, -1));
    EXPECT_EQ(g.mouse.Pointed, Square{});
}

} // namespace tarveth::test
