// A game with recorded windows, positions written as text, and clicks named by squares.
#pragma once

#include "engine/modMAIN.h"
#include "tests/RecordingPort.h"

#include <string_view>

namespace tarveth::test {

// The square a text such as "4D" names (column, then row letter).
Square SquareOf(std::string_view text);

// Puts a position into `game`, in state 1. Items are separated by '|':
//   "turn B"       the side to move (B or R)
//   "BM 4D"        a piece on the board: side, kind (M, O, P), square
//   "RP 4E<4F"     the same, having come from 4F with its last move
//   "jail BP BO"   pieces in the jail, in this order
// Pieces take the indices of their side and kind in order; those not named are neither on the board nor in
// the jail.
void SetPosition(Game& game, std::string_view text);

struct TestGame {
    Game game;
    NetGame net;
    Settings settings;
    RecordingPort port;
    modMAIN main{game, net, settings, Ports{port, port, port, port, port}};

    // A new game of the settings' layout.
    TestGame();
    explicit TestGame(std::string_view position);
    TestGame(const TestGame&) = delete;
    TestGame& operator=(const TestGame&) = delete;

    // A left click on a square, and every pass that follows from it.
    void Click(std::string_view square);
    // The same, one pass only.
    void ClickOnePass(std::string_view square);
    // Selects and places.
    void Move(std::string_view from, std::string_view to);
    // The piece on a square, 0 for none.
    int On(std::string_view square) const { return PieceOn(game, SquareOf(square)); }
};

} // namespace tarveth::test
