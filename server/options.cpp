#include "server/options.h"

#include "text/versionnumber.h"
#include "version.h"

#include <CLI/CLI.hpp>

namespace tarveth {

namespace {

constexpr double kMinute = 60;
constexpr double kBytesAtOnce = 64;    // the seconds whose bytes a client may send at once
constexpr double kOffencePeriod = 100; // the seconds after which all offences are forgiven
constexpr double kPeriod = 10;         // the seconds for which the limits of chat and messages are given

// The limits in the units of the command line.
struct RatesOfOptions {
    double chatLines = 5;
    double chatBurst = 8;
    double chatCharacters = 1500;
    double messages = 30;
    double moves = 200;
    double arrivals = 10;
    double renames = 3;
    double invitations = 5;
    double bytes = 32768;
    double offences = 200;
    double handshake = 15;
    std::string oldestClient = "2.0.0";
};

std::string CheckVersion(const std::string& text) {
    return VersionNumber(text) ? "" : text + " is no version";
}

void AddListenOptions(CLI::App& app, ListenOptions& listen, Limits& limits) {
    app.add_option("--port", listen.port, "Port to listen on; 0 lets the system choose one")
        ->capture_default_str();
    app.add_option("--bind", listen.bindAddress, "Address to listen on; 0.0.0.0 serves other computers")
        ->capture_default_str()
        ->check(CLI::ValidIPV4 | CLI::Validator(
                                     [](const std::string& text) {
                                         return text.find(':') == std::string::npos ? "no address" : "";
                                     },
                                     "IPV6"));
    app.add_option("--max-clients", limits.maxClients, "Connections in all")->capture_default_str();
    app.add_option(
           "--per-address", limits.perAddress,
           "Connections of one address at the same time. An address is an IPv4 address or an IPv6 /64")
        ->capture_default_str();
}

void AddLimits(CLI::App& app, Limits& limits, RatesOfOptions& rates) {
    const auto rate = [&app](const char* name, double& value, const char* text) {
        app.add_option(name, value, text)->capture_default_str()->check(CLI::Range(0.0, 1e9));
    };
    app.add_option("--message-size", limits.longestMessage, "Characters of the longest message")
        ->capture_default_str()
        ->check(CLI::Range(std::size_t{256}, kLongestMessage));
    rate("--chat-lines", rates.chatLines, "Chat lines of a user in 10 seconds; 0 for no limit");
    rate("--chat-burst", rates.chatBurst, "Chat lines that a user may send at once");
    rate("--chat-characters", rates.chatCharacters,
         "Characters of chat of a user in 10 seconds; 0 for no limit");
    rate("--messages", rates.messages, "Other lobby messages of a user in 10 seconds; 0 for no limit");
    rate("--moves", rates.moves, "Game messages of a user in a second; 0 for no limit");
    rate("--arrivals", rates.arrivals,
         "Connections of one address that are accepted in a minute; 0 for no limit");
    rate("--renames", rates.renames, "New nicknames of a user in 10 seconds; 0 for no limit");
    rate("--invitations", rates.invitations, "Invitations by a user in a minute; 0 for no limit");
    rate("--useless-bytes", rates.bytes,
         "Useless bytes of a client in a second, beyond which it is read more slowly; 0 for no limit");
    rate("--offences", rates.offences,
         "Dropped messages and lines after which a client is put out; 0 for no limit");
    app.add_flag("--exempt-loopback", limits.exemptLoopback,
                 "Do not count clients of this computer by their address");
    rate("--handshake", rates.handshake, "Seconds in which a client has to complete the handshake");
    app.add_option("--unsent-bytes", limits.unsentBytes,
                   "Bytes that may wait for a client that does not read before it is dropped")
        ->capture_default_str();
    app.add_option("--oldest-client", rates.oldestClient, "Oldest version of the game that is served")
        ->capture_default_str()
        ->check(CheckVersion);
}

void Apply(const RatesOfOptions& rates, Limits& limits) {
    limits.chatLines = {rates.chatLines / kPeriod, rates.chatBurst};
    limits.chatCharacters = {rates.chatCharacters / kPeriod, rates.chatCharacters};
    limits.messages = {rates.messages / kPeriod, rates.messages};
    limits.moves = {rates.moves, 2 * rates.moves};
    limits.arrivals = {rates.arrivals / kMinute, rates.arrivals};
    limits.renames = {rates.renames / kPeriod, rates.renames};
    limits.invitations = {rates.invitations / kMinute, rates.invitations};
    limits.uselessBytes = {rates.bytes, kBytesAtOnce * rates.bytes};
    limits.offences = {rates.offences / kOffencePeriod, rates.offences};
    limits.handshake =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::duration<double>(rates.handshake));
    limits.oldestClient = VersionNumber(rates.oldestClient).value_or(limits.oldestClient);
}

} // namespace

std::optional<LobbyOptions> ReadCommandLine(int count, char** arguments, int& exitCode) {
    LobbyOptions options;
    RatesOfOptions rates;
    CLI::App app("The lobby that two programs of Tarveth meet in", "tarveth-lobby");
    app.set_version_flag("--version", std::string("tarveth-lobby ") + kVersion);
    AddListenOptions(app, options.listen, options.limits);
    AddLimits(app, options.limits, rates);
    app.add_option("--message-of-the-day", options.messageOfTheDay, "Notice that every user gets on arrival");
    app.add_option("--log-level", options.logLevel, "What goes to the standard error stream")
        ->capture_default_str()
        ->check(CLI::IsMember({"debug", "info", "warn", "error", "off"}));
    app.footer("Ends on SIGINT and SIGTERM, and tells its users. Logs its figures on SIGUSR1, on Windows on "
               "Ctrl+Break.");
    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        exitCode = app.exit(error);
        return std::nullopt;
    }
    Apply(rates, options.limits);
    return options;
}

} // namespace tarveth
