// The lobby servers that servers.txt names, one a line: a description, a comma and an address.
// What the reader forgives: blanks around the line and both fields, empty lines, comments (";" first), a
// missing address, fields behind the second, any line ends, and the mark that some editors put in front.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

struct Server {
    std::string description; // quotes and parentheses stay; commas within them separate nothing
    std::string address;     // empty where the line has none

    friend bool operator==(const Server&, const Server&) = default;
};

std::vector<Server> ParseServerList(std::string_view text);

// The servers of the first servers.txt in these folders (with their trailing separators); none when there is
// no such file. Throws platform::FileError for one that cannot be read or is longer than 1 MiB.
std::vector<Server> ReadServerList(const std::vector<std::string>& folders);

} // namespace tarveth
