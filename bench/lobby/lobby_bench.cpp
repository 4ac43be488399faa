// lobby_bench [name...] measures the lobby and the relay in turns, and prints each figure, the ratio, and its
// bar.
#include "bench/lobby/Crowd.h"
#include "bench/lobby/ServerProcess.h"
#include "bench/lobby/attack_bench.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <exception>
#include <map>

#include <sys/resource.h>
#include <unistd.h>

namespace tarveth {

namespace {

constexpr int kRounds = 3;
constexpr double kRoundSeconds = 2;
// A percentile needs more and shorter rounds, because other work of the computer spoils whole rounds.
constexpr int kLoadRounds = 15;
constexpr double kLoadSeconds = 0.7;
constexpr std::size_t kPlayers = 1000;

const std::vector<std::string> kRelay = {LOBBY_RELAY};
const std::vector<std::string> kLobby = {LOBBY_PROGRAM, "--port", "0", "--exempt-loopback"};

std::vector<std::string> WithoutRates() {
    std::vector<std::string> command = kLobby;
    for (const char* option : {"--chat-lines=0", "--chat-characters=0", "--messages=0", "--moves=0",
                               "--invitations=0", "--useless-bytes=0"})
        command.emplace_back(option);
    return command;
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void CheckFaults(const Crowd& crowd) {
    if (crowd.Faults() > 0)
        std::printf("  %llu messages were lost, doubled or out of order\n",
                    static_cast<unsigned long long>(crowd.Faults()));
}

struct Figure {
    const char* what;
    const char* bar;
};

// Measures both servers in turns, in alternating order, so that other work of the computer affects both
// alike. Prints the median of each and of the ratios. measure gives one value for each figure.
template <class Measure>
void Compare(const std::vector<Figure>& figures, Measure measure, int rounds = kRounds) {
    std::vector<std::vector<double>> lobby(figures.size());
    auto relay = lobby;
    auto ratios = lobby;
    for (int round = 0; round < rounds; ++round) {
        std::vector<double> ours;
        if (round % 2 == 0)
            ours = measure(WithoutRates());
        const std::vector<double> least = measure(kRelay);
        if (round % 2 != 0)
            ours = measure(WithoutRates());
        for (std::size_t i = 0; i < figures.size(); ++i) {
            lobby[i].push_back(ours[i]);
            relay[i].push_back(least[i]);
            ratios[i].push_back(ours[i] / least[i]);
        }
    }
    for (std::size_t i = 0; i < figures.size(); ++i)
        std::printf("%-50s lobby %10.6g  relay %10.6g  ratio %.2f, %.2f to %.2f (bar %s)\n", figures[i].what,
                    Median(lobby[i]), Median(relay[i]), Median(ratios[i]), std::ranges::min(ratios[i]),
                    std::ranges::max(ratios[i]), figures[i].bar);
}

// Every player answers each move with a move; inFlight moves are under way in each game.
double MovesPerSecond(const std::vector<std::string>& command, int inFlight) {
    const ServerProcess server(command);
    Crowd crowd(server.Port(), kPlayers);
    crowd.Join();
    crowd.Pair();
    std::uint64_t moves = 0;
    std::string answer;
    const Crowd::Hear hear = [&](std::size_t member, std::string_view bytes) {
        answer.clear();
        const std::size_t done = crowd.TakeMoves(member, bytes, [&](std::uint64_t) {
            ++moves;
            crowd.AppendMove(answer, member, 0);
        });
        crowd.Send(member, answer);
        return done;
    };
    for (std::size_t i = 0; i < kPlayers; i += 2) {
        std::string opening;
        for (int n = 0; n < inFlight; ++n)
            crowd.AppendMove(opening, i, 0);
        crowd.Send(i, opening);
    }
    for (const double start = SecondsNow(); SecondsNow() - start < kRoundSeconds / 4;)
        crowd.Serve(100, hear);
    const std::uint64_t before = moves;
    const double start = SecondsNow();
    while (SecondsNow() - start < kRoundSeconds)
        crowd.Serve(100, hear);
    const double seconds = SecondsNow() - start;
    CheckFaults(crowd);
    return static_cast<double>(moves - before) / seconds;
}

// Gives the 99th percentile of the microseconds that a move takes, and the processor's microseconds for a
// move.
std::vector<double> OfferedLoad(const std::vector<std::string>& command) {
    constexpr double kPerSecond = 20000;
    const ServerProcess server(command);
    Crowd crowd(server.Port(), kPlayers);
    crowd.Join();
    crowd.Pair();
    std::vector<double> times;
    const auto microseconds = [] { return static_cast<std::uint64_t>(SecondsNow() * 1e6); };
    const Crowd::Hear hear = [&](std::size_t member, std::string_view bytes) {
        const std::uint64_t now = microseconds();
        return crowd.TakeMoves(member, bytes,
                               [&](std::uint64_t time) { times.push_back(static_cast<double>(now - time)); });
    };
    const double used = server.ProcessorSeconds();
    const double start = SecondsNow();
    std::string move;
    for (std::uint64_t sent = 0; SecondsNow() - start < kLoadSeconds;) {
        for (; static_cast<double>(sent) < (SecondsNow() - start) * kPerSecond; ++sent) {
            const std::size_t member = static_cast<std::size_t>(sent * 7919) % kPlayers;
            move.clear();
            crowd.AppendMove(move, member, microseconds());
            crowd.Send(member, move);
        }
        crowd.Serve(0, hear);
    }
    for (double quiet = SecondsNow(); SecondsNow() - quiet < 0.2;)
        crowd.Serve(50, hear);
    CheckFaults(crowd);
    std::ranges::sort(times);
    return {times[times.size() * 99 / 100],
            (server.ProcessorSeconds() - used) * 1e6 / static_cast<double>(times.size())};
}

// One client sends chat lines to all, with a few lines under way.
double DeliveriesPerSecond(const std::vector<std::string>& command) {
    constexpr std::uint64_t kLinesOnTheirWay = 8;
    const ServerProcess server(command);
    Crowd crowd(server.Port(), kPlayers + 1);
    crowd.Join();
    std::uint64_t said = 0;
    std::uint64_t heard = 0;
    std::uint64_t faults = 0;
    const Crowd::Hear hear = [&](std::size_t member, std::string_view bytes) {
        constexpr std::string_view kForm = "P00000: line ";
        std::size_t done = 0;
        for (std::size_t end = 0; (end = bytes.find('\n', done)) != std::string_view::npos; done = end + 1) {
            std::uint32_t number = 0;
            std::from_chars(bytes.data() + done + kForm.size(), bytes.data() + end, number);
            faults += number == crowd.At(member).heard++ ? 0 : 1;
            ++heard;
        }
        return done;
    };
    // This reads what is left of the confirmations of nicknames.
    crowd.Serve(100, [](std::size_t, std::string_view bytes) { return bytes.size(); });
    const double start = SecondsNow();
    while (SecondsNow() - start < kRoundSeconds) {
        for (; said < heard / crowd.Size() + kLinesOnTheirWay; ++said)
            crowd.Send(0, "line " + std::to_string(said) + " of what I have to say\r\n");
        crowd.Serve(100, hear);
    }
    if (faults > 0)
        std::printf("  %llu lines were lost, doubled or out of order\n",
                    static_cast<unsigned long long>(faults));
    return static_cast<double>(heard) / (SecondsNow() - start);
}

double JoinSeconds(const std::vector<std::string>& command, std::size_t size) {
    const ServerProcess server(command);
    Crowd crowd(server.Port(), size);
    const double seconds = crowd.Join();
    CheckFaults(crowd);
    return seconds;
}

void MeasureMoves() {
    Compare({{"500 games, 1 move on its way: moves/s", ">= 0.75"}},
            [](const auto& command) { return std::vector{MovesPerSecond(command, 1)}; });
}

void MeasureBursts() {
    Compare({{"500 games, 32 moves on their way: moves/s", ">= 0.35"}},
            [](const auto& command) { return std::vector{MovesPerSecond(command, 32)}; });
}

void MeasureLoad() {
    Compare({{"20,000 moves/s offered: 99th percentile, us", "<= 1.5"},
             {"20,000 moves/s offered: processor us a move", "<= 1.3"}},
            OfferedLoad, kLoadRounds);
}

void MeasureChat() {
    Compare({{"1 speaker, 1,000 listeners: deliveries/s", ">= 0.7"}},
            [](const auto& command) { return std::vector{DeliveriesPerSecond(command)}; });
}

void MeasureJoins() {
    Compare({{"10,000 users join at once: s", "<= 1.2"}},
            [](const auto& command) { return std::vector{JoinSeconds(command, 10000)}; });
}

void MeasureIdle(std::size_t users) {
    const ServerProcess server(WithoutRates());
    const double empty = server.MemoryBytes();
    Crowd crowd(server.Port(), users);
    crowd.Join();
    const double full = server.MemoryBytes();
    const double used = server.ProcessorSeconds();
    sleep(3);
    std::printf("%zu idle users: %.2f KiB a user beyond the empty server's %.2f MiB (bar 1.5, 8); "
                "%.6f s of processor time in 3 s\n",
                users, (full - empty) / 1024 / static_cast<double>(users), empty / (1 << 20),
                server.ProcessorSeconds() - used);
}

void MeasureStart() {
    std::vector<double> times(21);
    for (double& time : times)
        time = ServerProcess(kLobby).SecondsToListen() * 1e3;
    std::printf("listening %.1f ms after its start, the slowest of 21 %.1f ms (bar 15)\n", Median(times),
                *std::ranges::max_element(times));
}

// Players with a move a second each and a chat line now and then, under the default limits.
void MeasureHumans() {
    const ServerProcess server(kLobby);
    Crowd crowd(server.Port(), kPlayers);
    crowd.Join();
    crowd.Pair();
    std::uint64_t moves = 0;
    const Crowd::Hear hear = [&](std::size_t member, std::string_view bytes) {
        std::size_t done = 0;
        for (std::size_t length = 0; done < bytes.size(); done += length) {
            const bool move = bytes[done] == '\251';
            const std::size_t last = move ? bytes.find("))", done) + 1 : bytes.find('\n', done);
            if (last == 0 || last == std::string_view::npos)
                break;
            length = last + 1 - done;
            if (move)
                crowd.TakeMoves(member, bytes.substr(done, length), [&](std::uint64_t) { ++moves; });
        }
        return done;
    };
    const double start = SecondsNow();
    std::string text;
    for (std::size_t turn = 0; SecondsNow() - start < 8; ++turn) {
        const std::size_t member = turn % kPlayers;
        text.clear();
        crowd.AppendMove(text, member, 0);
        crowd.Send(member, text);
        if (turn % 100 == 0)
            crowd.Send(member, "Good luck\r\n");
        for (const double next = start + static_cast<double>(turn) / kPlayers; SecondsNow() < next;)
            crowd.Serve(1, hear);
    }
    for (double quiet = SecondsNow(); SecondsNow() - quiet < 0.2;)
        crowd.Serve(50, hear);
    CheckFaults(crowd);
    std::printf("500 games at human speed, default limits: %llu moves; %s\n",
                static_cast<unsigned long long>(moves), server.Figures().c_str());
}

} // namespace

} // namespace tarveth

int main(int count, char** arguments) {
    using namespace tarveth;
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
    const std::vector<std::pair<std::string, void (*)()>> benches = {
        {"start", MeasureStart},
        {"moves", MeasureMoves},
        {"bursts", MeasureBursts},
        {"load", MeasureLoad},
        {"chat", MeasureChat},
        {"idle", [] { MeasureIdle(10000); }},
        {"crowd", [] { MeasureIdle(19000); }},
        {"joins", MeasureJoins},
        {"humans", MeasureHumans},
        {"attacks", [] { MeasureAttacks(LOBBY_PROGRAM); }},
    };
    const std::vector<std::string> wanted(arguments + 1, arguments + count);
    try {
        for (const auto& [name, measure] : benches)
            if (wanted.empty() || std::ranges::find(wanted, name) != wanted.end())
                measure();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "lobby_bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
