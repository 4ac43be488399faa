#include "tests/TestGame.h"

namespace tarveth::test {

TestGame::TestGame() {
    port.game = &game;
    settings.AnimateMoves = 0;
    main.NewGame();
}

TestGame::TestGame(std::string_view position) : TestGame() {
    SetPosition(game, position);
}

void TestGame::Click(std::string_view square) {
    main.DepositSquare(SquareOf(square));
    Settle();
}

void TestGame::Settle() {
    while (main.RunPasses()) {
    }
}

void TestGame::ClickOnePass(std::string_view square) {
    main.DepositSquare(SquareOf(square));
    main.Pass();
}

void TestGame::Move(std::string_view from, std::string_view to) {
    Click(from);
    Click(to);
}

} // namespace tarveth::test
