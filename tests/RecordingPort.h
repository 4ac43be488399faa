// Implements all ports for tests and records the calls.
#pragma once

#include "engine/ports.h"
#include "engine/rules/Game.h"
#include "storage/notation.h"

#include <functional>
#include <string>
#include <vector>

namespace tarveth::test {

class RecordingPort : public MainWindowPort,
                      public BoardPort,
                      public PersonPort,
                      public RecordPort,
                      public NetworkPort {
public:
    std::string message; // lblMessage
    std::string prompt;  // lblMoveStatus
    std::string player;  // lblCurPlayer
    std::uint32_t playerColour = 0;
    std::string caption;
    std::int16_t localSide = NoSide;
    bool marker = false;
    int beeps = 0;
    int redraws = 0;
    int animations = 0;
    int finishedAnimations = 0;
    int newRecords = 0;
    int receivedRecords = 0;
    int boardsSent = 0;
    int returnQuestions = 0;
    PieceKind returnChoice = Pawn; // what ChooseReturn answers
    int returnSide = NoSide;       // whose pieces it offered last
    std::vector<bool> gameEndSounds;
    std::vector<bool> victoriesAnnounced; // true for Blue
    std::vector<std::string> sent;        // in-game messages
    std::vector<std::string> notices;
    std::vector<std::string> boxes; // message boxes
    std::string opponent;           // the opponent's nickname
    std::vector<std::string> calls; // the order of what NewGame asks

    void ShowMessage(std::string_view text) override {
        message = text;
        calls.push_back("message " + message);
    }
    void ShowPrompt(std::string_view text) override { prompt = text; }
    void ShowPlayer(std::string_view text, std::uint32_t colour) override {
        player = text;
        playerColour = colour;
        calls.push_back("player " + player);
    }
    void ShowLocalSide(std::int16_t side) override { localSide = side; }
    void ShowCaption(std::string_view text) override {
        caption = text;
        calls.push_back("caption " + caption);
    }
    void ShowMarker(bool visible) override { marker = visible; }
    void ShowHistory() override { calls.emplace_back("history"); }
    void RedrawBoard() override {
        ++redraws;
        calls.emplace_back("redraw");
    }
    void AnimateMove(int, Square) override {
        ++animations;
        if (onAnimate)
            onAnimate();
    }
    void FinishAnimation() override { ++finishedAnimations; }
    void ShowMessageBox(std::string_view text) override { boxes.emplace_back(text); }
    void Beep() override { ++beeps; }
    void GameEndSound(bool localPlayerWon) override { gameEndSounds.push_back(localPlayerWon); }
    PieceKind ChooseReturn(std::int16_t side) override {
        ++returnQuestions;
        returnSide = side;
        if (onChooseReturn)
            onChooseReturn();
        return returnChoice;
    }
    // Adds the line to the history of the game, if there is one.
    Game* game = nullptr;
    void RecordMove(int index) override {
        if (game != nullptr)
            HistoryAddMove(*game, index);
    }
    void RecordCapture(int mover, int captured) override {
        if (game != nullptr)
            HistoryAddCapture(*game, mover, captured);
    }
    void RecordReturn(Square square) override {
        if (game != nullptr)
            HistoryAddReturn(*game, square);
    }
    void BeginNewRecord() override {
        ++newRecords;
        calls.emplace_back("record");
    }
    void BeginReceivedRecord() override {
        ++receivedRecords;
        calls.emplace_back("received record");
    }
    void SendGameMessage(std::string_view inner) override { sent.emplace_back(inner); }
    void SendBoard() override {
        ++boardsSent;
        calls.emplace_back("board");
    }
    void AnnounceVictory(bool blueWon) override { victoriesAnnounced.push_back(blueWon); }
    void ShowNotice(std::string_view text) override { notices.emplace_back(text); }
    std::string OpponentNick() const override { return opponent; }

    std::function<void()> onAnimate;      // runs in the middle of a move's animation
    std::function<void()> onChooseReturn; // runs while the question which piece comes back is open
};

} // namespace tarveth::test
