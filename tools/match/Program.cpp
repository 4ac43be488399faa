// Another program that obeys the line protocol, over a pair of pipes.
#include "computer/positionline.h"
#include "tools/match/MatchPlayer.h"

#include <csignal>
#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace tarveth::match {

namespace {

using computer::GameRecord;
using computer::SearchTurn;

class Program : public MatchPlayer {
public:
    Program(const std::string& command, const Pace& pace) : command_(command), pace_(pace) {
        std::signal(SIGPIPE, SIG_IGN); // a program that has ended shows when it is read from
        int toChild[2];
        int fromChild[2];
        if (pipe(toChild) != 0 || pipe(fromChild) != 0)
            throw std::runtime_error("no pipe");
        child_ = fork();
        if (child_ == 0) {
            dup2(toChild[0], STDIN_FILENO);
            dup2(fromChild[1], STDOUT_FILENO);
            for (const int end : {toChild[0], toChild[1], fromChild[0], fromChild[1]})
                close(end);
            execl("/bin/sh", "sh", "-c", command_.c_str(), nullptr);
            _exit(127);
        }
        close(toChild[0]);
        close(fromChild[1]);
        in_ = fdopen(toChild[1], "w");
        out_ = fdopen(fromChild[0], "r");
    }

    ~Program() override {
        Tell("quit");
        std::fclose(in_);
        std::fclose(out_);
        waitpid(child_, nullptr, 0);
    }

    void BeginGame(const GameRecord& start, std::uint64_t seed) override {
        Ask("seed " + std::to_string(seed), {"ok", "error"}); // not every program knows it
        if (pace_.nodes != 0)
            Ask("nodes " + std::to_string(pace_.nodes), {"ok", "error"});
        Ask("position " + computer::WritePosition(start.Rules()), {"ok"});
    }

    void Played(SearchTurn turn) override { Ask("turn " + computer::WriteTurn(turn), {"ok"}); }

    SearchTurn Choose(const GameRecord& game) override {
        std::istringstream words(Ask("go " + std::to_string(pace_.milliseconds), {"bestturn"}));
        std::string word;
        std::string turn;
        words >> word >> turn;
        while (words >> word) {
            if (std::uint64_t number = 0; word == "depth" && words >> number)
                effort.depths += number;
            else if (word == "nodes" && words >> number)
                effort.nodes += number;
        }
        const SearchTurn found = computer::FindTurn(game.Rules(), turn);
        if (found.IsNone() && turn != "none")
            throw std::runtime_error(command_ + " played " + turn + ", which is not legal");
        return found;
    }

private:
    void Tell(const std::string& line) {
        std::fputs((line + "\n").c_str(), in_);
        std::fflush(in_);
    }

    // The first line that begins with one of the expected words; others are skipped.
    std::string Ask(const std::string& line, std::initializer_list<std::string_view> expected) {
        Tell(line);
        std::string answer;
        for (int c = std::fgetc(out_); c != EOF; c = std::fgetc(out_)) {
            if (c != '\n') {
                answer += static_cast<char>(c);
                continue;
            }
            for (const std::string_view word : expected)
                if (answer.starts_with(word))
                    return answer;
            if (answer.starts_with("illegal"))
                throw std::runtime_error(std::string(command_)
                                             .append(" answered \"")
                                             .append(answer)
                                             .append("\" to \"")
                                             .append(line)
                                             .append("\""));
            answer.clear();
        }
        throw std::runtime_error(command_ + " has ended");
    }

    std::string command_;
    Pace pace_;
    pid_t child_ = 0;
    std::FILE* in_ = nullptr;
    std::FILE* out_ = nullptr;
};

} // namespace

std::unique_ptr<MatchPlayer> MakeProgram(const std::string& command, const Pace& pace) {
    return std::make_unique<Program>(command, pace);
}

} // namespace tarveth::match
