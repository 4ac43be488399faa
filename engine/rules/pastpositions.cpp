#include "engine/rules/pastpositions.h"

#include "engine/rules/Game.h"
#include "engine/rules/atrest.h"

#include <algorithm>
#include <stdexcept>

namespace tarveth {

void PastPositions::Clear() {
    positions_.clear();
    entries_.clear();
}

void PastPositions::Set(std::size_t lines, const Game& game) {
    Position position;
    position.turn = game.Turn;
    for (int i = 1; i <= kPieces; ++i) {
        const PieceRecord& piece = game.Piece(i);
        position.places.at(static_cast<std::size_t>(i - 1)) = {static_cast<std::int8_t>(piece.X.ToInt16()),
                                                               static_cast<std::int8_t>(piece.Y.ToInt16()),
                                                               piece.PrevX, piece.PrevY};
    }
    position.jailed = static_cast<std::uint16_t>(game.JailCount());
    for (std::size_t slot = 0; slot < position.jailed; ++slot)
        position.jail.at(slot) = KeepEntry(game.Jailed(static_cast<int>(slot) + 1));
    positions_.resize(std::max(positions_.size(), lines + 1));
    positions_[lines] = position;
}

// Positions that follow each other share nearly all entries, so one that is known is among the latest.
std::uint32_t PastPositions::KeepEntry(const PieceRecord& entry) {
    const auto known = std::find(entries_.rbegin(), entries_.rend(), entry);
    if (known != entries_.rend())
        return static_cast<std::uint32_t>(entries_.rend() - known - 1);
    entries_.push_back(entry);
    return static_cast<std::uint32_t>(entries_.size() - 1);
}

void PastPositions::CutTo(std::size_t lines) {
    if (positions_.size() > lines + 1)
        positions_.resize(lines + 1);
}

bool PastPositions::Knows(std::size_t lines) const {
    return lines < positions_.size() && positions_[lines].turn != NoSide;
}

Game PastPositions::At(std::size_t lines, const Game& now) const {
    if (!Knows(lines) || lines > now.lstHistory.size())
        throw std::out_of_range("no position is known there");
    const Position& position = positions_[lines];
    Game game = AtRest(now);
    game.Animating = false;
    game.AnimatedPiece = 0;
    game.Turn = position.turn;
    for (int i = 1; i <= kPieces; ++i) {
        const Place place = position.places.at(static_cast<std::size_t>(i - 1));
        SetPieceSquare(game, i, place.x, place.y, place.prevX, place.prevY);
    }
    game.JailTable.resize(1);
    for (std::size_t slot = 0; slot < position.jailed; ++slot)
        game.JailTable.push_back(entries_[position.jail.at(slot)]);
    game.lstHistory.resize(lines);
    return game;
}

} // namespace tarveth
