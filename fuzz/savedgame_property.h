// What must hold for a saved game of any bytes: it is refused with a line of its own, or it is a sound game
// that is written and read back as it is. Shared by the fuzz target and the test that replays its corpus.
#pragma once

#include "engine/rules/checkgame.h"
#include "platform/file_error.h"
#include "storage/modFileIO.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tarveth {

// Does the error name a line of the text, or the one right behind its end?
inline bool NamesALine(const platform::FileError& error, std::string_view text) {
    const auto ends = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    const std::size_t lines = ends + (text.empty() || text.ends_with('\n') ? 0 : 1);
    return error.Line() && *error.Line() >= 1 && *error.Line() <= lines + 1;
}

// What is broken for a saved game of these bytes; nothing if all is well.
inline std::string SavedGameFault(std::string_view bytes) {
    Game game;
    try {
        game = ParseGame(bytes, "a.tsg");
    } catch (const platform::FileError& error) {
        return NamesALine(error, bytes) ? "" : std::string("a wrong line: ") + error.what();
    }
    if (std::string fault = CheckGame(game); !fault.empty())
        return fault;
    const std::string text = GameText(game, "a title");
    const Game again = ParseGame(text, "a.tsg");
    if (again != game)
        return "the game did not read back";
    return GameText(again, "a title") == text ? "" : "the second text is another one";
}

} // namespace tarveth
