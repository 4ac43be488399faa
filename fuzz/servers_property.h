// What must hold for a server list of any bytes: no line gives more than one server, nothing has blanks
// around it, and every server is written as a line and read back. Shared by the fuzz target and the test that
// replays its corpus.
#pragma once

#include "net/serverlist.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

inline bool HasBlanksAround(const std::string& text) {
    return !text.empty() && (text.front() == ' ' || text.back() == ' ');
}

inline std::string LineOf(const Server& server) {
    const bool comma = server.description.empty() || !server.address.empty();
    return server.description + (comma ? "," + server.address : "") + "\r\n";
}

// What is broken for a server list of these bytes; nothing if all is well.
inline std::string ServerListFault(std::string_view bytes) {
    const std::vector<Server> servers = ParseServerList(bytes);
    const auto ends =
        std::count_if(bytes.begin(), bytes.end(), [](char c) { return c == '\r' || c == '\n'; });
    if (servers.size() > static_cast<std::size_t>(ends) + 1)
        return "more servers than lines";
    std::string text = ";\r\n"; // a first line, since a mark at the very front would be taken off
    for (const Server& server : servers) {
        if (HasBlanksAround(server.description) || HasBlanksAround(server.address))
            return "blanks around a field";
        text += LineOf(server);
    }
    return ParseServerList(text) == servers ? "" : "a server did not read back";
}

} // namespace tarveth
