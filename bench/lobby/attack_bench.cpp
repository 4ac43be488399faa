#include "bench/lobby/attack_bench.h"

#include "bench/lobby/Attackers.h"
#include "bench/lobby/Crowd.h"
#include "bench/lobby/ServerProcess.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>

namespace tarveth {

namespace {

constexpr std::size_t kPlayers = 1000;
constexpr std::size_t kPlayersOfAnAddress = 4;
constexpr double kMovesPerSecond = 1000;   // one a player
constexpr std::uint64_t kMovesALine = 100; // of chat, which all players hear
constexpr double kSeconds = 4;
constexpr double kSettleSeconds = 1; // in which the lobby is rid of those who attacked last
constexpr int kRounds = 3;
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

// Play and talk at human speed. A move takes from its sending until the system of its receiver has it: how
// long the receiver, one of a thousand on one thread, takes to read it does not count.
class Players {
public:
    Players(int port) : crowd_(port, kPlayers, kPlayersOfAnAddress), lines_(kPlayers) {
        crowd_.Join();
        crowd_.Pair();
        crowd_.StampArrivals();
    }

    // Gives the 99th percentile of the milliseconds that a move takes.

    double Play(double seconds) {
        times_.clear();
        const double start = SecondsNow();
        for (std::uint64_t sent = 0; SecondsNow() - start < seconds;) {
            for (; static_cast<double>(sent) < (SecondsNow() - start) * kMovesPerSecond; ++sent)
                SendNext();
            Serve(1);
        }
        for (const double end = SecondsNow() + kSeconds; Missing() > 0 && SecondsNow() < end;)
            Serve(10);
        std::ranges::sort(times_);
        return times_.empty() ? 0 : times_[times_.size() * 99 / 100] / 1e3;
    }

    // Moves and lines that have not come.
    std::uint64_t Missing() const { return sent_ - heard_ + said_ * kPlayers - linesHeard_; }
    // Moves and lines that have come doubled or out of order.
    std::uint64_t Faults() const { return crowd_.Faults() + faults_; }

private:
    // The system stamps arrivals with this clock.
    static std::uint64_t Microseconds() {
        const auto time = std::chrono::system_clock::now().time_since_epoch();
        return static_cast<std::uint64_t>(
            std::chrono::duration_cast<std::chrono::microseconds>(time).count());
    }

    void SendNext() {
        const std::size_t member = sent_ * 7 % kPlayers;
        std::string text;
        crowd_.AppendMove(text, member, Microseconds());
        crowd_.Send(member, text);
        if (sent_++ % kMovesALine == 0)
            SayNext();
    }

    // Each line is another player's, so that all stay far below their limits.
    void SayNext() {
        const std::size_t speaker = said_ * 97 % kPlayers;
        crowd_.Send(speaker, std::string(kLine) + std::to_string(said_++) + "\r\n");
    }

    void Serve(int milliseconds) {
        constexpr std::size_t kMost = 16;
        crowd_.Serve(
            milliseconds, [this](std::size_t member, std::string_view bytes) { return Hear(member, bytes); },
            kMost);
    }

    // Takes moves and lines, and passes over everything else. Gives the bytes of what is complete.
    std::size_t Hear(std::size_t member, std::string_view bytes) {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const std::size_t length = LengthOfFirst(bytes.substr(done));
            if (length == 0)
                break;
            const std::string_view one = bytes.substr(done, length);
            if (one.starts_with("\251play("))
                crowd_.TakeMoves(member, one, [this](std::uint64_t time) {
                    times_.push_back(static_cast<double>(crowd_.Arrival()) - static_cast<double>(time));
                    ++heard_;
                });
            else if (const std::size_t text = one.find(kLine); text != std::string_view::npos)
                HearLine(member, one.substr(text + kLine.size()));
            done += length;
        }
        return done;
    }

    void HearLine(std::size_t member, std::string_view number) {
        std::uint64_t line = 0;
        std::from_chars(number.data(), number.data() + number.size(), line);
        faults_ += line == lines_[member]++ ? 0 : 1;
        ++linesHeard_;
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

    static constexpr std::string_view kLine = "My line ";

    Crowd crowd_;
    std::vector<double> times_;
    std::vector<std::uint64_t> lines_; // that each member has heard
    std::uint64_t sent_ = 0;
    std::uint64_t heard_ = 0;
    std::uint64_t said_ = 0;
    std::uint64_t linesHeard_ = 0;
    std::uint64_t faults_ = 0;
};

// What one attack did in one round.
struct Effect {
    double quiet = 0;     // 99th percentile before it, in milliseconds
    double attacked = 0;  // the same during it
    double memory = 0;    // of the lobby, in MiB
    double processor = 0; // of the lobby, in cores

    double Ratio() const { return attacked / quiet; }
};

Effect Measure(const ServerProcess& server, Players& players, const Attack& attack, unsigned network) {
    Effect effect;
    players.Play(kSettleSeconds);
    effect.quiet = players.Play(kSeconds);
    const double used = server.ProcessorSeconds();
    const double start = SecondsNow();
    const Attackers attackers(server.Port(), attack, network);
    effect.attacked = players.Play(kSeconds);
    effect.memory = server.MemoryBytes() / kMiB;
    effect.processor = (server.ProcessorSeconds() - used) / (SecondsNow() - start);
    return effect;
}

} // namespace

void MeasureAttacks(const std::string& lobby) {
    const ServerProcess server({lobby, "--port", "0"});
    Players players(server.Port());
    double largest = 0;
    unsigned network = 0;
    for (const Attack& attack : Attacks()) {
        std::vector<Effect> rounds;
        rounds.reserve(kRounds);
        for (int round = 0; round < kRounds; ++round)
            rounds.push_back(Measure(server, players, attack, network++));
        std::ranges::sort(rounds, {}, &Effect::Ratio);
        const Effect& median = rounds[kRounds / 2];
        std::printf(
            "%-40s %5.2f ms, quiet %5.2f ms, ratio %5.2f, %.2f to %.2f (bar 2); %5.1f MiB (bar %.0f); "
            "%3.0f %% of a core\n",
            attack.name.c_str(), median.attacked, median.quiet, median.Ratio(), rounds.front().Ratio(),
            rounds.back().Ratio(), std::ranges::max(rounds, {}, &Effect::memory).memory, kMemoryLimit,
            100 * median.processor);
        std::fflush(stdout);
        largest = std::max(largest, rounds.back().Ratio());
    }
    std::printf(
        "50 attacking addresses, 99th percentile of a move: largest ratio %.2f; %llu lost, %llu doubled "
        "or out of order; %s\n",
        largest, static_cast<unsigned long long>(players.Missing()),
        static_cast<unsigned long long>(players.Faults()), server.Figures().c_str());
}

} // namespace tarveth
