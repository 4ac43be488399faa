// Programs that are killed while random games are played: what the next start offers is whole, and at most
// the last turn behind.
#include "engine/rules/atrest.h"
#include "storage/modFileIO.h"
#include "tests/Dice.h"
#include "tests/PickTurn.h"
#include "tests/platform/ForkedChild.h"
#include "tests/storage/KeeperTable.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include <sys/mman.h>

namespace tarveth::test {
namespace {

std::size_t Mark(const Game& game) {
    return std::hash<std::string>()(GameText(AtRest(game), ""));
}

// What the player knows to have played, in memory that outlives the kill. Position 0 of a game is the one
// that it was taken up with.
struct Played {
    static constexpr int kMost = 20'000;
    std::atomic<int> turns = 0; // of the game under way, whose ends have been told to the keeper
    std::atomic<bool> over = true;
    std::atomic<int> total = 0; // of all games
    std::atomic<int> known = 0; // positions, one more than turns while the keeper is being told
    std::array<std::size_t, kMost> positions = {};
};

// Stands between the machine and the keeper, and notes what the keeper is told.
class NotingWatch : public GameWatch {
public:
    NotingWatch(KeeperTable& table, Played& played) : table_(table), played_(played) {
        table.record.Watch = this;
    }
    void LineAdded() override { table_.keeper.LineAdded(); }
    void TurnEnded() override {
        Note(played_.turns + 1);
        table_.keeper.TurnEnded();
        ++played_.turns;
        ++played_.total;
    }
    void GameEnded() override {
        played_.over = true;
        table_.keeper.GameEnded();
    }
    void GameGivesWay() override {
        played_.over = true;
        table_.keeper.GameGivesWay();
    }
    void BeginGame() {
        played_.turns = 0;
        Note(0);
        played_.over = false;
    }

private:
    void Note(int turn) {
        played_.positions.at(static_cast<std::size_t>(turn)) = Mark(table_.game);
        played_.known = turn + 1;
    }

    KeeperTable& table_;
    Played& played_;
};

// Goes on with the game that is offered, then plays random games, some of which are replaced by new ones
// before they are over. Never returns.
[[noreturn]] void PlayForEver(const std::string& folder, std::uint64_t seed, Played& played) {
    Dice dice(seed);
    KeeperTable t(folder);
    NotingWatch watch(t, played);
    if (!t.bar.line.choices.empty())
        t.keeper.Choose(t.bar.line.choices.front());
    for (;;) {
        watch.BeginGame();
        while (t.game.GameState != kGameOver && !dice.Percent(1))
            t.PlayTurn(PickTurn(t.game, dice));
        t.main.NewGame();
    }
}

Played& SharedMemory() {
    void* memory = mmap(nullptr, sizeof(Played), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    EXPECT_NE(memory, MAP_FAILED);
    return *new (memory) Played; // for as long as the test runs
}

// Plays in a child and kills it that time after its so-many-th turn.
void PlayAndKill(const TempFolder& folder, std::uint64_t seed, Played& played, int turns,
                 std::chrono::microseconds time) {
    const pid_t child = fork();
    if (child == 0)
        PlayForEver(folder.Name(), seed, played);
    while (played.total < turns) // the child cannot end
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    std::this_thread::sleep_for(time);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

// Whether one of the games is the one that was played, at most its last turn behind.
bool HoldsThePlayedGame(const std::vector<KeptGame>& games, const Played& played) {
    const int turns = played.turns;
    for (const KeptGame& kept : games)
        for (int turn = std::max(turns - 1, 0); turn < played.known; ++turn)
            if (Mark(kept.game) == played.positions.at(static_cast<std::size_t>(turn)))
                return true;
    return false;
}

TEST(KilledPrograms, LeaveTheGameAtMostItsLastTurnBehind500Times) {
    const TempFolder folder;
    Played& played = SharedMemory();
    Dice dice(500);
    int middles = 0;
    for (int kills = 0; kills < 500; ++kills) {
        new (&played) Played;
        PlayAndKill(folder, static_cast<std::uint64_t>(kills), played, dice.Below(5),
                    std::chrono::microseconds(dice.Below(2'000)));
        std::vector<KeptGame> kept;
        for (const std::string& file : FilesIn(folder.Name(), "unfinished"))
            kept.push_back(ReadKeptGame(file)); // throws for one that is broken
        // The first turn of a new game need not be kept yet.
        if (!played.over && played.turns >= 2) {
            ++middles;
            ASSERT_TRUE(HoldsThePlayedGame(kept, played))
                << "kill " << kills << ", after turn " << played.turns << ", " << kept.size() << " games";
        }
    }
    for (const std::string& file : FilesIn(folder.Name(), "games"))
        ReadGame(file);
    EXPECT_GT(middles, 100) << "most kills have to come in the middle of a game";
}

} // namespace
} // namespace tarveth::test
