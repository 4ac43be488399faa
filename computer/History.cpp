#include "computer/History.h"

#include <type_traits>

namespace tarveth::computer {

namespace {

template <class Table>
void Halve(Table& table) {
    if constexpr (std::is_integral_v<Table>)
        table = static_cast<Table>(table / 2);
    else
        for (auto& part : table)
            Halve(part);
}

} // namespace

void History::Age() {
    Halve(byTo_);
    Halve(byFrom_);
    Halve(returns_);
    killers_ = {};
}

void History::Reward(Side mover, PieceKind kind, SearchTurn turn, int bonus) {
    Add(byTo_[Code(mover, kind, turn)][To(turn)], bonus);
    Add(byFrom_[Index(mover)][static_cast<std::size_t>(turn.From())][To(turn)], bonus);
    if (turn.HasReturn())
        Add(returns_[Index(mover)][turn.ReturnKind() == Pawn ? 1 : 0]
                    [static_cast<std::size_t>(turn.ReturnTo())],
            bonus);
}

void History::AddKiller(int ply, SearchTurn turn) {
    auto& killers = killers_[static_cast<std::size_t>(ply)];
    if (turn == killers[0])
        return;
    killers[1] = killers[0];
    killers[0] = turn;
}

} // namespace tarveth::computer
