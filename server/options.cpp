#include "server/options.h"

#include "server/config_file.h"
#include "text/codepage.h"
#include "text/versionnumber.h"
#include "version.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

namespace tarveth {

namespace {

constexpr double kPeriod = 10; // the seconds for which the limits of chat, messages and renames are given
constexpr double kMinute = 60; // and those of arrivals and invitations
constexpr double kBytesAtOnce = 64; // the seconds whose useless bytes a client may send at once

// Below this, a message of full length that comes in pieces would be more than may be sent at once.
constexpr double kLeastUselessBytes = static_cast<double>(kLongestMessage + 1) / kBytesAtOnce;
constexpr double kOffencePeriod = 100; // the seconds after which all offences are forgiven
constexpr double kMost = 1e9;
constexpr double kLeastUnsent = 65536;
constexpr double kLeastMemory = 16 << 20;
constexpr double kHandshakeMessages = 3; // clientver, nick and sendnicks come at once

// The options in the units in which they are given.
struct GivenOptions {
    LobbyOptions options;
    double chatLines = 5;
    double chatBurst = 8;
    double chatCharacters = 1500;
    double messages = 30;
    double moves = 200;
    double arrivals = 10;
    double renames = 3;
    double invitations = 5;
    double uselessBytes = 32768;
    double offences = 200;
    double handshake = 15;
    double linePause = 0.1;
    std::string oldestClient = "2.0.0";
    double keptNames = 60;
    std::string proxies;
    std::string messageFile;
    std::string namesFile;
    std::string configFile;
};

std::optional<double> NumberOf(const std::string& text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// A number in this range; the comparisons are false for "nan".
CLI::Validator Between(double least, double most) {
    return {[least, most](std::string& text) {
                const auto number = NumberOf(text);
                return number && *number >= least && *number <= most
                           ? std::string()
                           : text + " is not between " + CLI::detail::to_string(least) + " and " +
                                 CLI::detail::to_string(most);
            },
            "NUMBER"};
}

// A limit: 0 for none, else at least so much that something gets through.
CLI::Validator LimitFrom(double least) {
    return {[least](std::string& text) {
                const auto number = NumberOf(text);
                return number && (*number == 0 || (*number >= least && *number <= kMost))
                           ? std::string()
                           : text + " is neither 0, for no limit, nor between " +
                                 CLI::detail::to_string(least) + " and " + CLI::detail::to_string(kMost);
            },
            "NUMBER"};
}

CLI::Validator Version() {
    return {[](std::string& text) { return VersionNumber(text) ? std::string() : text + " is no version"; },
            "VERSION"};
}

CLI::Validator Ranges() {
    return {[](std::string& text) {
                return ParseRanges(text) ? std::string()
                                         : text + " is no list of addresses and ranges with commas";
            },
            "RANGES"};
}

CLI::Validator IPv6() {
    return {[](std::string& text) {
                const auto address = ParseAddress(text);
                return address && !address->IsIPv4() ? std::string() : text + " is no address";
            },
            "IPV6"};
}

class Parser {
public:
    Parser() {
        app_.set_version_flag("--version", std::string("tarveth-lobby ") + kVersion);
        app_.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
        AddPlace();
        AddRates();
        AddAddresses();
        AddBounds();
        AddTexts();
        app_.footer("Ends on SIGINT and SIGTERM, and tells its users. Reads its files again on SIGHUP. Logs "
                    "its figures "
                    "on SIGUSR1, on Windows on Ctrl+Break.");
    }
    // Throws CLI::ParseError.
    void Parse(std::vector<std::string> words) {
        std::ranges::reverse(words);
        app_.parse(std::move(words));
    }
    int Exit(const CLI::ParseError& error) const { return app_.exit(error); }
    const GivenOptions& Given() const { return given_; }

private:
    CLI::Option* Add(const char* name, auto& value, const char* text) {
        return app_.add_option(name, value, text)->capture_default_str();
    }

    void AddPlace() {
        ListenOptions& listen = given_.options.listen;
        app_.add_option("--config", given_.configFile, "File with further options, one a line: name = value");
        Add("--port", listen.port, "Port to listen on; 0 lets the system choose one");
        Add("--bind", listen.bindAddress,
            "Address to listen on; 0.0.0.0 serves other computers, :: with IPv6 as well")
            ->check(CLI::ValidIPV4 | IPv6());
        Add("--proxies", given_.proxies,
            "Addresses and ranges, with commas between them, of proxies that put a header of the PROXY "
            "protocol "
            "in front of each connection")
            ->check(Ranges());
        Add("--keep-alive", listen.keepAliveSeconds,
            "Seconds after which a client that has vanished is noticed")
            ->check(Between(10, 86400));
    }

    void AddRates() {
        Add("--chat-lines", given_.chatLines, "Chat lines of a user in 10 seconds; 0 for no limit")
            ->check(LimitFrom(0.01));
        Add("--chat-burst", given_.chatBurst, "Chat lines that a user may send at once")
            ->check(Between(1, kMost));
        Add("--chat-characters", given_.chatCharacters,
            "Characters of chat of a user in 10 seconds; 0 for no limit")
            ->check(LimitFrom(1));
        Add("--messages", given_.messages, "Other lobby messages of a user in 10 seconds; 0 for no limit")
            ->check(LimitFrom(kHandshakeMessages));
        Add("--moves", given_.moves, "Game messages of a user in a second; 0 for no limit")
            ->check(LimitFrom(1));
        Add("--renames", given_.renames, "New nicknames of a user in 10 seconds; 0 for no limit")
            ->check(LimitFrom(1));
        Add("--invitations", given_.invitations, "Invitations by a user in a minute; 0 for no limit")
            ->check(LimitFrom(1));
        Add("--useless-bytes", given_.uselessBytes,
            "Bytes of dropped messages and lines in a second, beyond which a client is read more slowly; 0 "
            "for no limit")
            ->check(LimitFrom(kLeastUselessBytes));
        Add("--offences", given_.offences,
            "Dropped messages and lines after which a client is put out; 0 for no limit")
            ->check(LimitFrom(1));
    }

    void AddAddresses() {
        Limits& limits = given_.options.limits;
        Add("--max-clients", limits.maxClients, "Connections in all")->check(Between(1, 1e6));
        Add("--per-address", limits.perAddress,
            "Connections of one address at the same time. An address is an IPv4 address or an IPv6 /64")
            ->check(Between(1, 1e6));
        Add("--arrivals", given_.arrivals,
            "Connections of one address that are accepted in a minute; 0 for no limit")
            ->check(LimitFrom(1));
        app_.add_flag("--exempt-loopback", limits.exemptLoopback,
                      "Do not count clients of this computer by their address");
    }

    void AddBounds() {
        Limits& limits = given_.options.limits;
        Add("--message-size", limits.longestMessage, "Characters of the longest message")
            ->check(Between(256, static_cast<double>(kLongestMessage)));
        Add("--open-invitations", limits.openInvitations, "Invitations of a user that may wait for an answer")
            ->check(Between(1, 1000));
        Add("--ignored-users", limits.ignoredUsers, "Users whom a user may ignore")->check(Between(0, 10000));
        Add("--handshake", given_.handshake, "Seconds in which a client has to complete the handshake")
            ->check(Between(0.1, 86400));
        Add("--kept-names", given_.keptNames,
            "Seconds for which the nickname of a user whose connection has ended is kept for their address")
            ->check(Between(0, 3600));
        Add("--line-pause", given_.linePause,
            "Seconds without more bytes that end a chat line without a line end")
            ->check(Between(0.01, 10));
        Add("--unsent-bytes", limits.unsentBytes,
            "Bytes that may be held for a client that does not read before it is dropped")
            ->check(Between(kLeastUnsent, 1e15));
        app_.add_option(
                "--memory", limits.memory,
                "Bytes that all clients together may take, such as 256MiB; then the slowest are dropped")
            ->transform(CLI::AsSizeValue(false) & Between(kLeastMemory, 1e15))
            ->default_str("256MiB");
        Add("--oldest-client", given_.oldestClient, "Oldest version of the game that is served")
            ->check(Version());
    }

    void AddTexts() {
        app_.add_option("--message-of-the-day", given_.options.messageOfTheDay,
                        "Notice that every user gets on arrival");
        app_.add_option("--message-of-the-day-file", given_.messageFile,
                        "File in UTF-8 whose lines every user gets on arrival");
        app_.add_option("--reserved-names", given_.namesFile,
                        "File in UTF-8 with a name on each line that nobody may have");
        app_.add_option("--bans", given_.options.bansFile, "File that keeps bans and mutes");
        app_.add_option("--control", given_.options.controlPath,
                        "Local socket to listen on for tarveth-lobby-ctl; not on Windows");
        Add("--log-level", given_.options.logLevel, "What goes to the standard error stream")
            ->check(CLI::IsMember({"debug", "info", "warn", "error", "off"}));
    }

    GivenOptions given_;
    CLI::App app_{"The lobby that two programs of Tarveth meet in", "tarveth-lobby"};
};

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    if (!file)
        throw OptionError(path + " can't be read");
    return text;
}

// The options of the file as words of a command line. Each line is tried alone, so that a fault is told with
// its line.
std::vector<std::string> WordsOfFile(const std::string& path) {
    std::ifstream file(path);
    if (!file)
        throw OptionError(path + " can't be read");
    std::vector<std::string> words;
    for (const ConfigLine& line : ReadConfigLines(file)) {
        const std::string place = path + ", line " + std::to_string(line.number) + ": ";
        if (line.word.empty())
            throw OptionError(place + "a line is option = value");
        try {
            Parser alone;
            alone.Parse({line.word});
            if (!alone.Given().configFile.empty())
                throw OptionError(place + "a configuration file names no other one");
        } catch (const CLI::ParseError& error) {
            throw OptionError(place + error.what());
        }
        words.push_back(line.word);
    }
    return words;
}

std::vector<std::string> ReadNames(const std::string& path) {
    std::istringstream file(ReadFile(path));
    std::vector<std::string> names;
    for (std::string line; std::getline(file, line);) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
        if (!line.empty() && line.front() != '#')
            names.push_back(ToWire(line));
    }
    return names;
}

std::chrono::milliseconds Milliseconds(double seconds) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
}

LobbyOptions Convert(const GivenOptions& given) {
    LobbyOptions options = given.options;
    Limits& limits = options.limits;
    limits.chatLines = {given.chatLines / kPeriod, given.chatBurst};
    limits.chatCharacters = {given.chatCharacters / kPeriod, given.chatCharacters};
    limits.messages = {given.messages / kPeriod, given.messages};
    limits.renames = {given.renames / kPeriod, given.renames};
    limits.moves = {given.moves, 2 * given.moves};
    limits.arrivals = {given.arrivals / kMinute, given.arrivals};
    limits.invitations = {given.invitations / kMinute, given.invitations};
    limits.uselessBytes = {given.uselessBytes, kBytesAtOnce * given.uselessBytes};
    limits.offences = {given.offences / kOffencePeriod, given.offences};
    limits.handshake = Milliseconds(given.handshake);
    limits.linePause = Milliseconds(given.linePause);
    limits.keptNames = Milliseconds(given.keptNames);
    limits.oldestClient = *VersionNumber(given.oldestClient);
    if (!given.messageFile.empty())
        options.messageOfTheDay = ReadFile(given.messageFile);
    options.messageOfTheDay = ToWire(options.messageOfTheDay);
    if (!given.namesFile.empty())
        options.reservedNames = ReadNames(given.namesFile);
    options.listen.proxies = *ParseRanges(given.proxies);
    return options;
}

// Throws CLI::ParseError for the command line, OptionError for files.
LobbyOptions Read(Parser& parser, const std::vector<std::string>& words) {
    parser.Parse(words);
    if (parser.Given().configFile.empty())
        return Convert(parser.Given());
    std::vector<std::string> all = WordsOfFile(parser.Given().configFile);
    all.insert(all.end(), words.begin(), words.end());
    Parser both;
    both.Parse(all);
    return Convert(both.Given());
}

} // namespace

LobbyOptions ReadOptions(const std::vector<std::string>& words) {
    Parser parser;
    try {
        return Read(parser, words);
    } catch (const CLI::ParseError& error) {
        throw OptionError(error.what());
    }
}

std::optional<LobbyOptions> ReadCommandLine(int count, char** arguments, int& exitCode) {
    Parser parser;
    try {
        return Read(parser, {arguments + 1, arguments + count});
    } catch (const CLI::ParseError& error) {
        exitCode = parser.Exit(error);
    } catch (const OptionError& error) {
        std::cerr << error.what() << '\n';
        exitCode = 1;
    }
    return std::nullopt;
}

} // namespace tarveth
