// The marked messages that a client may send, as a table: the dispatcher checks, the handlers trust.
#pragma once

#include "net/wire/framing.h"
#include "server/Lobby.h"

#include <array>
#include <span>
#include <string_view>

namespace tarveth {

inline constexpr std::size_t kMostFields = 3;

struct ClientMessage {
    std::string_view whole; // without the marker
    std::array<std::string_view, kMostFields>
        fields; // trimmed; the last one that the message has takes the rest
};

enum class MessageLimit : std::uint8_t { Messages, Moves };

struct MessageRow {
    std::string_view name;
    unsigned stages; // bits 1 << Stage in which it is allowed
    int fields;      // it is split at the first fields - 1 commas, and needs so many
    MessageLimit limit;
    void (*handle)(Lobby&, Session&, const ClientMessage&);
};

// Every message that is known.
std::span<const MessageRow> MessageTable();

// An unknown name, a stage in which the message is not allowed, and one over a limit each end here.
void DispatchClientMessage(Lobby& lobby, Session& session, const Frame& message);

} // namespace tarveth
