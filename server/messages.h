// The messages that a client may send, as a table. The dispatcher checks each message against its row; the
// handlers rely on that.
#pragma once

#include "net/wire/framing.h"
#include "server/Lobby.h"

#include <array>
#include <span>
#include <string_view>

namespace tarveth {

inline constexpr std::size_t kMostFields = 3;

struct ClientMessage {
    std::string_view whole; // name(arguments), without the marker
    std::array<std::string_view, kMostFields>
        fields; // trimmed; the last field of the row holds the rest, commas included
};

enum class MessageLimit : std::uint8_t { Messages, Moves };

struct MessageRow {
    std::string_view name;
    unsigned stages; // the stages in which it is allowed, as bits 1 << Stage
    int fields;      // the number of fields, which the first fields - 1 commas separate
    MessageLimit limit;
    void (*handle)(Lobby&, Session&, const ClientMessage&);
};

// Gives the rows of all messages.
std::span<const MessageRow> MessageTable();

// Hands a message to its handler. One of an unknown name, in a wrong stage, over a limit or with too few
// fields is dropped.
void DispatchClientMessage(Lobby& lobby, Session& session, const Frame& message);

} // namespace tarveth
