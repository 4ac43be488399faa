#include "storage/keptgame.h"

#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/file_text.h"
#include "platform/local_time.h"
#include "storage/modFileIO.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <limits>

namespace tarveth {

namespace {

constexpr std::uintmax_t kLongestFile = std::uintmax_t{8} * 1024 * 1024;
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBeginning = "Kept game";
constexpr std::string_view kSum = "Sum ";

// The FNV-1a hash.
std::uint64_t Checksum(std::string_view bytes) {
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    return sum;
}

std::string SumLine(std::string_view bytes) {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(Checksum(bytes)));
    return std::string(kSum) + digits.data() + std::string(kLineEnd);
}

// One line of the file: no path or name may begin another.
std::string Line(std::string_view name, std::string_view value) {
    std::string line = std::string(name) + ' ' + std::string(value);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line + std::string(kLineEnd);
}

std::string OwnLines(const KeptGame& kept) {
    return std::string(kBeginning) + std::string(kLineEnd) + Line("Moment", std::to_string(kept.moment)) +
           Line("File", kept.fileName) + Line("Opponent", kept.opponent) +
           Line("Side", std::to_string(kept.side));
}

// Reads the program's own lines, which all have to be there.
class OwnLineReader {
public:
    OwnLineReader(std::string_view lines, const std::string& name) : rest_(lines), name_(name) {}

    std::string Text(std::string_view name) {
        const std::string beginning = std::string(name) + ' ';
        const std::size_t length = rest_.find(kLineEnd);
        if (length == std::string_view::npos || !rest_.starts_with(beginning))
            Fail();
        const std::string_view value = rest_.substr(0, length).substr(beginning.size());
        rest_.remove_prefix(length + kLineEnd.size());
        return std::string(value);
    }

    std::int64_t Number(std::string_view name, std::int64_t least, std::int64_t most) {
        const std::string text = Text(name);
        std::int64_t number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc() || end != text.data() + text.size() || number < least || number > most)
            Fail();
        return number;
    }

private:
    [[noreturn]] void Fail() const { throw platform::FileError(name_, "is no game that was kept"); }

    std::string_view rest_;
    const std::string& name_;
};

} // namespace

std::string KeptGameBytes(const KeptGame& kept) {
    std::string bytes = platform::TextForFile(GameText(kept.game, "") + OwnLines(kept));
    bytes += SumLine(bytes);
    return bytes;
}

KeptGame ParseKeptGame(std::string_view bytes, const std::string& nameForErrors) {
    const std::size_t end = std::min(bytes.rfind(kSum), bytes.size());
    if (bytes.substr(end) != SumLine(bytes.substr(0, end)))
        throw platform::FileError(nameForErrors, "is damaged");
    const std::string text = platform::TextFromFile(std::string(bytes.substr(0, end)));
    const std::string beginning = std::string(kLineEnd) + std::string(kBeginning) + std::string(kLineEnd);
    const std::size_t own = text.rfind(beginning);
    OwnLineReader lines(
        std::string_view(text).substr(own == std::string::npos ? text.size() : own + beginning.size()),
        nameForErrors);
    KeptGame kept;
    kept.moment = lines.Number("Moment", std::numeric_limits<std::int64_t>::min(),
                               std::numeric_limits<std::int64_t>::max());
    kept.fileName = lines.Text("File");
    kept.opponent = lines.Text("Opponent");
    kept.side = static_cast<std::int16_t>(lines.Number("Side", NoSide, Red));
    kept.game = ParseGame(text, nameForErrors);
    return kept;
}

void WriteKeptGame(const KeptGame& kept, const std::string& path) {
    platform::WriteFileAtomically(path, KeptGameBytes(kept));
}

KeptGame ReadKeptGame(const std::string& path) {
    return ParseKeptGame(platform::ReadWholeFile(path, kLongestFile), path);
}

} // namespace tarveth
