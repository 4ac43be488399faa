// What must hold for the positions found from the history of any saved game: each is sound, and can be saved
// and read again; the last is the one on the board; and a gap at the beginning has its reason. Shared by the
// fuzz target and the test that replays its corpus.
#pragma once

#include "engine/rules/checkgame.h"
#include "platform/file_error.h"
#include "storage/modFileIO.h"
#include "storage/replay.h"

#include <string>
#include <string_view>

namespace tarveth {

// What is broken in one of the positions; nothing if all is well.
inline std::string PastPositionFault(const Game& past) {
    if (std::string fault = CheckGame(past); !fault.empty())
        return fault;
    try {
        const Game again = ParseGame(GameText(past, "past"), "past.tsg");
        return again.lstHistory == past.lstHistory ? "" : "the history did not read back";
    } catch (const platform::FileError& error) {
        return std::string("it did not read back: ") + error.what();
    }
}

// What is broken for a saved game of these bytes; nothing if all is well, or if they are no saved game.
inline std::string ReplayFault(std::string_view bytes) {
    Game game;
    try {
        game = ParseGame(bytes, "a.tsg");
    } catch (const platform::FileError&) {
        return "";
    }
    const Replay replay = ReplayHistory(game);
    const std::size_t count = game.lstHistory.size();
    if (!replay.positions.Knows(count) || replay.positions.At(count, game) != game)
        return "the last position is not the one on the board";
    if (!replay.positions.Knows(0) && replay.gap.empty())
        return "a gap without a reason";
    for (std::size_t lines = 0; lines < count; ++lines)
        if (replay.positions.Knows(lines))
            if (std::string fault = PastPositionFault(replay.positions.At(lines, game)); !fault.empty())
                return "behind line " + std::to_string(lines) + ": " + fault;
    return "";
}

} // namespace tarveth
