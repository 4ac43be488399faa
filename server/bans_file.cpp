#include "server/bans_file.h"

#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/file_exists.h"
#include "server/calendar.h"
#include "text/codepage.h"

#include <algorithm>
#include <stdexcept>

namespace tarveth {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::uintmax_t kLongestFile = std::uintmax_t{16} << 20;
constexpr std::string_view kForever = "forever";
constexpr std::string_view kNothing = "-";

constexpr std::string_view kHeading =
    "# Written by tarveth-lobby at each ban and mute; what is changed here is read on SIGHUP.\n"
    "# Kind, until (UTC), address or range, nickname, reason.\n";

void SkipBlanks(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
}

// What is wrong with a line.
struct Fault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Takes the next word; one between double quotes may hold blanks.
std::string_view TakeWord(std::string_view& line) {
    SkipBlanks(line);
    const bool quoted = line.starts_with('"');
    line.remove_prefix(quoted ? 1 : 0);
    const std::size_t end = std::min(quoted ? line.find('"') : line.find_first_of(kBlanks), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(std::min(end + (quoted ? 1 : 0), line.size()));
    return word;
}

Sanction ReadLine(std::string_view line) {
    Sanction sanction;
    const std::string_view kind = TakeWord(line);
    if (kind != "ban" && kind != "mute")
        throw Fault("a line begins with ban or mute");
    sanction.kind = kind == "ban" ? Sanction::Kind::Ban : Sanction::Kind::Mute;
    const std::string_view until = TakeWord(line);
    if (until != kForever && !(sanction.until = ParseTimestamp(until)))
        throw Fault(std::string(until) + " is neither forever nor a time such as " + "2026-11-22T10:00:00Z");
    const std::string_view range = TakeWord(line);
    if (range != kNothing && !(sanction.target.range = ParseRange(range)))
        throw Fault(std::string(range) + " is neither an address nor a range");
    SkipBlanks(line);
    const bool quoted = line.starts_with('"');
    if (const std::string_view nick = TakeWord(line); quoted || nick != kNothing)
        sanction.target.nick = ToWire(nick);
    if (sanction.target == Target{})
        throw Fault("neither an address nor a nickname is given");
    SkipBlanks(line);
    sanction.reason = ToWire(line.substr(0, line.find_last_not_of(kBlanks) + 1));
    return sanction;
}

std::string TextOf(const std::vector<Sanction>& sanctions) {
    std::string text(kHeading);
    for (const Sanction& sanction : sanctions) {
        const Target& target = sanction.target;
        text += sanction.kind == Sanction::Kind::Ban ? "ban  " : "mute ";
        text += sanction.until ? TimestampText(*sanction.until) : std::string(kForever);
        text += " " + (target.range ? RangeText(*target.range) : std::string(kNothing));
        text += " " + (target.nick.empty() ? std::string(kNothing) : '"' + FromWire(target.nick) + '"');
        text += (sanction.reason.empty() ? "" : " " + FromWire(sanction.reason)) + "\n";
    }
    return text;
}

} // namespace

void WriteBansFile(const std::string& path, const std::vector<Sanction>& sanctions) {
    platform::WriteFileAtomically(path, TextOf(sanctions));
}

std::vector<Sanction> ReadBansFile(const std::string& path) {
    std::vector<Sanction> sanctions;
    if (!platform::FileExists(path))
        return sanctions;
    const std::string bytes = platform::ReadWholeFile(path, kLongestFile);
    std::string_view text = bytes;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        SkipBlanks(line);
        try {
            if (!line.empty() && !line.starts_with('#'))
                sanctions.push_back(ReadLine(line));
        } catch (const Fault& fault) {
            throw platform::FileError(path, number, fault.what());
        }
    }
    return sanctions;
}

std::vector<Sanction> OpenBansFile(const std::string& path) {
    if (!platform::FileExists(path))
        WriteBansFile(path, {});
    return ReadBansFile(path);
}

} // namespace tarveth
