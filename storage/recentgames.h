// The files of games that were opened or saved last. They stand in "recent.txt" beside the settings, one full
// path a line, the newest first; two programs of one folder share it.
#pragma once

#include <string>
#include <vector>

namespace tarveth {

inline constexpr std::size_t kMostRecentGames = 10;

class RecentGames {
public:
    // `folder` is that of the settings, with its separator.
    explicit RecentGames(const std::string& folder) : file_(folder + "recent.txt") {}

    // Puts the path first. A list that cannot be written stays as it was.
    void Note(const std::string& path) const;
    // Gives at most kMostRecentGames paths; none when the list is missing or cannot be read.
    std::vector<std::string> Paths() const;
    // Gives the first path that still has a file; empty when there is none.
    std::string Newest() const;

private:
    std::string file_;
};

} // namespace tarveth
