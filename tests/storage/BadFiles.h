// Fixture for tests that load bad files while a game is going on.
#pragma once

#include "storage/modFileIO.h"
#include "tests/storage/FilesTable.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tarveth::test {

inline constexpr char kBad[] = "bad.tsg";

// A game with a title that has begun, and the command that loads a bad file.
class BadFiles : public testing::Test {
protected:
    BadFiles() {
        PlayOneCapture(t);
        good = GameText(t.game, "good.tsg");
        t.SaveAs("good.tsg");
        Restart();
        before = t.game;
    }

    // The good game with a piece selected; the next file to load is the bad one.
    void Restart() {
        t.files.OpenGame(t.folder.File("good.tsg"));
        t.Click("6E");
        t.asked.chosen = t.folder.File(kBad);
    }

    // Loads the file. True when it is refused as it should be, with that text behind the file's name.
    bool IsRefused(const std::string& behindName) {
        const int redraws = t.port.redraws;
        t.port.boxes.clear();
        t.files.LoadGame();
        return t.port.boxes.size() == 1 &&
               t.port.boxes.front().starts_with("The game is not loaded.\n" + t.folder.File(kBad) +
                                                behindName) &&
               t.game == before && t.port.redraws == redraws && t.record.GameTitle == "good.tsg" &&
               t.record.GameFileName == t.folder.File("good.tsg") && t.port.caption == "good.tsg (Tarveth)" &&
               t.port.marker;
    }
    bool IsRefusedOnLine(const std::string& bytes, const std::string& line = "") {
        std::filesystem::remove(
            t.folder.File(kBad)); // some disks wait for a file that is cut short and written anew
        PutBytes(t.folder.File(kBad), bytes);
        return IsRefused(", line " + line);
    }

    // The good game's text with one line, counted from 1, replaced.
    std::string WithLine(int number, const std::string& content) const {
        std::size_t start = 0;
        for (int line = 1; line < number; ++line)
            start = good.find('\n', start) + 1;
        return good.substr(0, start) + content + good.substr(good.find("\r\n", start));
    }

    FilesTable t;
    std::string good;
    Game before;
};

} // namespace tarveth::test
