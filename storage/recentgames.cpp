#include "storage/recentgames.h"

#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/file_exists.h"
#include "platform/file_text.h"

#include <algorithm>
#include <cstdint>
#include <sstream>

namespace tarveth {

namespace {

constexpr std::uintmax_t kLongestFile = std::uintmax_t{1024} * 1024;

} // namespace

std::vector<std::string> RecentGames::Paths() const {
    std::vector<std::string> paths;
    try {
        std::istringstream lines(platform::TextFromFile(platform::ReadWholeFile(file_, kLongestFile)));
        for (std::string line; paths.size() < kMostRecentGames && std::getline(lines, line);) {
            if (line.ends_with('\r'))
                line.pop_back();
            if (!line.empty())
                paths.push_back(line);
        }
    } catch (const platform::FileError&) { // it may not be there yet
        paths.clear();
    }
    return paths;
}

void RecentGames::Note(const std::string& path) const {
    if (path.find_first_of("\r\n") != std::string::npos)
        return; // which no line can hold
    std::vector<std::string> paths = Paths();
    paths.erase(std::remove(paths.begin(), paths.end(), path), paths.end());
    paths.insert(paths.begin(), path);
    paths.resize(std::min(paths.size(), kMostRecentGames));
    std::string text;
    for (const std::string& line : paths)
        text += line + "\r\n";
    try {
        platform::WriteFileAtomically(file_, platform::TextForFile(text));
    } catch (const platform::FileError&) { // the game itself is safe, and nothing else hangs on the list
        return;
    }
}

std::string RecentGames::Newest() const {
    const std::vector<std::string> paths = Paths();
    const auto found = std::find_if(paths.begin(), paths.end(), platform::FileExists);
    return found == paths.end() ? std::string() : *found;
}

} // namespace tarveth
