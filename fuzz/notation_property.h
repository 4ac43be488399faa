// What must hold for a history line of any bytes: the reader refuses it and names a place of it, or the
// writer gives it again, byte for byte, from what was read. Shared by the fuzz target and the test that
// replays its corpus.
#pragma once

#include "engine/rules/Game.h"
#include "storage/notation.h"

#include <string>
#include <string_view>

namespace tarveth {

// Gives a line as the writer writes it of a game in which the move or return has just been made.
inline std::string WrittenAgain(const MoveLine& line) {
    Game game;
    game.PieceTable.resize(3);
    game.Turn = line.turn;
    game.Piece(1).Side = line.piece.side;
    game.Piece(1).Kind = line.piece.kind;
    SetPieceSquare(game, 1, line.to.column, line.to.row, static_cast<std::int16_t>(line.from.column),
                   static_cast<std::int16_t>(line.from.row));
    if (!line.captured) {
        HistoryAddMove(game, 1);
        return game.lstHistory.back();
    }
    game.Piece(2).Side = line.captured->side;
    game.Piece(2).Kind = line.captured->kind;
    HistoryAddCapture(game, 1, 2);
    return game.lstHistory.back();
}

inline std::string WrittenAgain(const ReturnLine& line) {
    Game game;
    game.Turn = line.piece.side;
    game.Return.ReturnKind = line.piece.kind;
    HistoryAddReturn(game, line.to);
    return game.lstHistory.back();
}

// What is broken for a line of these bytes; nothing if all is well.
inline std::string NotationFaultOf(std::string_view bytes) {
    const HistoryLine line = ReadHistoryLine(bytes);
    if (const auto* fault = std::get_if<NotationFault>(&line)) {
        const bool named = fault->place >= 1 && fault->place <= bytes.size() + 1 && !fault->reason.empty();
        return named ? "" : "the fault names no place of the line or no reason";
    }
    const auto* move = std::get_if<MoveLine>(&line);
    const std::string again =
        move != nullptr ? WrittenAgain(*move) : WrittenAgain(std::get<ReturnLine>(line));
    return again == bytes ? "" : "read as: " + again;
}

} // namespace tarveth
