// Computes the places of the parts of the main window, without the toolkit.
#pragma once

#include <array>

namespace tarveth {

// The jail is drawn in rows of as many squares as the board has; no game fills more than three.
inline constexpr int kJailRows = 3;

struct LayoutBox {
    int x = 0, y = 0, width = 0, height = 0;
    int Right() const { return x + width; }
    int Bottom() const { return y + height; }
    friend bool operator==(const LayoutBox&, const LayoutBox&) = default;
};

// Sizes that depend on the screen and its fonts, in pixels.
struct LayoutMetrics {
    int margin = 12;        // between the window's edge and its parts
    int gap = 8;            // between the parts
    int barHeight = 0;      // of the bar along the top edge; 0 while there is none
    int gridWidth = 0;      // of the row letters; 0 when grid labels are off
    int gridHeight = 0;     // of the column numbers; 0 when grid labels are off
    int rowHeight = 20;     // of a line of the labels beside the board
    int playerHeight = 30;  // of lblCurPlayer
    int askedHeight = 24;   // of a line of lblAsked
    int captionWidth = 60;  // of Label1
    int messageLines = 6;   // the number of lines that the longest message takes
    int sideWidth = 220;    // the least width of the labels beside the board
    int historyWidth = 300; // the width that lines of the history need
};

struct MainLayout {
    LayoutBox bar;                   // along the top edge, empty while there is none
    LayoutBox display;               // picDisplay
    LayoutBox displayJail;           // picDisplayJail, of squares of its own size
    bool jailBelow = true;           // below the board; otherwise beside it, and there is no line for lblTold
    LayoutBox asked, told;           // lblAsked, lblTold
    std::array<LayoutBox, 16> grid;  // lblGrid: 0 to 7 down the left edge, 8 to 15 along the top
    LayoutBox playerCaption, player; // Label1(0), lblCurPlayer
    LayoutBox statusCaption, status; // Label1(1), lblMoveStatus
    LayoutBox message;               // lblMessage
    LayoutBox separator;             // Line1
    LayoutBox history;               // lstHistory
};

// Lays out a main window whose inside has the given size. The board is as large as the labels beside it
// allow. Where that leaves room below it, the line that says what is asked and the jail are there, otherwise
// beside the board.
MainLayout LayOutMainWindow(int width, int height, const LayoutMetrics& metrics);

// Gives the inside of a window that shows the board with an edge of `boardEdge` pixels and the jail below it,
// at five eighths of the board's size.
LayoutBox SizeForBoard(int boardEdge, const LayoutMetrics& metrics);

} // namespace tarveth
