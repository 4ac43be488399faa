#include "display/layout.h"

#include "engine/rules/modPieces.h"

#include <algorithm>

namespace tarveth {

namespace {

constexpr int kSmallestSquare = 8;
constexpr int kLineWidth = 2;
constexpr int kLeastHistoryRows = 3;

// Gives the height of the lines between the board and the jail, with the gaps round them.
int StripHeight(const LayoutMetrics& m) {
    return m.gap + m.askedHeight + m.rowHeight + m.gap;
}

int WidthForBoard(int width, const LayoutMetrics& m) {
    return width - 3 * m.margin - m.gridWidth - m.gap - m.sideWidth;
}

int HeightForBoard(int height, const LayoutMetrics& m) {
    return height - m.barHeight - 2 * m.margin - m.gridHeight;
}

// The largest squares beside which there is room for the labels, and where the jail is below the board, for
// that at its smallest, half the board's size.
int LargestSquare(int width, int height, const LayoutMetrics& m, bool jailBelow) {
    const int across = WidthForBoard(width, m) / kBoardSize;
    const int down = jailBelow
                         ? (HeightForBoard(height, m) - StripHeight(m)) * 2 / (2 * kBoardSize + kJailRows)
                         : HeightForBoard(height, m) / kBoardSize;
    return std::max(std::min(across, down), kSmallestSquare);
}

void LayOutGrid(MainLayout& layout, int square, const LayoutMetrics& m) {
    for (int i = 0; i < kBoardSize; ++i) {
        const auto index = static_cast<std::size_t>(i);
        layout.grid[index] = {m.margin, layout.display.y + i * square, m.gridWidth, square};
        layout.grid[index + kBoardSize] = {layout.display.x + i * square, m.barHeight + m.margin, square,
                                           m.gridHeight};
    }
}

// Lays out what is below the board: the lines that ask and tell, and the jail, as large as the board's
// squares if there is room.
void LayOutBelow(MainLayout& layout, int square, int height, const LayoutMetrics& m) {
    const LayoutBox& board = layout.display;
    layout.asked = {board.x, board.Bottom() + m.gap, board.width, m.askedHeight};
    layout.told = {board.x, layout.asked.Bottom(), board.width, m.rowHeight};
    const int top = layout.told.Bottom() + m.gap;
    const int jailSquare = std::clamp((height - m.margin - top) / kJailRows, square / 2, square);
    layout.displayJail = {board.x, top, jailSquare * kBoardSize, jailSquare * kJailRows};
}

// Lays out the labels beside the board, from `top` on. Where large letters leave too little room, the history
// shrinks first, then the message.
void LayOutLabels(MainLayout& layout, const LayoutBox& side, const LayoutMetrics& m) {
    layout.playerCaption = {side.x, side.y, m.captionWidth, m.playerHeight};
    const int textLeft = side.x + m.captionWidth;
    const int textWidth = std::max(side.width - m.captionWidth, 0);
    layout.player = {textLeft, side.y, textWidth, m.playerHeight};
    const int statusTop = side.y + m.playerHeight + m.gap / 2;
    layout.statusCaption = {side.x, statusTop, m.captionWidth, m.rowHeight};
    layout.status = {textLeft, statusTop, textWidth, m.rowHeight};
    const int messageTop = statusTop + m.rowHeight + m.gap;
    const int bottom = std::max(side.Bottom(), messageTop + 2 * m.gap + kLineWidth);
    const int messageHeight =
        std::min(m.rowHeight * m.messageLines, bottom - messageTop - 2 * m.gap - kLineWidth);
    layout.message = {side.x, messageTop, side.width, messageHeight};
    const int historyWidth = std::min(side.width, m.historyWidth);
    layout.separator = {side.x, layout.message.Bottom() + m.gap, historyWidth, kLineWidth};
    const int historyTop = layout.separator.Bottom() + m.gap;
    layout.history = {side.x, historyTop, historyWidth, bottom - historyTop};
}

// Lays out the jail in the lower right corner of the space beside the board: beside the labels where that
// gives it the larger squares, otherwise below them. Gives the space that is left for the labels.
LayoutBox LayOutJailBeside(MainLayout& layout, int square, const LayoutBox& side, const LayoutMetrics& m) {
    const int labels = m.playerHeight + m.gap / 2 + m.rowHeight * (1 + m.messageLines + kLeastHistoryRows) +
                       4 * m.gap + kLineWidth;
    const int room = std::min(side.height - labels - m.gap, side.height * 2 / 5);
    const int below =
        std::clamp(std::min(side.width / kBoardSize, room / kJailRows), kSmallestSquare, square);
    const int labelsWidth = std::max(m.historyWidth, m.sideWidth);
    const int beside =
        std::min({square, (side.width - labelsWidth - m.gap) / kBoardSize, side.height / kJailRows});
    const bool hasColumn = beside >= std::min(below, square / 2);
    const int jailSquare = hasColumn ? beside : below;
    const int width = jailSquare * kBoardSize;
    const int height = jailSquare * kJailRows;
    const int left = hasColumn ? side.x + labelsWidth + m.gap : side.x;
    layout.displayJail = {left, side.Bottom() - height, width, height};
    if (hasColumn)
        return {side.x, side.y, labelsWidth, side.height};
    return {side.x, side.y, side.width, side.height - height - m.gap};
}

LayoutBox LayOutAskedBeside(MainLayout& layout, const LayoutBox& side, const LayoutMetrics& m) {
    layout.asked = {side.x, side.y, side.width, m.askedHeight * 2}; // it may take two lines
    const int used = layout.asked.height + m.gap;
    return {side.x, side.y + used, side.width, side.height - used};
}

} // namespace

MainLayout LayOutMainWindow(int width, int height, const LayoutMetrics& m) {
    const int square = LargestSquare(width, height, m, false);
    const int edge = square * kBoardSize;
    MainLayout layout;
    layout.bar = {0, 0, width, m.barHeight};
    layout.display = {m.margin + m.gridWidth, m.barHeight + m.margin + m.gridHeight, edge, edge};
    LayOutGrid(layout, square, m);
    const int left = layout.display.Right() + m.gap + m.margin;
    const int top = layout.display.y;
    LayoutBox side{left, top, std::max(width - m.margin - left, 0), std::max(height - m.margin - top, 0)};
    layout.jailBelow = square == LargestSquare(width, height, m, true);
    if (layout.jailBelow) {
        LayOutBelow(layout, square, height, m);
    } else {
        side = LayOutAskedBeside(layout, side, m);
        side = LayOutJailBeside(layout, square, side, m);
    }
    LayOutLabels(layout, side, m);
    return layout;
}

LayoutBox SizeForBoard(int boardEdge, const LayoutMetrics& m) {
    const int jail = boardEdge / kBoardSize * kJailRows * 5 / 8;
    return {0, 0, 3 * m.margin + m.gridWidth + boardEdge + m.gap + m.sideWidth,
            2 * m.margin + m.gridHeight + boardEdge + StripHeight(m) + jail};
}

} // namespace tarveth
