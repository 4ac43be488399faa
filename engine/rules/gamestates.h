// The nine states of a game: what the side to move has to do next, and what a pass of the machine does.
#pragma once

#include <cstdint>

namespace tarveth {

// GameState                                     prompt        a pending square  an idle pass
inline constexpr std::int16_t kReset = 0;        // none          -                 ends the loop
inline constexpr std::int16_t kPickPiece = 1;    // Pick piece    picks a piece     -
inline constexpr std::int16_t kPlacePiece = 2;   // Place piece   places it         -
inline constexpr std::int16_t kReturnPiece = 3;  // Return piece  returns a piece   asks if undecided
inline constexpr std::int16_t kAllowReturn = 4;  // Allow Return  dropped           asks if a return is due
inline constexpr std::int16_t kTurnOver = 5;     // as it was     dropped           ends the turn
inline constexpr std::int16_t kGetBoard = 6;     // Get Board     dropped           -
inline constexpr std::int16_t kBoardArrived = 7; // as it was     dropped           goes on to 1
inline constexpr std::int16_t kGameOver = 8;     // Game Over     dropped           -

} // namespace tarveth
