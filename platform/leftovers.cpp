#include "platform/leftovers.h"

#include <chrono>
#include <mutex>
#include <set>
#include <string_view>
#include <system_error>

namespace tarveth::platform {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kPrefix = ".tarveth-";
constexpr unsigned long long kMost = 4'294'967'295;
constexpr auto kLongestSave = std::chrono::minutes(1);

using Text = std::basic_string_view<fs::path::value_type>;

// In the file system's own letters, since not every name can be turned into others.
bool StartsWithPrefix(Text name) {
    if (name.size() < kPrefix.size())
        return false;
    for (std::size_t i = 0; i < kPrefix.size(); ++i)
        if (name[i] != static_cast<fs::path::value_type>(kPrefix[i]))
            return false;
    return true;
}

// Takes the digits at the beginning of the text; nothing where there are none, or for a number beyond 32
// bits.
std::optional<ProcessId> TakeNumber(Text& text) {
    unsigned long long number = 0;
    std::size_t digits = 0;
    for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits) {
        number = number * 10 + static_cast<unsigned long long>(text[digits] - '0');
        if (number > kMost)
            return std::nullopt;
    }
    text.remove_prefix(digits);
    return digits > 0 ? std::optional(static_cast<ProcessId>(number)) : std::nullopt;
}

bool IsAbandoned(const fs::path& file, ProcessId maker) {
    // A file that bears this process's number and is not open comes from an earlier program of that number.
    if (maker == OwnProcess() || !IsRunning(maker))
        return true;
    std::error_code error;
    const auto written = fs::last_write_time(file, error);
    return !error && fs::file_time_type::clock::now() - written > kLongestSave;
}

} // namespace

fs::path NewFileName(int number) {
    return std::string(kPrefix) + std::to_string(OwnProcess()) + "-" + std::to_string(number);
}

std::optional<ProcessId> MakerOf(const fs::path& name) {
    Text rest = name.native();
    if (!StartsWithPrefix(rest))
        return std::nullopt;
    rest.remove_prefix(kPrefix.size());
    const auto process = TakeNumber(rest);
    if (!process || !rest.starts_with(fs::path::value_type{'-'}))
        return std::nullopt;
    rest.remove_prefix(1);
    return TakeNumber(rest) && rest.empty() ? process : std::nullopt;
}

void RemoveLeftovers(const fs::path& folder) {
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const auto maker = MakerOf(entry->path().filename());
        std::error_code unknown;
        if (maker && entry->symlink_status(unknown).type() == fs::file_type::regular &&
            IsAbandoned(entry->path(), *maker))
            RemoveUnlessOpen(entry->path());
    }
}

void RemoveLeftoversOnce(const fs::path& folder) {
    static std::mutex mutex;
    static std::set<fs::path> seen;
    {
        const std::lock_guard lock(mutex);
        if (!seen.insert(folder).second)
            return;
    }
    RemoveLeftovers(folder);
}

} // namespace tarveth::platform
