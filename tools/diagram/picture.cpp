#include "tools/diagram/picture.h"

#include "display/board.h"
#include "display/stretch.h"
#include "tools/diagram/marks.h"

namespace tarveth::diagram {

namespace {

constexpr Pixel kMasterZone = Rgb(255, 0, 0);
constexpr Pixel kOfficerZone = Rgb(255, 255, 0);
constexpr Pixel kPaper = Rgb(232, 232, 232);
constexpr int kMargin = 32; // for letters and numbers
constexpr int kGap = 16;    // between board and jail

// BoardDisplay needs a window to draw for; this one shows nothing, since the board is drawn only once.
struct NoWindow : DisplayPort, PersonPort {
    void RefreshDisplay() override {}
    void SetTimerInterval(int) override {}
    void Yield() override {}
    void Beep() override {}
    void ShowMessageBox(std::string_view) override {}
    void GameEndSound(bool) override {}
    PieceKind ChooseReturn(std::int16_t) override { return Pawn; }
};

struct Drawing {
    explicit Drawing(const Diagram& shown) : diagram(shown), game(shown.game) {
        pictures.LoadPiecePictures(settings, {});
        board.picJail.BackColor = kPaper;
        board.RedrawBoard();
    }

    int SquareSize() const { return pictures.SquareSize; }
    Spot Middle(Square square) const {
        const double s = SquareSize();
        return {(square.column - 0.5) * s, (square.row - 0.5) * s};
    }

    const Diagram& diagram;
    Game game;
    Settings settings;
    PiecePictures pictures;
    NoWindow window;
    BoardDisplay board{game, settings, pictures, window, window};
};

// Paints the zone under the pieces. Each square has a rim, so that neighbouring ones can be told apart.
void PaintZones(Drawing& drawing) {
    const int s = drawing.SquareSize();
    for (int column = 1; column <= kBoardSize; ++column) {
        for (int row = 1; row <= kBoardSize; ++row) {
            const int zone = drawing.diagram.ZoneAt({column, row});
            if (zone == 0)
                continue;
            const int left = (column - 1) * s;
            const int top = (row - 1) * s;
            drawing.board.picBoard.Pixels.FillBox(left + 2, top + 2, s - 4, s - 4,
                                                  zone == Master ? kMasterZone : kOfficerZone);
            if (const int piece = PieceOn(drawing.game, {column, row}))
                drawing.board.DrawPieceAt(piece, static_cast<std::int16_t>(left),
                                          static_cast<std::int16_t>(top));
        }
    }
}

void PaintMarks(Drawing& drawing) {
    PixelBuffer& pixels = drawing.board.picBoard.Pixels;
    for (const auto& [from, to] : drawing.diagram.arrows)
        DrawArrow(pixels, drawing.Middle(from), drawing.Middle(to));
    for (const Square square : drawing.diagram.can)
        DrawDot(pixels, drawing.Middle(square));
    for (const Square square : drawing.diagram.cannot)
        DrawCross(pixels, drawing.Middle(square));
}

PixelBuffer Part(const PixelBuffer& from, int left, int top, int width, int height) {
    PixelBuffer part(width, height);
    part.CopyFrom(from, -left, -top);
    return part;
}

PixelBuffer WithMargins(const Drawing& drawing) {
    const int s = drawing.SquareSize();
    const int jailRows = (drawing.game.JailCount() + kBoardSize - 1) / kBoardSize;
    const int board = s * kBoardSize;
    PixelBuffer page(kMargin + board, kMargin + board + (jailRows > 0 ? kGap + jailRows * s : 0), kPaper);
    page.CopyFrom(drawing.board.picBoard.Pixels, kMargin, kMargin);
    page.CopyFrom(Part(drawing.board.picJail.Pixels, 0, 0, board, jailRows * s), kMargin,
                  kMargin + board + kGap);
    for (int i = 0; i < kBoardSize; ++i) {
        const double middle = kMargin + (i + 0.5) * s;
        DrawLetter(page, {middle, kMargin / 2.0}, static_cast<char>('1' + i));
        DrawLetter(page, {kMargin / 2.0, middle}, static_cast<char>('A' + i));
    }
    return page;
}

// Draws a whole board with squares of 40 pixels, so that it fits on a page with its text.
PixelBuffer Smaller(const PixelBuffer& page) {
    PixelBuffer smaller(page.Width() * 5 / 8, page.Height() * 5 / 8);
    StretchPixels(page, smaller);
    return smaller;
}

} // namespace

PixelBuffer PictureOf(const Diagram& diagram) {
    Drawing drawing(diagram);
    PaintZones(drawing);
    PaintMarks(drawing);
    if (diagram.WholeBoard())
        return Smaller(WithMargins(drawing));
    const int s = drawing.SquareSize();
    return Part(drawing.board.picBoard.Pixels, (diagram.first.column - 1) * s, (diagram.first.row - 1) * s,
                (diagram.last.column - diagram.first.column + 1) * s,
                (diagram.last.row - diagram.first.row + 1) * s);
}

} // namespace tarveth::diagram
