#include "tools/diagram/diagram.h"

#include <algorithm>

namespace tarveth::diagram {

namespace {

constexpr char kMasterZone = '#';
constexpr char kOfficerZone = '+';
constexpr char kCan = 'o';
constexpr char kCannot = 'x';

std::string Name(Square square) {
    return {static_cast<char>('0' + square.column), static_cast<char>('A' + square.row - 1)};
}

std::string PieceLetters(const PieceRecord& piece) {
    return {SideName(piece.Side).front(), KindName(piece.Kind).front()};
}

bool Holds(const std::vector<Square>& squares, Square square) {
    return std::find(squares.begin(), squares.end(), square) != squares.end();
}

// Gives the four letters of a square: the piece in the middle, the zone's sign at both ends, and the sign for
// a move at the end or, on an empty square, in the middle.
std::string Cell(const Diagram& diagram, Square square) {
    const int zone = diagram.ZoneAt(square);
    const char end = zone == Master ? kMasterZone : zone == Officer ? kOfficerZone : ' ';
    const int piece = PieceOn(diagram.game, square);
    std::string cell = end + (piece != 0 ? PieceLetters(diagram.game.Piece(piece)) : "  ") + end;
    const std::size_t place = piece != 0 ? 3 : 2;
    if (Holds(diagram.can, square))
        cell.at(place) = kCan;
    else if (Holds(diagram.cannot, square))
        cell.at(place) = kCannot;
    return cell;
}

std::string Rule(const Diagram& diagram, const std::string& margin) {
    std::string line = margin;
    for (int column = diagram.first.column; column <= diagram.last.column; ++column)
        line += "+----";
    return line + '+';
}

std::string Numbers(const Diagram& diagram) {
    std::string line = "    ";
    for (int column = diagram.first.column; column <= diagram.last.column; ++column)
        line += "  " + std::to_string(column) + "  ";
    line.pop_back();
    return line;
}

void AddBoard(const Diagram& diagram, std::vector<std::string>& lines) {
    const std::string margin = "   ";
    lines.push_back(Numbers(diagram));
    for (int row = diagram.first.row; row <= diagram.last.row; ++row) {
        lines.push_back(Rule(diagram, margin));
        std::string line = " " + Name({1, row}).substr(1) + ' ';
        for (int column = diagram.first.column; column <= diagram.last.column; ++column)
            line += '|' + Cell(diagram, {column, row});
        lines.push_back(line + '|');
    }
    lines.push_back(Rule(diagram, margin));
}

bool AnySquare(const Diagram& diagram, int zoneKind) {
    for (int column = 1; column <= kBoardSize; ++column)
        for (int row = 1; row <= kBoardSize; ++row)
            if (diagram.ZoneAt({column, row}) == zoneKind)
                return true;
    return false;
}

void AddSigns(const Diagram& diagram, std::vector<std::string>& lines) {
    const auto add = [&lines](char sign, const std::string& meaning) {
        lines.push_back(std::string("   ") + sign + "  " + meaning);
    };
    if (AnySquare(diagram, Master))
        add(kMasterZone, "in a Master's zone");
    if (AnySquare(diagram, Officer))
        add(kOfficerZone, "in an Officer's zone");
    if (!diagram.can.empty())
        add(kCan, "may go here");
    if (!diagram.cannot.empty())
        add(kCannot, "may not go here");
    for (const auto& [from, to] : diagram.arrows)
        lines.push_back("   the move: " + Name(from) + " to " + Name(to));
    if (diagram.game.JailCount() > 0) {
        lines.emplace_back("   in the jail:");
        for (int slot = 1; slot <= diagram.game.JailCount(); ++slot)
            lines.back() += ' ' + PieceLetters(diagram.game.Jailed(slot));
    }
}

} // namespace

std::vector<std::string> TextOf(const Diagram& diagram) {
    std::vector<std::string> lines;
    AddBoard(diagram, lines);
    AddSigns(diagram, lines);
    return lines;
}

} // namespace tarveth::diagram
