#include "display/layout.h"

#include "engine/rules/modPieces.h"

#include <algorithm>

namespace tarveth {

namespace {

constexpr int kSmallestSquare = 8;
constexpr int kLineWidth = 2;

int LargestSquare(int width, int height, const LayoutMetrics& m) {
    const int forBoard = width - 3 * m.margin - m.gridWidth - m.gap - m.sideWidth;
    const int forBoardAndJail = height - m.barHeight - 2 * m.margin - m.gridHeight - m.gap;
    const int square = std::min(forBoard / kBoardSize, forBoardAndJail / (kBoardSize + kJailRows));
    return std::max(square, kSmallestSquare);
}

void LayOutGrid(MainLayout& layout, int square, const LayoutMetrics& m) {
    for (int i = 0; i < kBoardSize; ++i) {
        const auto index = static_cast<std::size_t>(i);
        layout.grid[index] = {m.margin, layout.display.y + i * square, m.gridWidth, square};
        layout.grid[index + kBoardSize] = {layout.display.x + i * square, m.barHeight + m.margin, square,
                                           m.gridHeight};
    }
}

} // namespace

MainLayout LayOutMainWindow(int width, int height, const LayoutMetrics& m) {
    const int square = LargestSquare(width, height, m);
    const int edge = square * kBoardSize;
    MainLayout layout;
    layout.bar = {0, 0, width, m.barHeight};
    layout.display = {m.margin + m.gridWidth, m.barHeight + m.margin + m.gridHeight, edge, edge};
    layout.displayJail = {layout.display.x, layout.display.Bottom() + m.gap, edge, square * kJailRows};
    LayOutGrid(layout, square, m);

    const int left = layout.display.Right() + m.gap + m.margin;
    const int sideWidth = std::max(width - m.margin - left, 0);
    const int top = layout.display.y;
    layout.playerCaption = {left, top, m.captionWidth, m.playerHeight};
    layout.player = {left + m.captionWidth, top, std::max(sideWidth - m.captionWidth, 0), m.playerHeight};
    const int statusTop = top + m.playerHeight + m.gap / 2;
    layout.statusCaption = {left, statusTop, m.captionWidth, m.rowHeight};
    layout.status = {left + m.captionWidth, statusTop, layout.player.width, m.rowHeight};
    const int messageTop = statusTop + m.rowHeight + m.gap;
    const int bottom = std::max(height - m.margin, messageTop + 2 * m.gap + kLineWidth);
    // Where large letters leave too little room, the history shrinks first, then the message.
    const int messageHeight =
        std::min(m.rowHeight * m.messageLines, bottom - messageTop - 2 * m.gap - kLineWidth);
    layout.message = {left, messageTop, sideWidth, messageHeight};
    layout.separator = {left, layout.message.Bottom() + m.gap, sideWidth, kLineWidth};

    const int historyTop = layout.separator.Bottom() + m.gap;
    layout.history = {left, historyTop, sideWidth, bottom - historyTop};
    return layout;
}

LayoutBox SizeForBoard(int boardEdge, const LayoutMetrics& m) {
    const int jail = boardEdge / kBoardSize * kJailRows;
    return {0, 0, 3 * m.margin + m.gridWidth + boardEdge + m.gap + m.sideWidth,
            2 * m.margin + m.gridHeight + boardEdge + m.gap + jail};
}

} // namespace tarveth
