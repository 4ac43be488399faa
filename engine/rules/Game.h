// The state of one game: plain values that can be copied, compared and thrown away. Make as many as you like.
#pragma once

#include "engine/rules/gamestates.h"
#include "engine/rules/modPieces.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

// What the last capture has earned. The members belong together: they are set and cleared as a whole.
struct ReturnState {
    std::int16_t CapturedPiece = 0; // the piece the capture took
    std::int16_t ReturnKind = 0;    // PieceKind of the piece to come back; 0 while nobody has decided
    std::int16_t ReturnSlot = 0;    // its index in JailTable

    friend bool operator==(const ReturnState&, const ReturnState&) = default;
    // "Officer" or "Pawn"; empty while nobody has decided.
    std::string_view ReturnName() const {
        return ReturnKind == 0 ? std::string_view() : KindName(ReturnKind);
    }
};

struct Game {
    // the pieces
    std::vector<PieceRecord> PieceTable; // 0 to 26; element 0 holds no piece
    std::vector<PieceRecord> JailTable;  // from 1, earliest first until a return; element 0 holds no piece
    DirectionTableType DirectionTable{};

    // whose move it is, and what they have to do
    std::int16_t Turn = 0;               // Side
    std::int16_t GameState = 0;          // see gamestates.h
    std::int16_t CurPiece = 0;           // the selected piece, 0 for none
    std::int16_t SelX = 0, SelY = 0;     // where the piece last picked stood: the selection marker's square
    std::int16_t ClickX = 0, ClickY = 0; // the square waiting to be handled; both 0 for none

    // captures and returns
    ReturnState Return;
    std::string VictoryText; // the sentence that ended the game, empty while it is on

    // move animation
    bool Animating = false;         // AnimateMove is running
    std::int16_t AnimatedPiece = 0; // the piece on its way, 0 for none: not drawn with the rest

    // the record of the game, one line a move or return
    std::vector<std::string> lstHistory;

    friend bool operator==(const Game&, const Game&) = default;

    Square PendingSquare() const { return {ClickX, ClickY}; }
    void ClearClick() { ClickX = ClickY = 0; }
    // The last element: 26 in any game built by CreatePieces.
    int PieceCount() const { return PieceTable.empty() ? 0 : static_cast<int>(PieceTable.size()) - 1; }
    int JailCount() const { return JailTable.empty() ? 0 : static_cast<int>(JailTable.size()) - 1; }
    // A table element by its number; the number must be inside the table.
    PieceRecord& Piece(int index) { return PieceTable.at(static_cast<std::size_t>(index)); }
    const PieceRecord& Piece(int index) const { return PieceTable.at(static_cast<std::size_t>(index)); }
    const PieceRecord& Jailed(int slot) const { return JailTable.at(static_cast<std::size_t>(slot)); }
};

} // namespace tarveth
