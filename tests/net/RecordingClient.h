// Stands in for the client window and the person in front of it: writes down what is shown, and gives the
// answers that it was told.
#pragma once

#include "net/ClientPorts.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarveth::test {

class RecordingClient : public ClientWindowPort, public ClientPersonPort {
public:
    std::string caption;
    std::vector<std::string> lines; // "others|", "mine|", "opponent|" or "notice|" and the text
    int userListings = 0;
    bool inGame = false;
    bool inviting = false;
    bool privateMode = false;
    bool chatTimer = false; // a chat timer is running
    bool waiting = false;
    int focused = 0;
    int unloads = 0;

    std::vector<std::string> questions;  // title, "|", text
    std::vector<std::string> boxes;      // the same, with "!" in front where the icon is critical
    std::vector<bool> answers;           // to the first questions; to all others No
    std::string joinQuestion;            // the one that is open; empty: none
    bool leavesJoinQuestionOpen = false; // the person does not answer it by and by
    std::string server = "lobby.example";
    std::optional<std::string> text; // what AskText answers
    std::string proposal;            // what it proposed last

    std::function<void()> onQuestion; // runs while a question or a box is open

    void ShowCaption(std::string_view shown) override { caption = shown; }
    void ShowLine(std::string_view line, LineKind kind) override {
        static constexpr const char* kNames[] = {"others|", "mine|", "opponent|", "notice|"};
        lines.push_back(kNames[static_cast<std::size_t>(kind)] + std::string(line));
    }
    void ShowUsers() override { ++userListings; }
    void ShowInGame(bool shown) override { inGame = shown; }
    void ShowInviting(bool shown) override { inviting = shown; }
    void ShowJoinQuestion(std::string_view text) override {
        if (joinQuestion == text)
            return;
        joinQuestion = text;
        if (!joinQuestion.empty())
            questions.push_back("Join Game?|" + joinQuestion);
    }
    // The person's answer to the question that is open.
    bool TakeAnswer() {
        BeOpen();
        const std::size_t number = answered_++;
        return number < answers.size() && answers[number];
    }
    void StartChatTimer(std::chrono::milliseconds) override { chatTimer = true; }
    void ShowPrivateMode(bool shown) override { privateMode = shown; }
    void ShowWaiting(bool shown) override { waiting = shown; }
    void FocusInput() override { ++focused; }
    void Unload() override { ++unloads; }

    void ShowMessageBox(std::string_view shown, std::string_view title, BoxIcon icon) override {
        boxes.push_back((icon == BoxIcon::Critical ? "!" : "") + std::string(title) + "|" +
                        std::string(shown));
        BeOpen();
    }
    bool AskYesNo(std::string_view question, std::string_view title) override {
        questions.push_back(std::string(title) + "|" + std::string(question));
        return TakeAnswer();
    }
    std::string AskServer() override {
        BeOpen();
        return server;
    }
    std::optional<std::string> AskText(std::string_view prompt, std::string_view title,
                                       std::string_view proposed) override {
        proposal = proposed;
        Ask(prompt, title);
        return text;
    }

private:
    std::size_t answered_ = 0;

    void Ask(std::string_view question, std::string_view title) {
        questions.push_back(std::string(title) + "|" + std::string(question));
        BeOpen();
    }
    // Once a question: what happens meanwhile must not happen again in front of the next one.
    void BeOpen() {
        if (const auto meanwhile = std::exchange(onQuestion, nullptr))
            meanwhile();
    }
};

} // namespace tarveth::test
