// The state of one game: plain values that can be copied, compared and thrown away. Make as many as you like.
#pragma once

#include "engine/rules/gamestates.h"
#include "engine/rules/modPieces.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

// The last capture and the return that it earns. The members are set and cleared together.
struct ReturnState {
    std::int16_t CapturedPiece = 0; // index in PieceTable of the captured piece
    std::int16_t ReturnKind = 0;    // PieceKind of the piece to return; 0 while it is undecided
    std::int16_t ReturnSlot = 0;    // index in JailTable of the piece to return

    friend bool operator==(const ReturnState&, const ReturnState&) = default;
    // Gives "Officer" or "Pawn"; empty while it is undecided.
    std::string_view ReturnName() const {
        return ReturnKind == 0 ? std::string_view() : KindName(ReturnKind);
    }
};

struct Game {
    // the pieces
    std::vector<PieceRecord> PieceTable; // pieces 1 to 26; element 0 holds no piece
    std::vector<PieceRecord> JailTable;  // from 1, in order of capture until a return; element 0 is unused
    DirectionTableType DirectionTable{};

    // the turn
    std::int16_t Turn = 0;               // Side
    std::int16_t GameState = 0;          // see gamestates.h
    std::int16_t CurPiece = 0;           // the selected piece, 0 for none
    std::int16_t SelX = 0, SelY = 0;     // the selection marker's square: where the last piece was picked
    std::int16_t ClickX = 0, ClickY = 0; // the pending square, which the next pass handles; both 0 for none

    // captures and returns
    ReturnState Return;
    std::string VictoryText; // the sentence that ended the game, empty while it is on

    // move animation
    bool Animating = false;         // AnimateMove is running
    std::int16_t AnimatedPiece = 0; // the moving piece, which RedrawBoard leaves out; 0 for none

    // the record of the game, one line for each move and return
    std::vector<std::string> lstHistory;

    friend bool operator==(const Game&, const Game&) = default;

    Square PendingSquare() const { return {ClickX, ClickY}; }
    void ClearClick() { ClickX = ClickY = 0; }
    // Gives the index of the last piece: 26 in any game that CreatePieces has set up.
    int PieceCount() const { return PieceTable.empty() ? 0 : static_cast<int>(PieceTable.size()) - 1; }
    int JailCount() const { return JailTable.empty() ? 0 : static_cast<int>(JailTable.size()) - 1; }
    // Give an element of a table; throw std::out_of_range for an index outside it.
    PieceRecord& Piece(int index) { return PieceTable.at(static_cast<std::size_t>(index)); }
    const PieceRecord& Piece(int index) const { return PieceTable.at(static_cast<std::size_t>(index)); }
    const PieceRecord& Jailed(int slot) const { return JailTable.at(static_cast<std::size_t>(slot)); }
};

} // namespace tarveth
