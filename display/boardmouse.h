// The mouse and the keyboard over the visible board: left clicks and Enter deposit squares, right clicks and
// Z show zones.
#pragma once

#include "display/zonedisplay.h"
#include "engine/modMAIN.h"

namespace tarveth {

enum class MouseButton { Left = 1, Right = 2, Other = 4 };

// The visible square that the arrow keys move and Enter takes.
struct BoardCursor {
    bool Visible = false;
    Square At{4, 5};
};

class BoardMouse {
public:
    // All of these outlive the object.
    BoardMouse(const Settings& settings, BoardDisplay& board, ZoneDisplay& zones, modMAIN& main);

    BoardCursor Cursor;

    // Positions are in pixels of the visible board.
    void MouseDown(MouseButton button, double x, double y);
    void MouseUp(MouseButton button, double x, double y);

    // Moves the cursor, which stops at the edges. The first key only shows it.
    void MoveCursor(int columns, int rows);
    void PressCursor();       // as a left click on it
    void ShowCursorZone();    // as holding the right button on it
    void ReleaseCursorZone(); // as letting it go

private:
    Square SquareUnder(double x, double y) const;

    const Settings& settings_;
    BoardDisplay& board_;
    ZoneDisplay& zones_;
    modMAIN& main_;
};

} // namespace tarveth
