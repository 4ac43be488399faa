// What the clipboard takes of a game, and what it may give.
#pragma once

#include "engine/rules/Game.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarveth {

// Gives the history of a game, one line a move; no text for a game without moves.
std::string HistoryText(const Game& game);

// A position that was pasted, or one sentence that says what is wrong with it, and where.
struct PastedPosition {
    std::optional<Game> game;
    std::string refusal = {};
};

// Reads a position from any text (see SetPosition). Pieces that it does not name are out of the game.
PastedPosition ReadPastedPosition(std::string_view text);

} // namespace tarveth
