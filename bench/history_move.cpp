// What a turn costs the running game with a history of 10,000 lines shown beside the board, against one that
// just fills its list and against none: processor time from the two clicks until the program rests, its line
// added, selected and painted. The same turns in all, round by round, so that whatever else the machine does
// falls on all alike.

#include "engine/rules/turns.h"
#include "storage/modFileIO.h"
#include "tests/Dice.h"
#include "tests/TestGame.h"
#include "tests/window/Desktop.h"
#include "tests/window/GameDesk.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using tarveth::CompleteTurn;
using namespace tarveth::harness;

constexpr std::size_t kNone = 0;
constexpr std::size_t kFullList = 40; // more than are in view, so that it scrolls from the first turn on
constexpr std::size_t kLongHistory = 10'000;
constexpr int kRounds = 5;
constexpr int kTurns = 30; // in a round
constexpr const char* kIni = "[Options]\r\nHistory=-1\r\nAnimateMoves=0\r\n";

using Turn = std::pair<tarveth::Square, tarveth::Square>; // from the one to the other

// Turns that take nothing, from the first position on.
std::vector<Turn> QuietTurns(int round) {
    tarveth::test::TestGame played;
    tarveth::test::Dice dice(static_cast<std::uint64_t>(round));
    std::vector<Turn> turns;
    for (int i = 0; i < kTurns; ++i) {
        std::vector<CompleteTurn> quiet = tarveth::ListTurns(played.game);
        std::erase_if(quiet, [](const CompleteTurn& turn) { return turn.captured != 0; });
        const CompleteTurn& turn = dice.OneOf(quiet);
        turns.emplace_back(turn.from, turn.to);
        for (const tarveth::Square square : {turn.from, turn.to}) {
            played.main.DepositSquare(square);
            played.Settle();
        }
    }
    return turns;
}

// Where the squares are, as a screen reader is told. The programs that are measured have none.
std::vector<Point> SquareCentres() {
    const GameFolder folder(kIni);
    const GameDesk desk(folder);
    std::vector<Point> centres;
    for (const char row : std::string("ABCDEFGH")) {
        for (const char column : std::string("12345678")) {
            const Point onScreen = desk.SquareArea(std::string{column, row}).Centre();
            const Rect window = desk.window.ClientArea();
            centres.push_back({onScreen.x - window.x, onScreen.y - window.y});
        }
    }
    return centres;
}

// The running game, with so many lines of history before the first turn.
class Running {
public:
    Running(std::size_t lines, const std::vector<Point>& centres)
        : lines_(lines),
          centres_(centres),
          folder_(kIni),
          desk_(WithGame(folder_, lines), Options(folder_)) {}

    // Milliseconds of processor time.
    double CostOf(const Turn& turn) {
        const double before = Used();
        Click(turn.first);
        Click(turn.second);
        desk_.WaitUntilAtRest();
        return Used() - before;
    }

    // Throws std::runtime_error when the game in the window has not had so many turns.
    void CheckTurns(std::size_t turns) {
        desk_.Choose("F", "s");
        desk_.WaitUntilAtRest();
        const std::size_t lines = tarveth::ReadGame(GameIn(folder_)).lstHistory.size();
        if (lines != lines_ + turns)
            throw std::runtime_error("the game has " + std::to_string(lines) + " lines");
    }

private:
    static std::string GameIn(const GameFolder& folder) { return (folder.Path() / "game.tsg").string(); }

    static const GameFolder& WithGame(const GameFolder& folder, std::size_t lines) {
        tarveth::test::TestGame begun;
        begun.game.lstHistory.assign(lines, "R:RO 4C-4D cBP");
        tarveth::WriteGame(begun.game, "bench", GameIn(folder));
        return folder;
    }

    static GameDeskOptions Options(const GameFolder& folder) {
        return {.arguments = {GameIn(folder)}, .environment = {{"NO_AT_BRIDGE", "1"}}};
    }

    void Click(tarveth::Square square) {
        const auto index =
            static_cast<std::size_t>((square.row - 1) * tarveth::kBoardSize + square.column - 1);
        const Rect window = desk_.window.ClientArea();
        const Point inWindow = centres_.at(index);
        desk_.screen.Click({window.x + inWindow.x, window.y + inWindow.y});
    }

    // By its only busy thread, in milliseconds.
    double Used() const {
        std::ifstream file("/proc/" + std::to_string(desk_.program.Pid()) + "/schedstat");
        double nanoseconds = 0;
        file >> nanoseconds;
        return nanoseconds / 1e6;
    }

    std::size_t lines_;
    const std::vector<Point>& centres_;
    GameFolder folder_;
    GameDesk desk_;
};

double Middle(std::vector<double>& costs) {
    std::sort(costs.begin(), costs.end());
    return costs[costs.size() / 2];
}

// The costs of these turns after so many lines.
std::vector<double> CostsAfter(std::size_t lines, const std::vector<Turn>& turns,
                               const std::vector<Point>& centres) {
    Running game(lines, centres);
    std::vector<double> costs;
    costs.reserve(turns.size());
    for (const Turn& turn : turns)
        costs.push_back(game.CostOf(turn));
    game.CheckTurns(turns.size());
    return costs;
}

void Measure() {
    const std::vector<Point> centres = SquareCentres();
    std::map<std::size_t, std::vector<double>> costs; // by the lines before
    for (int round = 0; round < kRounds; ++round) {
        const std::vector<Turn> turns = QuietTurns(round);
        for (const std::size_t lines : {kNone, kFullList, kLongHistory}) {
            const std::vector<double> more = CostsAfter(lines, turns, centres);
            costs[lines].insert(costs[lines].end(), more.begin(), more.end());
        }
    }
    const double longHistory = Middle(costs[kLongHistory]);
    std::printf("a turn after 10,000 lines: %.2f ms\n", longHistory);
    for (const std::size_t lines : {kFullList, kNone}) {
        const double other = Middle(costs[lines]);
        std::printf("a turn after %zu lines: %.2f ms, ratio %.2f\n", lines, other, longHistory / other);
    }
}

} // namespace

int main() {
    try {
        const Desktop desktop;
        Measure();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
