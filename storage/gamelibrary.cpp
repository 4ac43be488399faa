// Names end in a number that grows with each game, by which the oldest is known. A clock that jumps could not
// tell it.
#include "storage/gamelibrary.h"

#include "platform/file_error.h"
#include "platform/file_lock.h"
#include "platform/local_time.h"
#include "platform/text_path.h"
#include "storage/keptfiles.h"
#include "storage/modFileIO.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <system_error>
#include <thread>

namespace tarveth {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kEnding = ".tsg";
constexpr std::string_view kNumberSign = " #";

// The number in the name of one of the library's own files; nothing for any other, which is left alone.
std::optional<int> NumberIn(std::string_view name) {
    if (!name.ends_with(kEnding))
        return std::nullopt;
    name.remove_suffix(kEnding.size());
    const std::size_t sign = name.rfind(kNumberSign);
    if (sign == std::string_view::npos)
        return std::nullopt;
    const std::string_view digits = name.substr(sign + kNumberSign.size());
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool whole = error == std::errc() && end == digits.data() + digits.size() && number > 0;
    return whole ? std::optional(number) : std::nullopt;
}

std::multimap<int, fs::path> GamesIn(const fs::path& folder) {
    std::multimap<int, fs::path> games;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error))
        if (const auto number = NumberIn(entry->path().filename().string()))
            games.emplace(*number, entry->path());
    return games;
}

bool MayBeInFileName(char letter) {
    return static_cast<unsigned char>(letter) >= ' ' &&
           std::string_view("\\/:*?\"<>|").find(letter) == std::string_view::npos;
}

// As much of a name in UTF-8 as a file's name has room for. What no system's file names may hold becomes "-".
std::string FileNamePart(std::string name) {
    constexpr std::size_t kLongest = 80;
    std::size_t length = std::min(name.size(), kLongest);
    while (length < name.size() && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80)
        --length; // no letter is cut in two
    name.resize(length);
    std::replace_if(
        name.begin(), name.end(), [](char letter) { return !MayBeInFileName(letter); }, '-');
    return name;
}

std::string PlayersOf(const LibraryGame& game) {
    const KeptGame& kept = game.kept;
    if (kept.opponent.empty())
        return "Blue against Red";
    const bool blueHere = kept.side == Blue;
    return FileNamePart(blueHere ? game.nickname : kept.opponent) + " against " +
           FileNamePart(blueHere ? kept.opponent : game.nickname);
}

std::string NameOf(const LibraryGame& game, int number) {
    const platform::LocalTime then = platform::ToLocalTime(game.kept.moment);
    std::array<char, 80> moment{};
    std::snprintf(moment.data(), moment.size(), "%04d-%02d-%02d %02d-%02d ", then.year, then.month, then.day,
                  then.hour, then.minute);
    return moment.data() + PlayersOf(game) + (game.finished ? "" : ", unfinished") +
           std::string(kNumberSign) + std::to_string(number) + std::string(kEnding);
}

// Two programs of one folder may finish their games in the same moment, each other's even.
platform::FileLock LockLibrary(const std::string& file) {
    constexpr int kTries = 200;
    for (int tries = 0; tries < kTries; ++tries) {
        if (platform::FileLock lock = platform::TakeFileLock(file))
            return lock;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    throw platform::FileError(file, "is locked by another program");
}

void RemoveOldest(std::multimap<int, fs::path> games) {
    for (; games.size() >= kMostLibraryGames; games.erase(games.begin()))
        RemoveKeptFile(games.begin()->second.string());
}

} // namespace

std::string AddToLibrary(const LibraryGame& game, const std::string& folder) {
    const std::string library = folder + "games" + folder.back();
    std::error_code error;
    fs::create_directories(platform::PathFromText(library), error);
    const platform::FileLock lock = LockLibrary(library + ".lock");
    const std::multimap<int, fs::path> games = GamesIn(platform::PathFromText(library));
    const int number = games.empty() ? 1 : games.rbegin()->first + 1;
    std::string path = library + NameOf(game, number);
    WriteGame(game.kept.game, "", path);
    RemoveOldest(games);
    return path;
}

} // namespace tarveth
