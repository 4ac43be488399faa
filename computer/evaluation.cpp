#include "computer/evaluation.h"

namespace tarveth::computer {

namespace {

constexpr int kTempo = 15; // the right to move

} // namespace

int Evaluate(const SearchPosition& position) {
    return position.Score() + kTempo;
}

} // namespace tarveth::computer
