#include "play/hint.h"

#include "computer/evaluation.h"
#include "computer/positionline.h"

namespace tarveth {

namespace {

using computer::SearchPosition;
using computer::SearchTurn;

// A threat is worth telling where it costs at least about a Pawn.
constexpr int kWorthTelling = 15;

struct Standing {
    Side side;
    PieceKind kind;
};

// The piece on a square that is taken.
Standing PieceAt(const SearchPosition& position, int square) {
    const Side side = (position.Rules().Standing(Blue) & SetOf(square)) != 0 ? Blue : Red;
    return {side, position.Rules().KindOn(side, square)};
}

std::string WithArticle(PieceKind kind) {
    return (kind == Officer ? "an " : "a ") + std::string(KindName(kind));
}

std::string Instruction(const SearchPosition& position, SearchTurn turn) {
    const Standing moved = PieceAt(position, turn.From());
    const bool own = moved.side == position.Turn();
    return "Move " + (own ? std::string("your") : std::string(SideName(moved.side)) + "'s") + ' ' +
           std::string(KindName(moved.kind)) + ' ' + computer::WriteSquare(turn.From()) + '-' +
           computer::WriteSquare(turn.To()) + (own ? "" : ", which stands in your zone") + ": ";
}

bool EndsGame(const SearchPosition& position, SearchTurn turn) {
    SearchPosition next = position;
    next.Play(turn);
    return next.Rules().IsOver();
}

// A search counts the turns of both sides until the end.
std::string WinReason(int value) {
    const int own = (computer::kWin - value + 1) / 2;
    return own <= 1 ? "it wins the game." : "it wins the game in " + std::to_string(own) + " turns.";
}

std::string CaptureReason(const SearchPosition& position, SearchTurn turn) {
    const Standing taken = PieceAt(position, turn.To());
    if (taken.side == position.Turn())
        return "it takes your own " + std::string(KindName(taken.kind)) + " out of the way.";
    std::string reason = "it takes " + WithArticle(taken.kind);
    if (turn.HasReturn())
        reason += ", and your " + std::string(KindName(turn.ReturnKind())) + " comes back on " +
                  computer::WriteSquare(turn.ReturnTo());
    return reason + '.';
}

// The piece that would be taken, unless the opponent takes it all the same.
std::string ThreatReason(const SearchPosition& position, const HintFindings& found) {
    const SearchTurn threat = found.threat.turn;
    if (threat.IsNone() || !threat.IsCapture() ||
        found.threat.value + found.best.value < kWorthTelling) // both from their own side
        return {};
    const Standing taken = PieceAt(position, threat.To());
    const bool takenStill = found.best.line.size() > 1 && found.best.line[1].IsCapture() &&
                            found.best.line[1].To() == threat.To() && found.best.turn.From() != threat.To();
    if (taken.side != position.Turn() || takenStill)
        return {};
    return "your " + std::string(KindName(taken.kind)) + " on " + computer::WriteSquare(threat.To()) +
           " could be taken.";
}

// The first capture that the player is going for, in the turns after this one.
std::string AimReason(SearchPosition position, const HintFindings& found) {
    const Side player = position.Turn();
    for (const SearchTurn turn : found.best.line) {
        if (position.Turn() == player && turn.IsCapture()) {
            const Standing taken = PieceAt(position, turn.To());
            if (taken.side != player)
                return "it goes for " + WithArticle(taken.kind) + " on " + computer::WriteSquare(turn.To()) +
                       '.';
        } else if (turn.IsCapture()) {
            return {}; // the opponent takes first
        }
        position.Play(turn);
    }
    return {};
}

std::string Reason(const SearchPosition& position, const HintFindings& found) {
    const SearchTurn turn = found.best.turn;
    if (found.best.value >= computer::kSurelyWon)
        return WinReason(found.best.value);
    if (found.best.value <= -computer::kSurelyWon)
        return "every turn loses, and this one holds out longest.";
    if (turn.IsCapture() && !EndsGame(position, turn))
        return CaptureReason(position, turn);
    if (std::string threat = ThreatReason(position, found); !threat.empty())
        return threat;
    if (std::string aim = AimReason(position, found); !aim.empty())
        return aim;
    return "no other turn looks better.";
}

} // namespace

std::string HintSentence(const SearchPosition& position, const HintFindings& found) {
    return Instruction(position, found.best.turn) + Reason(position, found);
}

} // namespace tarveth
