// Why a connection is not accepted, and the sentence that the client is told.
#pragma once

#include <cstdint>
#include <string_view>

namespace tarveth {

enum class Refusal : std::uint8_t { LobbyFull, TooManyFromAddress, TooManyArrivals };

constexpr std::string_view RefusalReason(Refusal refusal) {
    switch (refusal) {
    case Refusal::LobbyFull:
        return "The lobby is full. Please try again later.";
    case Refusal::TooManyFromAddress:
        return "There are too many connections from your address.";
    case Refusal::TooManyArrivals:
        return "Your address has connected too often. Please try again in a minute.";
    }
    return {};
}

} // namespace tarveth
