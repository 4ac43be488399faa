#include "computer/positionline.h"

#include "engine/rules/Game.h"
#include "engine/rules/checkgame.h"
#include "engine/rules/positiontext.h"

#include <charconv>
#include <stdexcept>

namespace tarveth::computer {

namespace {

constexpr std::string_view kLetters = "MOPmop"; // Blue's kinds, then Red's

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> words;
    while (true) {
        const std::size_t end = text.find(separator);
        words.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return words;
        text.remove_prefix(end + 1);
    }
}

std::optional<Square> ReadSquare(std::string_view text) {
    if (text.size() != 2)
        return std::nullopt;
    const Square square = SquareOf(text);
    return square.OnBoard() ? std::optional(square) : std::nullopt;
}

std::string SortName(std::size_t sort) {
    return {sort < Pawn ? 'B' : 'R', kLetters[sort % Pawn]};
}

// The items of engine/positiontext for the 64 letters. Nothing when they are not 64 such letters.
std::optional<std::string> PieceItems(std::string_view letters, std::string_view barred,
                                      std::string_view from) {
    if (letters.size() != kSquares)
        return std::nullopt;
    std::string items;
    bool barredFound = barred == "-" && from == "-";
    for (int square = 0; square < kSquares; ++square) {
        const char letter = letters[static_cast<std::size_t>(square)];
        if (letter == '.')
            continue;
        const std::size_t sort = kLetters.find(letter);
        if (sort == std::string_view::npos)
            return std::nullopt;
        const std::string name = WriteSquare(square);
        items += "|" + SortName(sort) + " " + name;
        if (name == barred && ReadSquare(from)) {
            items += "<" + std::string(from);
            barredFound = true;
        }
    }
    return barredFound ? std::optional(items) : std::nullopt;
}

std::optional<std::string> JailItem(std::string_view counts) {
    const auto words = Split(counts, ',');
    if (words.size() != kLetters.size())
        return std::nullopt;
    std::string item;
    for (std::size_t sort = 0; sort < words.size(); ++sort) {
        int count = -1;
        const std::string_view word = words[sort];
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), count);
        if (error != std::errc() || end != word.data() + word.size() || count < 0 || count > kPieces)
            return std::nullopt;
        for (; count > 0; --count)
            item += (item.empty() ? "|jail " : " ") + SortName(sort);
    }
    return item;
}

} // namespace

std::string WriteSquare(int number) {
    const Square square = NumberedSquare(number);
    return {static_cast<char>('0' + square.column), static_cast<char>('A' + square.row - 1)};
}

std::optional<Game> ReadPosition(std::string_view text) {
    const auto words = Split(text, ' ');
    if (words.size() != 5 || (words[1] != "1" && words[1] != "2"))
        return std::nullopt;
    const auto pieces = PieceItems(words[0], words[2], words[3]);
    const auto jail = JailItem(words[4]);
    if (!pieces || !jail)
        return std::nullopt;
    Game game;
    try {
        SetPosition(game, std::string("turn ") + (words[1] == "1" ? "B" : "R") + *pieces + *jail);
    } catch (const std::logic_error&) { // more pieces than a side has
        return std::nullopt;
    }
    return CheckGame(game).empty() ? std::optional(game) : std::nullopt;
}

std::string WritePosition(const CompactGame& position) {
    std::string text(kSquares, '.');
    std::string jail;
    for (std::size_t sort = 0; sort < kLetters.size(); ++sort) {
        const auto side = static_cast<Side>(static_cast<int>(sort) / Pawn + Blue);
        const auto kind = static_cast<PieceKind>(static_cast<int>(sort) % Pawn + Master);
        for (SquareSet standing = position.Standing(side, kind); standing != 0;)
            text[static_cast<std::size_t>(TakeFirst(standing))] = kLetters[sort];
        jail += (sort == 0 ? " " : ",") + std::to_string(position.Jailed(side, kind));
    }
    std::string barred = " - -";
    position.ForEachBar([&](int from, int to) { barred = " " + WriteSquare(from) + " " + WriteSquare(to); });
    return text + (position.Turn() == Blue ? " 1" : " 2") + barred + jail;
}

std::string WriteTurn(SearchTurn turn) {
    std::string text = WriteSquare(turn.From()) + "-" + WriteSquare(turn.To());
    if (turn.HasReturn())
        text += std::string("+") + (turn.ReturnKind() == Pawn ? 'P' : 'O') + WriteSquare(turn.ReturnTo());
    return text;
}

std::vector<SearchTurn> ListTurns(const CompactGame& position) {
    std::vector<SearchTurn> turns;
    if (position.IsOver())
        return turns;
    position.ForEachTurn([&](const CompactTurn& t) {
        const SearchTurn turn(t.from, t.to, t.own, t.captured != 0);
        turns.push_back(t.returnTo == kNoSquare ? turn : turn.WithReturn(t.returnKind, t.returnTo));
    });
    return turns;
}

SearchTurn FindTurn(const CompactGame& position, std::string_view text) {
    for (const SearchTurn turn : ListTurns(position))
        if (WriteTurn(turn) == text)
            return turn;
    return {};
}

} // namespace tarveth::computer
