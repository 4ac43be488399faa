#include "display/boardmouse.h"

#include "engine/boardinput.h"

#include <algorithm>
#include <utility>

namespace tarveth {

BoardMouse::BoardMouse(const Settings& settings, BoardDisplay& board, ZoneDisplay& zones, modMAIN& main)
    : settings_(settings), board_(board), zones_(zones), main_(main) {}

Square BoardMouse::SquareUnder(double x, double y) const {
    return SquareAt(x, y, board_.picDisplay.Pixels.Width(), board_.picDisplay.Pixels.Height());
}

bool BoardMouse::Point(double x, double y, bool leftIsDown) {
    const Square under = SquareUnder(x, y);
    if (!leftIsDown)
        pressed_ = {}; // the button was let go where this window was not told
    DragTo(under);
    if (under != clicked_)
        clicked_ = {};
    const Square pointed = under == clicked_ ? Square{} : under;
    return std::exchange(Pointed, pointed) != pointed;
}

// The piece is picked as soon as the pointer leaves its square, so that the marks show where it may go.
void BoardMouse::DragTo(Square square) {
    if (!pressed_.OnBoard() || square == pressed_)
        return;
    if (const Square from = std::exchange(pressed_, {}); main_.WouldPick(from)) {
        main_.DepositSquare(from);
        main_.RunPasses();
    }
}

// What a click has done is marked by itself; a mark of what the next one could do would only be in its way.
void BoardMouse::ForgetPointed(Square clicked) {
    clicked_ = clicked;
    Pointed = {};
}

void BoardMouse::MouseDown(MouseButton button, double x, double y) {
    ForgetPointed(SquareUnder(x, y));
    if (button == MouseButton::Left)
        pressed_ = SquareUnder(x, y);
    if (button == MouseButton::Right && settings_.ShowsZoneOnRightClick())
        zones_.ShowZoneAt(SquareUnder(x, y));
}

void BoardMouse::MouseUp(MouseButton button, double x, double y) {
    zones_.ClearZone();
    if (button != MouseButton::Left)
        return;
    const Square square = SquareUnder(x, y);
    DragTo(square);
    pressed_ = {};
    if (square.OnBoard())
        Cursor.At = square; // the arrow keys continue from the square that was clicked last
    main_.DepositSquare(square);
}

void BoardMouse::MoveCursor(int columns, int rows) {
    if (Cursor.Visible) {
        Cursor.At.column = std::clamp(Cursor.At.column + columns, 1, kBoardSize);
        Cursor.At.row = std::clamp(Cursor.At.row + rows, 1, kBoardSize);
    }
    Cursor.Visible = true;
}

void BoardMouse::PressCursor() {
    if (!Cursor.Visible)
        return;
    zones_.ClearZone();
    main_.DepositSquare(Cursor.At);
}

void BoardMouse::ShowCursorZone() {
    if (Cursor.Visible)
        zones_.ShowZoneAt(Cursor.At);
}

void BoardMouse::ReleaseCursorZone() {
    zones_.ClearZone();
}

} // namespace tarveth
