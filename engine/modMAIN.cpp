#include "engine/modMAIN.h"

#include "engine/rules/checkgame.h"

#include <array>
#include <cassert>
#include <utility>

namespace tarveth {

namespace {

// The prompts, indexed by GameState. An empty prompt leaves the label as it is.
constexpr std::array<std::string_view, 9> kPrompts{
    "", "Pick piece", "Place piece", "Return piece", "Allow Return", "", "Get Board", "", "Game Over"};

// The most passes that RunPasses makes at a time, so that a burst of squares leaves time for other events.
constexpr int kPassesAtOnce = 64;

constexpr std::uint32_t kPureBlue = 0xFF0000; // red in the low byte
constexpr std::uint32_t kPureRed = 0x0000FF;

} // namespace

modMAIN::modMAIN(Game& game, NetGame& net, const GameOptions& options, const Ports& ports)
    : game_(game), net_(net), options_(options), ports_(ports) {}

void modMAIN::NewGame() {
    ports_.window.ShowMessage("");
    ports_.record.BeginNewRecord();
    game_.lstHistory.clear();
    ports_.window.ShowHistory();
    CreatePieces(game_);
    ports_.window.ShowCaption("Tarveth");
    net_.ClearQueues();
    PlacePieces(game_, options_.BoardVariant);
    ports_.board.RedrawBoard();
    EndTurn();
    if (net_.GameInProgress())
        ports_.network.SendBoard();
    ports_.window.ShowMessage(kToBeginPlay);
}

void modMAIN::SetGameState(std::int16_t value) {
    game_.GameState = value;
    if (value < kPickPiece || value > kGameOver)
        return;
    const std::string_view prompt = kPrompts[static_cast<std::size_t>(value)];
    if (!prompt.empty())
        ports_.window.ShowPrompt(prompt);
    ports_.window.ShowMarker(value == kPlacePiece);
}

void modMAIN::SetTurn(std::int16_t side) {
    game_.Turn = side;
    ports_.window.ShowPlayer(SideName(side), side == Blue ? kPureBlue : kPureRed);
    SetGameState(kPickPiece);
}

void modMAIN::EndTurn() {
    const bool played = game_.Turn != NoSide; // it is no side's turn while a game is set up
    if (played) {
        assert(CheckGame(game_).empty());
        ports_.board.RedrawBoard();
    }
    SetTurn(game_.Turn == Blue ? Red : Blue);
    if (played)
        ports_.record.TurnEnded();
}

void modMAIN::ShowStatus(std::string_view text) {
    ports_.window.ShowMessage(text);
    ports_.person.Beep();
}

bool modMAIN::HasWork() const {
    return game_.ClickX > 0 || game_.GameState == kAllowReturn || game_.GameState == kTurnOver ||
           game_.GameState == kBoardArrived || ReturnUndecided() || net_.SquareWaits();
}

bool modMAIN::Pass() {
    const CommandGate::Hold hold(gate_);
    HandleBoardTransfer();
    if (game_.ClickX == 0)
        HandleIdle();
    else
        HandleSquare();
    net_.RemoteMove = false;
    TakeRemoteSquare();
    if (game_.GameState != kReset && game_.GameState != kGetBoard && game_.GameState != kGameOver &&
        CheckVictory()) {
        SetGameState(kGameOver);
        ports_.record.GameEnded();
    }
    return game_.GameState != kReset;
}

bool modMAIN::RunPasses() {
    if (Busy())
        return false;
    for (int passes = 0; passes < kPassesAtOnce; ++passes) {
        gate_.RunWaiting();
        if (!Pass() || (!HasWork() && !gate_.HasWaiting()))
            return false;
    }
    return true;
}

void modMAIN::RunCommand(std::function<void()> command) {
    if (Busy())
        ports_.board.FinishAnimation();
    RunWhenFree(std::move(command));
}

void modMAIN::FinishTurn() {
    if (game_.GameState == kAllowReturn)
        CheckReturnDue();
    if (game_.GameState == kTurnOver)
        EndTurn();
}

void modMAIN::HandleIdle() {
    if (game_.GameState == kAllowReturn || ReturnUndecided())
        CheckReturnDue();
    else if (game_.GameState == kTurnOver)
        EndTurn();
}

void modMAIN::HandleSquare() {
    switch (game_.GameState) {
    case kPickPiece:
        EchoClick();
        PickPiece();
        break;
    case kPlacePiece:
        EchoClick();
        PlacePiece();
        break;
    case kReturnPiece:
        if (IsMyTurn() && !net_.RemoteMove) // an opponent's return comes as a return, never as a square
            ReturnPiece();
        else
            ShowStatus("Waiting for placement of returned piece.");
        break;
    default: // the other states take no squares
        break;
    }
    game_.ClearClick();
}

} // namespace tarveth
