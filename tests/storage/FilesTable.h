// A game with a folder of its own and the saved-game commands, whose questions are answered by the test.
#pragma once

#include "storage/gamefiles.h"
#include "tests/TestGame.h"
#include "tests/platform/TempFolder.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarveth::test {

class AnsweringPort : public GameFilesPort {
public:
    std::optional<std::string> chosen; // what the file dialogs answer
    YesNoCancel answer = YesNoCancel::Yes;
    std::string date = "11/15/2026";
    std::vector<FileQuestion> dialogs; // what was asked
    std::vector<std::string> questions;
    std::function<void()> onDialog; // runs while a file dialog is open

    std::optional<std::string> AskFile(const FileQuestion& question) override {
        dialogs.push_back(question);
        if (onDialog)
            onDialog();
        return chosen;
    }
    YesNoCancel AskYesNoCancel(std::string_view text) override {
        questions.emplace_back(text);
        return answer;
    }
    std::string ShortDate() override { return date; }
};

struct FilesTable : TestGame {
    TempFolder folder;
    AnsweringPort asked;
    GameRecord record{game, settings, port, folder.Name()};
    GameFiles files{game, net, record, main, Ports{port, port, port, port, port}, asked, folder.Name()};

    // Runs "Save As" with a name that no file has.
    void SaveAs(const std::string& name) {
        asked.chosen = folder.File(name);
        files.SaveGameAs();
    }
};

// A game with a capture, a jailed piece and two lines of history.
inline void PlayOneCapture(TestGame& table) {
    table.Move("4E", "4D");
    table.Move("4C", "4D");
}

// Runs a command that must fail: one message box that names the file, and nothing else has changed.
inline bool IsToldOnce(FilesTable& t, const std::function<void()>& command, const std::string& file) {
    const Game game = t.game;
    const std::string title = t.record.GameTitle;
    const std::string name = t.record.GameFileName;
    const std::string caption = t.port.caption;
    t.port.boxes.clear();
    command();
    return t.port.boxes.size() == 1 &&
           t.port.boxes.front().starts_with("The game is not saved.\n" + t.folder.File(file) + ": ") &&
           t.game == game && t.record.GameTitle == title && t.record.GameFileName == name &&
           t.port.caption == caption;
}

} // namespace tarveth::test
