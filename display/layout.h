// Where everything stands in the main window, worked out without one.
#pragma once

#include <array>

namespace tarveth {

struct LayoutBox {
    int x = 0, y = 0, width = 0, height = 0;
    int Right() const { return x + width; }
    int Bottom() const { return y + height; }
    friend bool operator==(const LayoutBox&, const LayoutBox&) = default;
};

// Sizes that depend on the screen and its fonts, all in pixels.
struct LayoutMetrics {
    int margin = 12;       // round everything
    int gap = 8;           // between parts; below the board it is the jail's distance
    int gridWidth = 0;     // the column of row letters; 0 when grid labels are off
    int gridHeight = 0;    // the row of column numbers; 0 when grid labels are off
    int rowHeight = 20;    // a line of the labels beside the board
    int playerHeight = 30; // lblCurPlayer
    int captionWidth = 60; // Label1
    int messageLines = 6;  // room for the longest message
    int sideWidth = 220;   // least width of the labels beside the board
};

struct MainLayout {
    LayoutBox display;               // picDisplay
    LayoutBox displayJail;           // picDisplayJail
    std::array<LayoutBox, 16> grid;  // lblGrid: 0 to 7 down the left edge, 8 to 15 along the top
    LayoutBox playerCaption, player; // Label1(0), lblCurPlayer
    LayoutBox statusCaption, status; // Label1(1), lblMoveStatus
    LayoutBox message;               // lblMessage
    LayoutBox separator;             // Line1
    LayoutBox history;               // lstHistory
};

// Lays out a window's inside of the given size. The board is the largest that leaves the jail (three rows of
// squares) its place below and the labels theirs beside it.
MainLayout LayOutMainWindow(int width, int height, const LayoutMetrics& metrics);

// The inside that shows the board at `boardEdge` pixels with nothing to spare.
LayoutBox SizeForBoard(int boardEdge, const LayoutMetrics& metrics);

} // namespace tarveth
