#include "tools/diagram/diagram.h"

#include "engine/rules/positiontext.h"
#include "engine/rules/zones.h"

#include <sstream>
#include <stdexcept>
#include <tuple>

namespace tarveth::diagram {

namespace {

std::vector<Square> Squares(std::istream& words) {
    std::vector<Square> squares;
    for (std::string word; words >> word;)
        squares.push_back(SquareOf(word));
    return squares;
}

// Reads exactly two squares: the ends of an arrow, or two corners.
std::pair<Square, Square> TwoSquares(std::istream& words) {
    const std::vector<Square> squares = Squares(words);
    return {squares.at(0), squares.at(1)};
}

std::string Rest(std::istream& words) {
    std::string rest;
    std::getline(words >> std::ws, rest);
    return rest;
}

void ReadLine(Diagram& diagram, const std::string& line) {
    std::istringstream words(line);
    std::string head;
    words >> head;
    if (head.empty() || head.starts_with('#')) {
        return;
    }
    if (head == "title") {
        diagram.title = Rest(words);
    } else if (head == "position") {
        SetPosition(diagram.game, Rest(words));
    } else if (head == "layout") {
        CreatePieces(diagram.game);
        PlacePieces(diagram.game, Rest(words) == "imperial" ? 1 : 2);
    } else if (head == "zone") {
        diagram.zones = Squares(words);
    } else if (head == "piece") {
        diagram.piece = Squares(words).at(0);
    } else if (head == "can") {
        diagram.can = Squares(words);
    } else if (head == "cannot") {
        diagram.cannot = Squares(words);
    } else if (head == "arrow") {
        diagram.arrows.push_back(TwoSquares(words));
    } else if (head == "show") {
        std::tie(diagram.first, diagram.last) = TwoSquares(words);
    } else {
        throw std::invalid_argument("not understood: " + line);
    }
}

} // namespace

int Diagram::ZoneAt(Square square) const {
    ZoneMap map{};
    for (const Square ruler : zones)
        ProjectZone(game, map, PieceOn(game, ruler));
    return map.at(static_cast<std::size_t>(square.column)).at(static_cast<std::size_t>(square.row));
}

Diagram ReadDiagram(std::istream& file) {
    Diagram diagram;
    for (std::string line; std::getline(file, line);)
        ReadLine(diagram, line);
    if (diagram.game.PieceCount() == 0)
        throw std::invalid_argument("there is no position");
    return diagram;
}

} // namespace tarveth::diagram
