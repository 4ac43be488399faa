#include "engine/rules/atrest.h"

namespace tarveth {

Game AtRest(Game game) {
    game.GameState = kPickPiece;
    game.CurPiece = 0;
    game.SelX = game.SelY = 0;
    game.ClearClick();
    game.Return = {};
    game.VictoryText.clear();
    return game;
}

} // namespace tarveth
