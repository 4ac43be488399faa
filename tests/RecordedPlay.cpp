#include "tests/RecordedPlay.h"

namespace tarveth::test {

RecordedPlay::RecordedPlay(std::int16_t boardVariant, std::uint64_t seed) : dice_(seed) {
    table.settings.BoardVariant = boardVariant;
    table.main.NewGame();
    Note();
}

void RecordedPlay::Play(int turns) {
    for (; turns > 0 && table.game.GameState != kGameOver && !ListTurns(table.game).empty(); --turns)
        PlayTurn();
}

void RecordedPlay::ForgetHistory() {
    table.game.lstHistory.clear();
    positions.clear();
    Note();
}

void RecordedPlay::PlayTurn() {
    const CompleteTurn turn = PickTurn(table.game, dice_);
    const auto click = [&](Square square) {
        table.main.DepositSquare(square);
        table.Settle();
    };
    table.port.returnChoice = turn.returnKind == Officer ? Officer : Pawn;
    click(turn.from);
    click(turn.to);
    if (turn.returnKind != 0)
        click(turn.returnTo);
    Note();
}

} // namespace tarveth::test
