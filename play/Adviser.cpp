#include "play/Adviser.h"

#include "computer/Player.h"
#include "engine/rules/choices.h"

#include <utility>

namespace tarveth {

namespace {

constexpr int kAdviserLevel = 6; // the strongest that leaves the other cores alone

MoveTrace TraceOf(computer::SearchTurn turn) {
    MoveTrace trace;
    trace.from = NumberedSquare(turn.From());
    trace.to = NumberedSquare(turn.To());
    if (turn.HasReturn())
        trace.returned = NumberedSquare(turn.ReturnTo());
    return trace;
}

} // namespace

Adviser::Adviser(const Game& game, const NetGame& net, MainWindowPort& window, RunSoon runSoon,
                 std::function<void()> repaint)
    : game_(game), net_(net), window_(window), repaint_(std::move(repaint)), search_(std::move(runSoon)) {}

std::string Adviser::WhyNone() const {
    if (net_.GameInProgress())
        return "There are no hints in a game over the network.";
    if (game_.GameState == kGameOver)
        return "There is no hint: the game is over.";
    if (!net_.IsPlayedHere(game_.Turn))
        return "There is no hint: the computer is to move.";
    if (game_.GameState != kPickPiece && game_.GameState != kPlacePiece)
        return "There is no hint before this turn is over.";
    if (!HasMove(game_))
        return "There is no hint: " + std::string(SideName(game_.Turn)) + " has no move.";
    return {};
}

void Adviser::GiveHint() {
    if (const std::string reason = WhyNone(); !reason.empty()) {
        window_.ShowMessage(reason);
        return;
    }
    about_ = game_.PieceTable;
    window_.ShowMessage("Looking for a good turn...");
    search_.Begin([this, record = std::make_shared<const computer::GameRecord>(game_)](
                      const std::stop_token& stop) { Look(record, stop); });
}

// On the search's thread.
void Adviser::Look(const Record& record, const std::stop_token& stop) {
    const computer::SearchPosition& position = record->Position();
    computer::Player player(kAdviserLevel);
    HintFindings found;
    found.best = player.Choose(position, {}, {.time = Time * 4 / 5}, stop);
    computer::SearchPosition passed = position;
    passed.Pass();
    if (!passed.Rules().IsOver())
        found.threat = player.Choose(passed, {}, {.time = Time / 5}, stop);
    search_.TellLast([this, record, found] { Show(*record, found); });
}

void Adviser::Show(const computer::GameRecord& record, const HintFindings& found) {
    if (!IsAboutTheGame() || found.best.turn.IsNone())
        return;
    shown_ = TraceOf(found.best.turn);
    window_.ShowMessage(HintSentence(record.Position(), found));
    repaint_();
}

void Adviser::Follow() {
    if (IsAboutTheGame() && net_.IsPlayedHere(game_.Turn) && game_.GameState != kGameOver)
        return;
    search_.Cancel();
    if (std::exchange(shown_, {}) != MoveTrace())
        repaint_();
}

} // namespace tarveth
