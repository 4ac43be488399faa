// A game with recorded windows, positions written as text, and clicks named by squares.
#pragma once

#include "engine/modMAIN.h"
#include "engine/rules/positiontext.h"
#include "storage/settings.h"
#include "tests/RecordingPort.h"

#include <string_view>

namespace tarveth::test {

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
    // Every pass there is something to do in.
    void Settle();
    // Selects and places.
    void Move(std::string_view from, std::string_view to);
    // The piece on a square, 0 for none.
    int On(std::string_view square) const { return PieceOn(game, SquareOf(square)); }
};

} // namespace tarveth::test
