#include "engine/modMAIN.h"

#include <array>
#include <utility>

namespace tarveth {

namespace {

// by GameState; an empty prompt leaves the label as it is
constexpr std::array<std::string_view, 9> kPrompts{
    "", "Pick piece", "Place piece", "Return piece", "Allow Return", "", "Get Board", "", "Game Over"};

// A burst of squares leaves the window time for the rest of its events.
constexpr int kPassesAtOnce = 64;

constexpr std::uint32_t kPureBlue = 0xFF0000; // red in the low byte
constexpr std::uint32_t kPureRed = 0x0000FF;

// Set while a pass or a command runs, however it is left.
class BusyMark {
public:
    explicit BusyMark(bool& busy) : busy_(busy) { busy_ = true; }
    ~BusyMark() { busy_ = false; }
    BusyMark(const BusyMark&) = delete;
    BusyMark& operator=(const BusyMark&) = delete;

private:
    bool& busy_;
};

} // namespace

modMAIN::modMAIN(Game& game, NetGame& net, const Settings& settings, const Ports& ports)
    : game_(game), net_(net), settings_(settings), ports_(ports) {}

void modMAIN::NewGame() {
    ports_.window.ShowMessage("");
    ports_.record.BeginNewRecord();
    game_.lstHistory.clear();
    ports_.window.ShowHistory();
    CreatePieces(game_);
    ports_.window.ShowCaption("Tarveth");
    net_.ClearQueues();
    PlacePieces(game_, settings_.BoardVariant);
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
    if (game_.Turn != NoSide)
        ports_.board.RedrawBoard();
    SetTurn(game_.Turn == Blue ? Red : Blue);
}

void modMAIN::ShowStatus(std::string_view text) {
    ports_.window.ShowMessage(text);
    ports_.person.Beep();
}

bool modMAIN::HasWork() const {
    return game_.ClickX > 0 || game_.GameState == kAllowReturn || game_.GameState == kTurnOver ||
           game_.GameState == kBoardArrived || ReturnUndecided() || !net_.RemoteX.IsEmpty();
}

bool modMAIN::Pass() {
    const BusyMark mark(busy_);
    HandleBoardTransfer();
    if (game_.ClickX == 0)
        HandleIdle();
    else
        HandleSquare();
    net_.RemoteMove = false;
    TakeRemoteSquare();
    if (game_.GameState != kReset && game_.GameState != kGetBoard && game_.GameState != kGameOver &&
        CheckVictory())
        SetGameState(kGameOver);
    return game_.GameState != kReset;
}

bool modMAIN::RunPasses() {
    if (busy_)
        return false;
    for (int passes = 0; passes < kPassesAtOnce; ++passes) {
        RunWaitingCommands();
        if (!Pass() || (!HasWork() && waitingCommands_.empty()))
            return false;
    }
    return true;
}

void modMAIN::RunCommand(std::function<void()> command) {
    if (busy_)
        ports_.board.FinishAnimation();
    RunWhenFree(std::move(command));
}

void modMAIN::RunWhenFree(std::function<void()> command) {
    waitingCommands_.push_back(std::move(command));
    if (!busy_)
        RunWaitingCommands();
}

void modMAIN::RunWaitingCommands() {
    while (!waitingCommands_.empty()) {
        const std::function<void()> command = std::move(waitingCommands_.front());
        waitingCommands_.erase(waitingCommands_.begin());
        const BusyMark mark(busy_);
        command();
    }
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
        if (MayPlaceReturn() && !net_.RemoteMove) // an opponent's return comes as one, never as a square
            ReturnPiece();
        else
            ShowStatus("Waiting for placement of returned piece.");
        break;
    default: // the other states take no squares
        break;
    }
    game_.ClearClick();
}

void modMAIN::EchoClick() {
    if (net_.GameInProgress() && !net_.RemoteMove)
        ports_.network.SendGameMessage("M(" + std::to_string(game_.ClickX) + ", " +
                                       std::to_string(game_.ClickY) + ")");
}

bool modMAIN::MayPlaceReturn() const {
    return !net_.GameInProgress() || net_.IsLocalSide(game_.Turn);
}

// A return that was the opponent's to place has become the local player's: the link has ended, or the players
// have swapped sides.
bool modMAIN::ReturnUndecided() const {
    return game_.GameState == kReturnPiece && game_.ReturnKind == 0 && MayPlaceReturn();
}

} // namespace tarveth
