// Two whole programs, without their windows, that play each other through a lobby.
#pragma once

#include "engine/modMAIN.h"
#include "engine/rules/turns.h"
#include "net/modClient.h"
#include "storage/notation.h"
#include "storage/settings.h"
#include "storage/sounds.h"
#include "tests/Dice.h"
#include "tests/net/FakeSocket.h"
#include "tests/server/TestLobby.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tarveth::test {

// The windows of a person who says yes to all questions and returns the piece that the test names.
class SilentWindows : public MainWindowPort,
                      public BoardPort,
                      public PersonPort,
                      public RecordPort,
                      public SoundPort,
                      public ClientWindowPort,
                      public ClientPersonPort {
public:
    explicit SilentWindows(Game& game) : game_(game) {}

    std::vector<std::string> log; // of the game before, as the file would hold it
    std::string status;           // lblMessage
    PieceKind returnChoice = Pawn;
    int notices = 0;
    std::string joinQuestion; // the one that is open; empty: none

    void ShowMessage(std::string_view text) override { status = text; }
    void ShowPrompt(std::string_view) override {}
    void ShowPlayer(std::string_view, std::uint32_t) override {}
    void ShowLocalSide(std::int16_t) override {}
    void ShowCaption(std::string_view) override {}
    void ShowMarker(bool) override {}
    void ShowHistory() override {}
    void RedrawBoard() override {}
    void AnimateMove(int, Square) override {}
    void FinishAnimation() override {}
    void Beep() override {}
    void ShowMessageBox(std::string_view) override {}
    void GameEndSound(bool) override {}
    PieceKind ChooseReturn(std::int16_t) override { return returnChoice; }
    void RecordMove(int index) override { HistoryAddMove(game_, index); }
    void RecordCapture(int mover, int captured) override { HistoryAddCapture(game_, mover, captured); }
    void RecordReturn(Square square) override { HistoryAddReturn(game_, square); }
    void BeginNewRecord() override { log = game_.lstHistory; }
    void BeginReceivedRecord() override { log = game_.lstHistory; }
    void PlayWav(const std::string&) override {}
    void ShowLine(std::string_view, LineKind kind) override { notices += kind == LineKind::Notice ? 1 : 0; }
    void ShowUsers() override {}
    void ShowInGame(bool) override {}
    void ShowInviting(bool) override {}
    void ShowJoinQuestion(std::string_view text) override { joinQuestion = text; }
    void StartChatTimer(std::chrono::milliseconds) override {}
    void ShowPrivateMode(bool) override {}
    void ShowWaiting(bool) override {}
    void FocusInput() override {}
    void Unload() override {}
    void ShowMessageBox(std::string_view, std::string_view, BoxIcon) override {}
    bool AskYesNo(std::string_view, std::string_view) override { return true; }
    std::string AskServer() override { return "lobby.example"; }
    std::optional<std::string> AskText(std::string_view, std::string_view, std::string_view) override {
        return std::nullopt;
    }

private:
    Game& game_;
};

// One of them, at its place in the lobby.
struct ProgramInLobby {
    ProgramInLobby(TestLobby& lobby, const std::string& nick);
    ProgramInLobby(const ProgramInLobby&) = delete;
    ProgramInLobby& operator=(const ProgramInLobby&) = delete;

    Game game;
    NetGame net;
    Settings settings;
    SilentWindows windows{game};
    Sounds sounds{settings, windows, {}};
    FakeSocket socket;
    modMAIN main;
    modClient client;
    TestConnection& place;
    std::size_t historyStart = 0; // lines in front of it are of before the board that both have

    bool IsToMove() const { return net.IsLocalSide(game.Turn); }
    void Settle();
};

// After everything that one of them does, all messages are delivered, in whole batches or message by message,
// and both must have the same tables, turn, state and history. Throws std::logic_error otherwise.
class TwoPrograms {
public:
    explicit TwoPrograms(std::uint64_t seed);

    // Plays a game from a board that one of them has begun or loaded. It may stop anywhere, in the middle of
    // a turn too. True when it was won.
    bool PlayGame(int longest);
    // The link is broken, and the other one invites.
    void LinkAnew();

    int Messages() const { return messages_; }

private:
    ProgramInLobby& OneOfThem() { return *programs_[static_cast<std::size_t>(dice_.Below(2))]; }
    ProgramInLobby& Mover();
    ProgramInLobby& Waiting();
    void BeginBoard();
    void PutLoadedBoard(ProgramInLobby& program);
    void PlayTurn(bool mayStop);
    void PlaceReturn(const CompleteTurn& turn);
    void ClickWithoutSense();
    void Click(ProgramInLobby& program, Square square);
    void SwapNowAndThen();
    void Invite();
    void ShareHistoryFrom(ProgramInLobby& sender);
    void Exchange();
    void Deliver(ProgramInLobby& program, const std::string& bytes);
    void CompareBoards() const;
    void CompareLogs() const;

    TestLobby lobby_;
    Dice dice_;
    ProgramInLobby ann_{lobby_, "Ann"}, bob_{lobby_, "Bob"};
    std::array<ProgramInLobby*, 2> programs_{&ann_, &bob_};
    int messages_ = 0;
};

} // namespace tarveth::test
