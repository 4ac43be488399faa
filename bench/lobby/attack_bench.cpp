#include "bench/lobby/attack_bench.h"

#include "bench/lobby/Attackers.h"
#include "bench/lobby/Crowd.h"
#include "bench/lobby/ServerProcess.h"

#include <algorithm>
#include <cstdio>
#include <memory>

namespace tarveth {

namespace {

constexpr std::size_t kPlayers = 1000;
constexpr std::size_t kPlayersOfAnAddress = 4;
constexpr double kMovesPerSecond = 1000; // one a player
constexpr double kSeconds = 4;
constexpr double kMemoryLimit = 256; // MiB, the lobby's default
constexpr double kMiB = 1 << 20;

const std::string kHandshake = "\251clientver(2.6.4)\251nick(Attacker %)\251sendnicks()";

std::vector<Attack> Attacks() {
    std::string chat;
    std::string garbage;
    for (int i = 0; i < 20; ++i)
        chat += "I am everywhere, line " + std::to_string(i) + "\r\n";
    for (int i = 0; i < 65536; ++i)
        garbage += static_cast<char>(i * 7919 >> 3);
    return {
        {"chat, connecting again and again", kHandshake, chat, 1},
        {"invitations of one player", kHandshake, "\251invite(P00000,x)\251end(P00000,x)", 20},
        {"renames", kHandshake, "\251nick(This and that)\251nick(That and this)", 20},
        {"garbage", "", garbage},
        {"a message that never ends", "\251play(x,", std::string(65536, '(')},
        {"readers of nothing who ask for the list", kHandshake, "\251sendnicks()", 0, false},
        {"arrivals", "", "\251clientver(2.6.4)", 1},
        {"silence", "", ""},
        {"names of others", "\251clientver(2.6.4)\251nick(P00000)\251sendnicks()", "\251nick(P00001)", 20},
    };
}

// Plays at human speed, and gives the 99th percentile of the milliseconds that a move takes.
class Players {
public:
    Players(int port) : crowd_(port, kPlayers, kPlayersOfAnAddress) {
        crowd_.Join();
        crowd_.Pair();
    }

    double Play(double seconds) {
        times_.clear();
        const double start = SecondsNow();
        for (std::uint64_t sent = 0; SecondsNow() - start < seconds;) {
            for (; static_cast<double>(sent) < (SecondsNow() - start) * kMovesPerSecond; ++sent) {
                const std::size_t member = next_++ * 7 % kPlayers;
                std::string move;
                crowd_.AppendMove(move, member, Microseconds());
                crowd_.Send(member, move);
                ++sent_;
            }
            Serve(1);
        }
        for (const double end = SecondsNow() + kSeconds; heard_ < sent_ && SecondsNow() < end;)
            Serve(10);
        std::ranges::sort(times_);
        return times_.empty() ? 0 : times_[times_.size() * 99 / 100] / 1e3;
    }

    std::uint64_t Missing() const { return sent_ - heard_; }
    std::uint64_t Faults() const { return crowd_.Faults(); }

private:
    static std::uint64_t Microseconds() { return static_cast<std::uint64_t>(SecondsNow() * 1e6); }

    void Serve(int milliseconds) {
        crowd_.Serve(milliseconds,
                     [this](std::size_t member, std::string_view bytes) { return Hear(member, bytes); });
    }

    // Takes the moves, and passes over everything else. Gives the bytes of what is complete.
    std::size_t Hear(std::size_t member, std::string_view bytes) {
        const std::uint64_t now = Microseconds();
        std::size_t done = 0;
        while (done < bytes.size()) {
            const std::size_t length = LengthOfFirst(bytes.substr(done));
            if (length == 0)
                break;
            if (const std::string_view one = bytes.substr(done, length); one.starts_with("\251play("))
                crowd_.TakeMoves(member, one, [this, now](std::uint64_t time) {
                    times_.push_back(static_cast<double>(now - time));
                    ++heard_;
                });
            done += length;
        }
        return done;
    }

    // The length of the first message or line; 0 if it is not complete.
    static std::size_t LengthOfFirst(std::string_view bytes) {
        if (bytes.front() != '\251')
            return bytes.find('\n') + 1;
        int open = 0;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            open += bytes[i] == '(' ? 1 : bytes[i] == ')' ? -1 : 0;
            if (bytes[i] == ')' && open == 0)
                return i + 1;
        }
        return 0;
    }

    Crowd crowd_;
    std::vector<double> times_;
    std::uint64_t next_ = 0;
    std::uint64_t sent_ = 0;
    std::uint64_t heard_ = 0;
};

} // namespace

void MeasureAttacks(const std::string& lobby) {
    const ServerProcess server({lobby, "--port", "0"});
    Players players(server.Port());
    std::vector<double> ratios;
    unsigned network = 0;
    for (const Attack& attack : Attacks()) {
        const double quiet = players.Play(kSeconds);
        const double used = server.ProcessorSeconds();
        const double start = SecondsNow();
        double attacked = 0;
        double memory = 0;
        {
            const Attackers attackers(server.Port(), attack, network++);
            attacked = players.Play(kSeconds);
            memory = server.MemoryBytes() / kMiB;
        }
        ratios.push_back(attacked / quiet);
        std::printf(
            "%-42s 99th percentile %7.2f ms, quiet %7.2f ms, ratio %5.2f (bar 2); %5.1f MiB (bar %.0f); "
            "%3.0f %% of a core; %llu lost, %llu faults\n",
            attack.name.c_str(), attacked, quiet, ratios.back(), memory, kMemoryLimit,
            100 * (server.ProcessorSeconds() - used) / (SecondsNow() - start),
            static_cast<unsigned long long>(players.Missing()),
            static_cast<unsigned long long>(players.Faults()));
    }
    std::ranges::sort(ratios);
    std::printf("50 attacking addresses: median ratio %.2f, largest %.2f; %s\n", ratios[ratios.size() / 2],
                ratios.back(), server.Figures().c_str());
}

} // namespace tarveth
