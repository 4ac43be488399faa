#include "server/figures_text.h"

#include "version.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarveth {

namespace {

struct Counter {
    std::string_view name; // with the prefix and suffix of every counter
    std::string_view help;
    std::uint64_t Figures::*value;
};

constexpr std::array kCounters = {
    Counter{"arrivals", "Connections that were accepted.", &Figures::arrivals},
    Counter{"refused_arrivals", "Connections that were refused.", &Figures::refusedArrivals},
    Counter{"messages", "Messages received.", &Figures::messages},
    Counter{"moves", "Messages of games passed on.", &Figures::moves},
    Counter{"chat_lines", "Lines of chat passed on.", &Figures::chatLines},
    Counter{"dropped", "Messages and lines of chat that were dropped.", &Figures::dropped},
    Counter{"pauses", "Times that a client was read more slowly.", &Figures::pauses},
    Counter{"silent", "Clients that did not complete the handshake in time.", &Figures::silent},
    Counter{"slow_readers", "Clients dropped because they did not read.", &Figures::slowReaders},
    Counter{"memory_drops", "Clients dropped because memory was full.", &Figures::memoryDrops},
    Counter{"flooders", "Clients put out because of what they sent.", &Figures::flooders},
    Counter{"ghosts", "Connections closed because their client had gone unnoticed.", &Figures::ghosts},
    Counter{"put_out", "Clients put out by the operator or by a ban.", &Figures::putOut},
};

void AppendMetric(std::string& text, std::string_view name, std::string_view type, std::string_view help,
                  std::uint64_t value) {
    const std::string whole = "tarveth_lobby_" + std::string(name);
    text.append("# HELP ").append(whole).append(" ").append(help).append("\n# TYPE ").append(whole);
    text.append(" ").append(type).append("\n").append(whole).append(" ").append(std::to_string(value)) +=
        '\n';
}

} // namespace

std::string FiguresLine(const Lobby& lobby) {
    const Figures& f = lobby.Counts();
    const auto number = [](std::uint64_t value, std::string_view what) {
        return std::to_string(value).append(" ").append(what);
    };
    return number(lobby.Sessions().size(), "connections, ") + number(lobby.Users().size(), "users, ") +
           number(f.games, "games; ") + number(f.arrivals, "arrivals, ") +
           number(f.refusedArrivals, "refused, ") + number(f.silent, "silent; ") +
           number(f.messages, "messages, ") + number(f.moves, "moves, ") +
           number(f.chatLines, "chat lines; ") + number(f.dropped, "dropped, ") +
           number(f.pauses, "pauses, ") + number(f.slowReaders, "slow readers dropped, ") +
           number(f.flooders, "flooders put out, ") + number(f.memoryDrops, "dropped for memory");
}

std::string FiguresForPrometheus(const Lobby& lobby) {
    std::string text;
    AppendMetric(text, "connections", "gauge", "Connections now.", lobby.Sessions().size());
    AppendMetric(text, "users", "gauge", "Connections with a nickname now.", lobby.Users().size());
    AppendMetric(text, "games", "gauge", "Games being played now.", lobby.Counts().games);
    AppendMetric(text, "memory_bytes", "gauge", "Bytes that all clients together take.", lobby.MemoryHeld());
    AppendMetric(text, "memory_limit_bytes", "gauge", "Bytes that all clients together may take.",
                 lobby.Bounds().memory);
    AppendMetric(text, "connections_limit", "gauge", "Connections that are accepted.",
                 lobby.Bounds().maxClients);
    AppendMetric(text, "sanctions", "gauge", "Bans and mutes.", lobby.Decisions().All().size());
    for (const Counter& counter : kCounters)
        AppendMetric(text, std::string(counter.name) + "_total", "counter", counter.help,
                     lobby.Counts().*counter.value);
    text += "# HELP tarveth_lobby_info The version of the program.\n# TYPE tarveth_lobby_info gauge\n"
            "tarveth_lobby_info{version=\"";
    return text.append(kVersion).append("\"} 1\n");
}

} // namespace tarveth
