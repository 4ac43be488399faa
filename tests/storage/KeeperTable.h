// A game with a folder, whose turns are kept aside as in the program. What would come to the window's thread
// later is collected.
#pragma once

#include "engine/rules/turns.h"
#include "storage/gamekeeper.h"
#include "storage/modFileIO.h"
#include "tests/storage/FilesTable.h"

#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth::test {

struct RecordedBar : GameBarPort {
    BarLine line;
    void ShowBar(const BarLine& shown) override { line = shown; }
};

struct KeeperTable {
    std::string folder;
    std::int64_t now = 1'700'000'000;
    Game game;
    NetGame net;
    Settings settings;
    RecordingPort port;
    RecordedBar bar;
    AnsweringPort asked;
    std::string transcript; // of the network window
    std::mutex mutex;       // of later
    std::vector<std::function<void()>> later;
    GameRecord record{game, settings, port, folder};
    modMAIN main{game, net, settings, Ports{port, port, port, record, port}};
    GameFiles files{game, net, record, main, Ports{port, port, port, record, port}, asked, folder};
    GameKeeper keeper{{game, net, settings, record, files, port, bar, folder, [this] { return now; },
                       [this] { return transcript; },
                       [this](std::function<void()> work) {
                           const std::lock_guard lock(mutex);
                           later.push_back(std::move(work));
                       }}};

    // Starts as the program does.
    explicit KeeperTable(std::string name) : folder(std::move(name)) {
        settings.AnimateMoves = 0;
        record.Watch = &keeper;
        main.NewGame();
        keeper.OfferAbandoned();
    }
    KeeperTable(const KeeperTable&) = delete;
    KeeperTable& operator=(const KeeperTable&) = delete;

    void Click(std::string_view square) { Click(SquareOf(square)); }
    void Click(Square square) {
        main.DepositSquare(square);
        while (main.RunPasses()) {
        }
    }
    void Move(std::string_view from, std::string_view to) {
        Click(from);
        Click(to);
    }
    void PlayTurn(const CompleteTurn& turn) {
        port.returnChoice = turn.returnKind == Officer ? Officer : Pawn;
        Click(turn.from);
        Click(turn.to);
        if (turn.returnKind != 0)
            Click(turn.returnTo);
    }
    // Runs what has come for the window's thread so far.
    void RunLater() {
        std::vector<std::function<void()>> works;
        {
            const std::lock_guard lock(mutex);
            works.swap(later);
        }
        for (const auto& work : works)
            work();
    }
};

// The files of a folder below `folder` that end so; none while there is no such folder.
inline std::vector<std::string> FilesIn(const std::string& folder, const std::string& name,
                                        std::string_view ending = ".tsg") {
    std::vector<std::string> files;
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(folder + name, missing))
        if (entry.path().filename().string().ends_with(ending))
            files.push_back(entry.path().string());
    return files;
}

using Choices = std::vector<BarChoice>;

// The game as a saved game shows it: what is picked or waits is no part of it.
inline std::string TextOf(const Game& game) {
    return GameText(game, "");
}

} // namespace tarveth::test
