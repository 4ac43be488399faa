// What whoever runs the lobby can ask of it: who is there, who is put out, muted or banned, a word to all,
// and the figures. Requests and answers are UTF-8.
#pragma once

#include "server/Lobby.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarveth {

class Operator {
public:
    struct Answer {
        bool done = true;
        std::string text;
    };
    using Words = std::vector<std::string>;
    // Is told of each act that changes something, for the log.
    using Log = std::function<void(const std::string&)>;

    // bansFile: keeps bans and mutes; empty for none, and they end with the lobby. Reads it; throws
    // platform::FileError.
    Operator(Lobby& lobby, std::string bansFile, Log log);

    // Reads the bans file again, and puts out who is banned by it. Throws platform::FileError, and then
    // nothing has changed.
    void Reload(const std::string& bansFile, Time now);

    // Does what the words ask for: the name of a command and its arguments.
    Answer Do(const Words& words, Time now);

private:
    struct Command {
        const char* name;
        std::size_t arguments;
        Answer (Operator::*handle)(const Words&);
    };
    static const std::vector<Command>& Commands();

    Answer List(const Words& words);
    Answer Kick(const Words& words);
    Answer Ban(const Words& words) { return Decide(Sanction::Kind::Ban, words); }
    Answer Mute(const Words& words) { return Decide(Sanction::Kind::Mute, words); }
    Answer Unban(const Words& words) { return Lift(Sanction::Kind::Ban, words); }
    Answer Unmute(const Words& words) { return Lift(Sanction::Kind::Mute, words); }
    Answer ListSanctions(const Words& words);
    Answer Broadcast(const Words& words);
    Answer TellFigures(const Words& words);
    Answer TellHealth(const Words& words);

    Answer Decide(Sanction::Kind kind, const Words& words);
    Answer Lift(Sanction::Kind kind, const Words& words);
    std::optional<std::string> ReadAgain();
    Answer Keep(const std::string& text);
    Target FullTarget(const std::string& whom) const;
    std::vector<Session*> Meant(const Target& target) const;
    std::size_t PutOutBanned();

    Lobby& lobby_;
    std::string bansFile_;
    Log log_;
};

} // namespace tarveth
