// A game whose opponent's messages come from the test, which can also read what is sent to that opponent.
#pragma once

#include "net/modTools.h"
#include "tests/TestGame.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarveth::test {

using Strings = std::vector<std::string>;

// An opponent's program that writes down what it is told, in the same lists as the windows.
class RecordingOpponent : public OpponentPort {
public:
    explicit RecordingOpponent(RecordingPort& port) : port_(port) {}

    Strings privateLines;

    void SendGameMessage(std::string_view inner) override { port_.SendGameMessage(inner); }
    void ShowNotice(std::string_view text) override { port_.ShowNotice(text); }
    std::string OpponentNick() const override { return "Bob"; }
    void ShowPrivateLine(std::string_view text) override { privateLines.emplace_back(text); }

private:
    RecordingPort& port_;
};

struct ToolsGame : TestGame {
    RecordingOpponent opponent{port};
    modTools tools{game, net, main, port, opponent};

    ToolsGame() { net.NetConnected = net.InGame = true; }
    explicit ToolsGame(std::string_view position) : ToolsGame() { SetPosition(game, position); }

    // Messages that arrive in one text, and every pass that follows.
    void Receive(std::string_view text) {
        Parse(text);
        Settle();
    }
    // The same without the passes.
    void Parse(std::string_view text) {
        main.RunWhenFree([&] { tools.ParseGameMessages(text); });
    }
    // The messages in texts of their own, with the passes that each gives.
    void Receive(const Strings& messages) {
        for (const std::string& message : messages)
            Receive(message);
    }
    Strings BoardSent() {
        port.sent.clear();
        tools.SendBoard();
        return std::exchange(port.sent, {});
    }
};

inline std::string Join(const Strings& messages) {
    std::string text;
    for (const std::string& message : messages)
        text += message;
    return text;
}

inline const std::string kNotUnderstood =
    "The opponent's program sent a message that is not understood; it is ignored.";

} // namespace tarveth::test
