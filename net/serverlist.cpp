#include "net/serverlist.h"

#include "net/wire/modPARSER.h"
#include "platform/atomic_file.h"
#include "platform/file_exists.h"
#include "platform/file_text.h"
#include "text/trim.h"

#include <algorithm>
#include <cstdint>

namespace tarveth {

namespace {

constexpr std::uintmax_t kLongestFile = std::uintmax_t{1024} * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

Server ServerOf(std::string_view line) {
    const auto fields = SplitFields(line, ",", kGroupParentheses | kGroupQuotes);
    return {std::string(TrimBlanks(fields.front())),
            std::string(fields.size() > 1 ? TrimBlanks(fields[1]) : std::string_view())};
}

} // namespace

std::vector<Server> ParseServerList(std::string_view text) {
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    std::vector<Server> servers;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        const std::string_view line = TrimBlanks(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!line.empty() && line.front() != ';')
            servers.push_back(ServerOf(line));
    }
    return servers;
}

std::vector<Server> ReadServerList(const std::vector<std::string>& folders) {
    const std::string file = platform::FindInFolders("servers.txt", folders);
    if (file.empty())
        return {};
    return ParseServerList(platform::TextFromFile(platform::ReadWholeFile(file, kLongestFile)));
}

} // namespace tarveth
