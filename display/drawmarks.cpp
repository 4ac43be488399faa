// The shapes of the marks. Each is told from the others by its shape alone; colours only help.
#include "display/boardmarks.h"

#include "display/MarkPainter.h"
#include "display/board.h"
#include "display/zonepatterns.h"

#include <algorithm>
#include <cmath>

namespace tarveth {

namespace {

// Of such a brightness that they have kShapeContrast both on black and on white.
constexpr Pixel kMoveColour = Rgb(0, 145, 110);
constexpr Pixel kCaptureColour = Rgb(215, 90, 0);
constexpr Pixel kWinColour = Rgb(190, 120, 0);
constexpr Pixel kLastColour = Rgb(140, 100, 215);
constexpr Pixel kHintColour = Rgb(0, 120, 215);

constexpr double kCornerLeg = 0.25;

void DrawPickBar(MarkPainter& square, double top) {
    const double height = square.Part(0.06, 2);
    square.FillBox({square.Edge() * 0.25, top, square.Edge() * 0.75, top + height}, Ink(kMoveColour));
}

void DrawChoice(MarkPainter square, Choice choice) {
    const double low = square.Edge() - square.Part(0.09, 3);
    switch (choice) {
    case Choice::None:
        break;
    case Choice::PickOwn:
        DrawPickBar(square, low);
        break;
    case Choice::PickControlled:
        DrawPickBar(square, low);
        DrawPickBar(square, square.Part(0.03, 1));
        break;
    case Choice::Move:
        square.FillDisc(square.Part(0.15, 3), Ink(kMoveColour));
        break;
    case Choice::Capture:
        square.FillCorners(square.Part(kCornerLeg, 6), 0, Ink(kCaptureColour));
        break;
    case Choice::WinningCapture:
        square.FillCorners(square.Part(kCornerLeg * 1.3, 8), square.Part(0.08, 2), Ink(kWinColour));
        break;
    case Choice::Return:
        square.FillRing(square.Part(0.17, 4), square.Part(0.06, 2.2), Ink(kMoveColour));
        break;
    }
}

// The piece has left from here: the middles of the square's sides.
void DrawFrom(MarkPainter square) {
    const double thickness = std::round(square.Part(0.05, 2));
    const double first = square.Edge() * 0.35;
    const double last = square.Edge() * 0.65;
    const double far = square.Edge() - thickness;
    for (const MarkBox& side : {MarkBox{first, 0, last, thickness}, MarkBox{first, far, last, square.Edge()},
                                MarkBox{0, first, thickness, last}, MarkBox{far, first, square.Edge(), last}})
        square.FillBox(side, Ink(kLastColour));
}

void DrawTo(MarkPainter square) {
    square.FillFrame(square.Part(0.05, 2), Ink(kLastColour));
}

// The middle of the signs in a square's upper right corner, and how far they reach from there.
struct Sign {
    explicit Sign(const MarkPainter& square)
        : reach(square.Part(0.08, 2.5)),
          thickness(square.Part(0.05, 1.6)),
          x(square.Edge() - reach - square.Part(0.11, 3.5)),
          y(square.Edge() - x) {}

    double reach, thickness, x, y;
};

void DrawCapturedSign(MarkPainter square) {
    const Sign sign(square);
    const double left = sign.x - sign.reach;
    const double right = sign.x + sign.reach;
    const double above = sign.y - sign.reach;
    const double below = sign.y + sign.reach;
    square.DrawStrokes({{left, above, right, below}, {left, below, right, above}}, sign.thickness,
                       Ink(kLastColour));
}

void DrawReturnedSign(MarkPainter square) {
    const Sign sign(square);
    square.DrawStrokes({{sign.x - sign.reach, sign.y, sign.x + sign.reach, sign.y},
                        {sign.x, sign.y - sign.reach, sign.x, sign.y + sign.reach}},
                       sign.thickness, Ink(kLastColour));
}

void DrawLast(PixelBuffer& board, const MoveTrace& last, int edge) {
    const auto at = [&](Square square) {
        return MarkPainter(board, (square.column - 1) * edge, (square.row - 1) * edge, edge);
    };
    if (!last.to.OnBoard() || !last.from.OnBoard())
        return;
    DrawFrom(at(last.from));
    DrawTo(at(last.to));
    if (last.captured)
        DrawCapturedSign(at(last.to));
    if (last.returned.OnBoard()) {
        DrawTo(at(last.returned));
        DrawReturnedSign(at(last.returned));
    }
}

// An arrow from the middle of one square to the middle of another, which leaves the first piece's own middle
// free.
void DrawArrow(PixelBuffer& board, Square from, Square to, int edge) {
    constexpr double kHead = 0.32; // of a square, the length of the two strokes at the tip
    const double dx = to.column - from.column;
    const double dy = to.row - from.row;
    const double length = std::hypot(dx, dy);
    const double alongX = dx / length;
    const double alongY = dy / length;
    const double tipX = (to.column - 0.5) * edge;
    const double tipY = (to.row - 0.5) * edge;
    const double head = kHead * edge;
    MarkPainter picture(board, 0, 0, board.Width());
    picture.DrawStrokes(
        {{(from.column - 0.5 + alongX * kHead) * edge, (from.row - 0.5 + alongY * kHead) * edge, tipX, tipY},
         {tipX, tipY, tipX - head * (alongX + alongY), tipY - head * (alongY - alongX)},
         {tipX, tipY, tipX - head * (alongX - alongY), tipY - head * (alongY + alongX)}},
        std::max(edge * 0.09, 3.0), Ink(kHintColour));
}

void DrawHint(PixelBuffer& board, const MoveTrace& hint, int edge) {
    if (!hint.from.OnBoard() || !hint.to.OnBoard() || hint.from == hint.to)
        return;
    DrawArrow(board, hint.from, hint.to, edge);
    if (!hint.returned.OnBoard())
        return;
    MarkPainter square(board, (hint.returned.column - 1) * edge, (hint.returned.row - 1) * edge, edge);
    square.FillRing(square.Part(0.3, 6), square.Part(0.08, 2.5), Ink(kHintColour));
}

} // namespace

void DrawMarks(PixelBuffer& board, const BoardMarks& marks, Pixel black, Pixel white) {
    const int edge = board.Width() / kBoardSize;
    DrawZones(board, marks.zones, black, white);
    DrawLast(board, marks.last, edge);
    for (int column = 1; column <= kBoardSize; ++column)
        for (int row = 1; row <= kBoardSize; ++row)
            DrawChoice(MarkPainter(board, (column - 1) * edge, (row - 1) * edge, edge),
                       marks.choices[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)]);
    DrawHint(board, marks.hint, edge);
}

void DrawJailMark(PixelBuffer& jail, int slot) {
    const int edge = jail.Width() / kBoardSize;
    const int column = (slot - 1) % kBoardSize;
    const int row = (slot - 1) / kBoardSize;
    if (slot < 1 || (row + 1) * edge > jail.Height())
        return;
    MarkPainter square(jail, column * edge, row * edge, edge);
    square.FillFrame(square.Part(0.05, 2), Ink(kMoveColour));
}

std::optional<PixelBuffer> MarkedBoard(const PixelBuffer& board, const BoardMarks& marks,
                                       const Settings& settings) {
    if (board.Empty() || marks.Empty())
        return std::nullopt;
    PixelBuffer marked = board;
    DrawMarks(marked, marks, ColourOf(settings.BoardBlack), ColourOf(settings.BoardWhite));
    return marked;
}

std::optional<PixelBuffer> MarkedJail(const PixelBuffer& jail, int slot) {
    if (jail.Empty() || slot == 0)
        return std::nullopt;
    PixelBuffer marked = jail;
    DrawJailMark(marked, slot);
    return marked;
}

} // namespace tarveth
