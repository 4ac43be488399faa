#include "server/options.h"

#include "server/versions.h"
#include "version.h"

#include <CLI/CLI.hpp>

namespace tarveth {

namespace {

constexpr double kPeriod = 10; // the seconds for which the limits of chat and messages are given

// The limits in the units of the command line.
struct Allowances {
    double chatLines = 5;
    double chatBurst = 8;
    double chatCharacters = 1500;
    double messages = 30;
    double moves = 200;
    double handshake = 15;
    std::string oldestClient = "2.0.0";
};

std::string CheckVersion(const std::string& text) {
    return VersionNumber(text) ? "" : text + " is no version";
}

void AddListenOptions(CLI::App& app, ListenOptions& listen) {
    app.add_option("--port", listen.port, "Port to listen on; 0 lets the system choose one")
        ->capture_default_str();
    app.add_option("--bind", listen.bindAddress, "Address to listen on; 0.0.0.0 serves other computers")
        ->capture_default_str()
        ->check(CLI::ValidIPV4 | CLI::Validator(
                                     [](const std::string& text) {
                                         return text.find(':') == std::string::npos ? "no address" : "";
                                     },
                                     "IPV6"));
    app.add_option("--max-clients", listen.maxClients, "Connections in all")->capture_default_str();
    app.add_option("--per-address", listen.perAddress, "Connections of one address, except loopback")
        ->capture_default_str();
}

void AddLimits(CLI::App& app, Limits& limits, Allowances& allowances) {
    const auto rate = [&app](const char* name, double& value, const char* text) {
        app.add_option(name, value, text)->capture_default_str()->check(CLI::Range(0.0, 1e9));
    };
    app.add_option("--message-size", limits.longestMessage, "Characters of the longest message")
        ->capture_default_str()
        ->check(CLI::Range(std::size_t{256}, kLongestMessage));
    rate("--chat-lines", allowances.chatLines, "Chat lines of a user in 10 seconds; 0 for no limit");
    rate("--chat-burst", allowances.chatBurst, "Chat lines that a user may send at once");
    rate("--chat-characters", allowances.chatCharacters,
         "Characters of chat of a user in 10 seconds; 0 for no limit");
    rate("--messages", allowances.messages, "Other lobby messages of a user in 10 seconds; 0 for no limit");
    rate("--moves", allowances.moves, "Game messages of a user in a second; 0 for no limit");
    rate("--handshake", allowances.handshake, "Seconds in which a client has to complete the handshake");
    app.add_option("--unsent-bytes", limits.unsentBytes,
                   "Bytes that may wait for a client that does not read before it is dropped")
        ->capture_default_str();
    app.add_option("--oldest-client", allowances.oldestClient, "Oldest version of the game that is served")
        ->capture_default_str()
        ->check(CheckVersion);
}

void Apply(const Allowances& allowances, Limits& limits) {
    limits.chatLines = {allowances.chatLines / kPeriod, allowances.chatBurst};
    limits.chatCharacters = {allowances.chatCharacters / kPeriod, allowances.chatCharacters};
    limits.messages = {allowances.messages / kPeriod, allowances.messages};
    limits.moves = {allowances.moves, 2 * allowances.moves};
    limits.handshake = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::duration<double>(allowances.handshake));
    limits.oldestClient = VersionNumber(allowances.oldestClient).value_or(limits.oldestClient);
}

} // namespace

std::optional<LobbyOptions> ReadCommandLine(int count, char** arguments, int& exitCode) {
    LobbyOptions options;
    Allowances allowances;
    CLI::App app("The lobby that two programs of Tarveth meet in", "tarveth-lobby");
    app.set_version_flag("--version", std::string("tarveth-lobby ") + kVersion);
    AddListenOptions(app, options.listen);
    AddLimits(app, options.limits, allowances);
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
    Apply(allowances, options.limits);
    return options;
}

} // namespace tarveth
