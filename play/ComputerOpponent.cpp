#include "play/ComputerOpponent.h"

#include "computer/positionline.h"

#include <algorithm>
#include <random>
#include <utility>

namespace tarveth {

namespace {

using namespace std::chrono_literals;

std::uint64_t RandomSeed() {
    std::random_device device;
    return std::uint64_t{device()} << 32U | device();
}

} // namespace

std::chrono::milliseconds ThinkingTime(int level) {
    static constexpr std::array kTimes = {100ms, 100ms, 200ms, 300ms, 500ms, 1000ms, 5000ms};
    return kTimes.at(static_cast<std::size_t>(level - computer::kWeakestLevel));
}

ComputerOpponent::ComputerOpponent(const Game& game, NetGame& net, modMAIN& main, MainWindowPort& window,
                                   RunSoon runSoon)
    : game_(game), net_(net), main_(main), window_(window), search_(std::move(runSoon)) {}

void ComputerOpponent::PlaySide(std::int16_t side) {
    StopPlaying();
    Plays(side) = true;
    net_.PlayingBlue = side != Blue;
}

void ComputerOpponent::StopPlaying() {
    StopThinking();
    net_.ComputerPlaysBlue = net_.ComputerPlaysRed = false;
    onceFor_ = NoSide;
    if (!net_.GameInProgress())
        net_.PlayingBlue = true;
}

void ComputerOpponent::SetLevel(int level) {
    StopThinking();
    level_ = level;
}

void ComputerOpponent::MoveNow() {
    if (Thinks()) {
        search_.RequestStop();
        return;
    }
    if (!IsSettled() || net_.GameInProgress())
        return;
    onceFor_ = game_.Turn;
    Plays(game_.Turn) = true;
}

void ComputerOpponent::Follow() {
    if (net_.GameInProgress() && PlaysAnySide())
        StopPlaying();
    EndSingleTurn();
    Watch();
    remarks_.Watch(game_, PlayerSide(), level_, earlier_.empty() ? 0 : earlier_.size() - 1);
    if (Thinks() && !(IsDue() && IsAboutTheGame()))
        StopThinking();
    if (!Thinks() && IsDue())
        Think();
}

void ComputerOpponent::EndSingleTurn() {
    if (onceFor_ == NoSide || (game_.Turn == onceFor_ && game_.GameState != kGameOver))
        return;
    Plays(onceFor_) = false;
    onceFor_ = NoSide;
}

// Whether a turn could begin: the one before is over, and nothing is on its way.
bool ComputerOpponent::IsSettled() const {
    return game_.GameState == kPickPiece && game_.Turn != NoSide && game_.ClickX == 0 && !net_.SquareWaits();
}

bool ComputerOpponent::IsDue() const {
    return IsSettled() && !main_.Busy() && !net_.GameInProgress() && !net_.IsPlayedHere(game_.Turn);
}

bool ComputerOpponent::IsAboutTheGame() const {
    return game_.PieceTable == thoughtAbout_;
}

// Remembers the positions since the last capture, so that a repeated one is known.
void ComputerOpponent::Watch() {
    if (!PlaysAnySide() || !IsSettled() || main_.Busy())
        return;
    if (!told_.empty() && !IsDue())
        window_.ShowMessage(std::exchange(told_, {}));
    const std::size_t lines = game_.lstHistory.size();
    const std::size_t jailed = game_.JailTable.size();
    if (lines == linesSeen_ && jailed == jailSeen_ && !earlier_.empty())
        return;
    if (lines < linesSeen_ || jailed != jailSeen_)
        earlier_.clear();
    earlier_.push_back(computer::GameRecord(game_).Position().Key());
    linesSeen_ = lines;
    jailSeen_ = jailed;
}

// The side that the user plays against the computer, for more than a turn.
std::int16_t ComputerOpponent::PlayerSide() const {
    if (onceFor_ != NoSide || net_.ComputerPlaysBlue == net_.ComputerPlaysRed)
        return NoSide;
    return net_.ComputerPlaysBlue ? Red : Blue;
}

void ComputerOpponent::Think() {
    if (!player_)
        player_ = std::make_unique<computer::Player>(level_, RandomSeed());
    player_->SetLevel(level_);
    if (game_.lstHistory.empty())
        player_->BeginGame(RandomSeed());
    thoughtAbout_ = game_.PieceTable;
    std::vector<std::uint64_t> earlier = earlier_;
    if (!earlier.empty())
        earlier.pop_back(); // the present position
    search_.Begin([this, game = std::make_shared<computer::GameRecord>(game_), earlier = std::move(earlier)](
                      const std::stop_token& stop) { Answer(stop, *game, earlier); });
}

// On the search's thread.
void ComputerOpponent::Answer(const std::stop_token& stop, const computer::GameRecord& game,
                              const std::vector<std::uint64_t>& earlier) {
    const auto soonest = computer::Clock::now() + LeastTime;
    computer::Allowance allowance;
    allowance.time = ThinkingTime(player_->Level());
    const computer::SearchResult result = player_->Choose(game.Position(), earlier, allowance, stop);
    search_.WaitUntil(soonest, stop);
    search_.TellLast([this, turn = result.turn] { Take(turn); });
}

void ComputerOpponent::Take(computer::SearchTurn turn) {
    if (!IsDue() || !IsAboutTheGame())
        return;
    if (!turn.IsNone()) {
        HandOver(turn);
    } else if (computer::ListTurns(computer::GameRecord(game_).Rules()).empty()) {
        StopPlaying();
        window_.ShowMessage(std::string(SideName(game_.Turn)) +
                            " has no move. The computer plays no longer.");
    }
}

// The turn goes the way of an opponent's: its squares are taken by the passes that follow.
void ComputerOpponent::HandOver(computer::SearchTurn turn) {
    const Square from = NumberedSquare(turn.From());
    const Square to = NumberedSquare(turn.To());
    const PieceRecord& moved = game_.Piece(PieceOn(game_, from));
    told_ = moved.Side == game_.Turn
                ? std::string()
                : std::string(SideName(game_.Turn)) + " has moved " + std::string(SideName(moved.Side)) +
                      "'s " + std::string(KindName(moved.Kind)) + ", which stood in its zone.";
    net_.AddSquare(from);
    net_.AddSquare(to);
    if (!turn.HasReturn())
        return;
    const ReturnCandidates candidates = FindReturnCandidates(game_, PieceOn(game_, to));
    const bool pawn = turn.ReturnKind() == Pawn;
    net_.AddReturn(
        NumberedSquare(turn.ReturnTo()),
        {PieceToReturn(game_, turn.ReturnKind()), pawn ? candidates.pawnSlot : candidates.officerSlot},
        KindName(turn.ReturnKind()));
}

} // namespace tarveth
