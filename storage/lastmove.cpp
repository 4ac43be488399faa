#include "storage/lastmove.h"

#include "storage/notation.h"

#include <variant>

namespace tarveth {

namespace {

MoveTrace ReadMove(const std::string& line) {
    const HistoryLine read = ReadHistoryLine(line);
    const auto* move = std::get_if<MoveLine>(&read);
    return move == nullptr ? MoveTrace{} : MoveTrace{move->from, move->to, move->captured.has_value(), {}};
}

} // namespace

MoveTrace ReadLastMove(const std::vector<std::string>& history) {
    if (history.empty())
        return {};
    const HistoryLine read = ReadHistoryLine(history.back());
    const auto* returned = std::get_if<ReturnLine>(&read);
    if (returned == nullptr)
        return ReadMove(history.back());
    if (history.size() < 2)
        return {};
    MoveTrace last = ReadMove(history[history.size() - 2]);
    if (last.to.OnBoard())
        last.returned = returned->to;
    return last;
}

} // namespace tarveth
