#include "engine/asked.h"

#include "engine/rules/Game.h"
#include "engine/rules/captures.h"
#include "engine/rules/choices.h"

namespace tarveth {

namespace {

std::string Named(const PieceRecord& piece) {
    return std::string(SideName(piece.Side)) + ' ' + std::string(KindName(piece.Kind));
}

std::string AskToPick(const Game& game) {
    return std::string(SideName(game.Turn)) + (HasMove(game) ? " is to move." : " has no move.");
}

std::string AskToPlace(const Game& game) {
    const PieceRecord& piece = game.Piece(game.CurPiece);
    if (ListDestinations(game) == ChoiceMap{})
        return "The " + Named(piece) + " cannot move. Click it again to put it down.";
    return "Choose a square for the " + Named(piece) + '.';
}

std::string AskToReturn(const Game& game, bool mine) {
    const std::string side(SideName(game.Turn));
    if (!mine)
        return side + " brings a piece back.";
    if (game.Return.ReturnKind == 0)
        return {}; // a question on the screen asks which piece
    return "Put your " + std::string(game.Return.ReturnName()) + " on a free square.";
}

std::string TellTheEnd(const Game& game) {
    const Victory victory = FindVictory(game);
    return victory.winner == NoSide ? "The game is over." : std::string(SideName(victory.winner)) + " wins.";
}

std::string Ask(const Game& game, bool mine) {
    switch (game.GameState) {
    case kPickPiece:
        return AskToPick(game);
    case kPlacePiece:
        return mine ? AskToPlace(game) : AskToPick(game);
    case kReturnPiece:
        return AskToReturn(game, mine);
    case kGetBoard:
        return "The opponent's board is on its way.";
    case kGameOver:
        return TellTheEnd(game);
    default:
        return {};
    }
}

} // namespace

std::string WhatIsAsked(const Game& game, const NetGame& net) {
    std::string asked = Ask(game, net.IsPlayedHere(game.Turn));
    const bool blueHere = net.IsPlayedHere(Blue);
    if (asked.empty() || blueHere == net.IsPlayedHere(Red)) // nobody here plays one side alone
        return asked;
    return std::string("You play ") + (blueHere ? "Blue. " : "Red. ") + asked;
}

} // namespace tarveth
