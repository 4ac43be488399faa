// Handles the mouse and the keyboard on the visible board: a left click and Enter deposit a square, a right
// click and Z show a zone.
#pragma once

#include "display/zonedisplay.h"
#include "engine/modMAIN.h"

namespace tarveth {

enum class MouseButton { Left = 1, Right = 2, Other = 4 };

// The keyboard's cursor: the square that the arrow keys move and that Enter deposits.
struct BoardCursor {
    bool Visible = false;
    Square At{4, 5};
};

class BoardMouse {
public:
    // All of these outlive the object.
    BoardMouse(const Settings& settings, BoardDisplay& board, ZoneDisplay& zones, modMAIN& main);

    BoardCursor Cursor;
    Square Pointed; // the square under the pointer; (0, 0) for none, and while it stays where it has clicked

    // Is to be called when the pointer moves over the visible board, and with a place outside it when the
    // pointer leaves. Says whether Pointed has changed.
    bool Point(double x, double y, bool leftIsDown = false);

    // Positions are in pixels of the visible board. A left button that is let go on another square than it
    // was pressed on drags: a piece that may be picked on the first square is picked there.
    void MouseDown(MouseButton button, double x, double y);
    void MouseUp(MouseButton button, double x, double y);

    // Moves the cursor, which stops at the edges of the board. If it is not visible yet, this only shows it.
    void MoveCursor(int columns, int rows);
    // Does what a left click on the cursor's square does.
    void PressCursor();
    // Puts the picked piece down, if there is one.
    void PutDown() { main_.PutDownPiece(); }
    // Do what pressing and releasing the right mouse button on the cursor's square does.
    void ShowCursorZone();
    void ReleaseCursorZone();

private:
    Square SquareUnder(double x, double y) const;
    void ForgetPointed(Square clicked);
    void DragTo(Square square);

    Square pressed_; // where the left button went down, while it is down
    Square clicked_; // the square that was clicked last, while the pointer is still on it

    const Settings& settings_;
    BoardDisplay& board_;
    ZoneDisplay& zones_;
    modMAIN& main_;
};

} // namespace tarveth
