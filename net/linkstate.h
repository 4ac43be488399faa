// GameLinkState: how far this program is on the way to a game with an opponent. Any state but kLinkIdle
// counts as busy when an invitation comes.
#pragma once

#include <cstdint>

namespace tarveth {

inline constexpr std::int16_t kLinkIdle = 0;
inline constexpr std::int16_t kLinkInviting = 1; // an invitation of ours is unanswered
inline constexpr std::int16_t kLinkInGame = 3;

} // namespace tarveth
