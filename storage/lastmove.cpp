#include "storage/lastmove.h"

#include <string_view>

namespace tarveth {

namespace {

// The places of the squares in "R:RO 5C-4D cBP" and "  BP r2G".
constexpr std::size_t kFrom = 5;
constexpr std::size_t kDash = 7;
constexpr std::size_t kTo = 8;
constexpr std::size_t kMoveEnd = 10;
constexpr std::size_t kReturnMark = 5;
constexpr std::size_t kReturnTo = 6;
constexpr std::size_t kReturnEnd = 8;

// Gives the square that a text such as "4D" names; (0, 0) if it names none.
Square ReadSquare(std::string_view text) {
    const Square square{text[0] - '0', text[1] - 'A' + 1};
    return square.OnBoard() ? square : Square{};
}

Square ReadReturn(std::string_view line) {
    const bool isReturn = line.size() == kReturnEnd && line.starts_with("  ") && line[kReturnMark] == 'r';
    return isReturn ? ReadSquare(line.substr(kReturnTo)) : Square{};
}

MoveTrace ReadMove(std::string_view line) {
    if (line.size() < kMoveEnd || line[1] != ':' || line[kDash] != '-')
        return {};
    const Square from = ReadSquare(line.substr(kFrom));
    const Square to = ReadSquare(line.substr(kTo));
    if (!from.OnBoard() || !to.OnBoard())
        return {};
    return {from, to, line.substr(kMoveEnd).starts_with(" c"), {}};
}

} // namespace

MoveTrace ReadLastMove(const std::vector<std::string>& history) {
    if (history.empty())
        return {};
    const Square returned = ReadReturn(history.back());
    if (!returned.OnBoard())
        return ReadMove(history.back());
    if (history.size() < 2)
        return {};
    MoveTrace last = ReadMove(history[history.size() - 2]);
    if (last.to.OnBoard())
        last.returned = returned;
    return last;
}

} // namespace tarveth
