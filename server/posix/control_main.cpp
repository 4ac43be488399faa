// tarveth-lobby-ctl: what whoever runs a lobby asks of it while it runs.
#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "server/posix/ControlClient.h"
#include "version.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace tarveth {

namespace {

// The words of the command line.
struct Given {
    std::string socket = "/run/tarveth-lobby/control";
    int seconds = 10;
    std::string whom;
    std::string duration;
    std::string reason;
    std::string text;
    std::string output;
    std::vector<std::string> request; // to the lobby
};

class Parser {
public:
    Parser() {
        app_.set_version_flag("--version", std::string("tarveth-lobby-ctl ") + kVersion);
        app_.require_subcommand(1);
        app_.add_option("--socket", given_.socket, "The lobby's control socket")->capture_default_str();
        app_.add_option("--timeout", given_.seconds,
                        "Seconds after which a lobby that does not answer is given up")
            ->check(CLI::Range(1, 3600))
            ->capture_default_str();
        AddQuestions();
        AddActs();
    }
    CLI::App& App() { return app_; }
    const Given& Words() const { return given_; }

private:
    template <class Request>
    CLI::App& Add(const char* name, const char* text, Request request) {
        CLI::App* command = app_.add_subcommand(name, text);
        command->callback([this, request] { given_.request = request(); });
        return *command;
    }
    CLI::App& AddOneWord(const std::string& name, const char* text) {
        return Add(name.c_str(), text, [name] { return std::vector<std::string>{name}; });
    }

    void AddQuestions() {
        AddOneWord("list", "Who is there, from where, for how long, and what they do");
        AddOneWord("bans", "Who is banned and muted, for how long, and why");
        AddOneWord("health", "Whether the lobby serves; the exit code is 0 if it does");
        AddOneWord("figures", "The lobby's figures in the text format of Prometheus")
            .add_option("--output", given_.output, "File that is replaced by them as a whole");
    }

    void AddActs() {
        for (const char* name : {"ban", "mute"}) {
            CLI::App& command = Add(
                name, name == std::string("ban") ? "Put out, and keep out" : "Pass on no chat", [this, name] {
                    return std::vector<std::string>{name, given_.whom, given_.duration, given_.reason};
                });
            AddWhom(command);
            command.add_option("--for", given_.duration,
                               "How long, such as 90s, 10m, 2h, 7d or 4w; else until lifted");
            AddReason(command);
        }
        for (const std::string name : {"unban", "unmute"})
            AddWhom(Add(name.c_str(), "Lift it", [this, name] {
                return std::vector<std::string>{name, given_.whom};
            }));
        CLI::App& kick = Add("kick", "Put out; they may come back at once", [this] {
            return std::vector<std::string>{"kick", given_.whom, given_.reason};
        });
        AddWhom(kick);
        AddReason(kick);
        Add("broadcast", "Show a notice to all users",
            [this] {
                return std::vector<std::string>{"broadcast", given_.text};
            })
            .add_option("text", given_.text, "The notice")
            ->required();
    }

    void AddWhom(CLI::App& command) {
        command.add_option("whom", given_.whom, "A nickname, an address, or a range such as 192.0.2.0/24")
            ->required();
    }
    void AddReason(CLI::App& command) {
        command.add_option("--reason", given_.reason, "Shown to those whom it meets, and kept");
    }

    Given given_;
    CLI::App app_{"Tells a running tarveth-lobby what to do", "tarveth-lobby-ctl"};
};

int Run(const Given& given) {
    const ControlAnswer answer = AskLobby(given.socket, given.request, given.seconds);
    if (!answer.done)
        std::cerr << answer.text;
    else if (given.output.empty())
        std::cout << answer.text;
    else
        platform::WriteFileAtomically(given.output, answer.text);
    return answer.done ? 0 : 1;
}

} // namespace

} // namespace tarveth

int main(int count, char** arguments) {
    try {
        tarveth::Parser parser;
        CLI11_PARSE(parser.App(), count, arguments);
        return tarveth::Run(parser.Words());
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
