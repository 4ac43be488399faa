// A game for tests, with recorded port calls, positions given as text, and clicks given by squares.
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

    // Starts a new game with the layout of the settings.
    TestGame();
    explicit TestGame(std::string_view position);
    TestGame(const TestGame&) = delete;
    TestGame& operator=(const TestGame&) = delete;

    // Clicks on a square and runs all passes that follow.
    void Click(std::string_view square);
    // Clicks on a square and runs one pass.
    void ClickOnePass(std::string_view square);
    // Runs passes until none has anything to do.
    void Settle();
    // Clicks on a piece and then on the square that it is to move to.
    void Move(std::string_view from, std::string_view to);
    // Gives the piece on a square, 0 for none.
    int On(std::string_view square) const { return PieceOn(game, SquareOf(square)); }
};

} // namespace tarveth::test
