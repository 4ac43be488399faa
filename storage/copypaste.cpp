#include "storage/copypaste.h"

#include "engine/rules/checkgame.h"
#include "engine/rules/positiontext.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tarveth {

namespace {

constexpr std::size_t kLongestPosition = 1000; // characters; one with all pieces takes about 250

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view WithoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// No piece is nowhere in a saved game, so one that is out of the game gets a place of the jail there.
void PutAsidePieces(Game& game) {
    for (int i = 1; i <= game.PieceCount(); ++i)
        if (game.Piece(i).InJail())
            SetPieceSquare(game, i, -1, -1, -1, -1);
}

PastedPosition Refused(std::string refusal) {
    return {std::nullopt, std::move(refusal)};
}

} // namespace

std::string HistoryText(const Game& game) {
    std::string text;
    for (const std::string& line : game.lstHistory)
        text += line + '\n';
    return text;
}

PastedPosition ReadPastedPosition(std::string_view text) {
    const std::string_view line = WithoutBlanks(text);
    if (line.empty())
        return Refused("The clipboard holds no text.");
    if (line.size() > kLongestPosition || line.find_first_of("\r\n") != std::string_view::npos)
        return Refused("The clipboard holds no position, which is one line of text.");
    Game game;
    try {
        SetPosition(game, line);
    } catch (const std::invalid_argument& fault) {
        return Refused(fault.what());
    }
    if (game.Turn == NoSide)
        return Refused("The position does not say whose turn it is, as in \"turn B\".");
    PutAsidePieces(game);
    if (std::string fault = CheckGame(game); !fault.empty())
        return Refused("The position is not sound: " + fault + '.');
    return {std::move(game)};
}

} // namespace tarveth
