#include "computer/Player.h"

namespace tarveth::computer {

namespace {

constexpr std::size_t kTableMebibytes = 32;
// Ending a search and answering takes a little of the time that was given.
constexpr std::chrono::milliseconds kReserve{2};

SearchLimits LimitsOf(const Allowance& allowance) {
    SearchLimits limits;
    limits.nodes = allowance.nodes;
    if (allowance.time)
        limits.until = Clock::now() + std::max(*allowance.time - kReserve, std::chrono::milliseconds(1));
    return limits;
}

} // namespace

Player::Player(int level, std::uint64_t seed)
    : level_(level), seed_(seed), table_(kTableMebibytes), searcher_(table_) {}

void Player::BeginGame(std::uint64_t seed) {
    seed_ = seed;
    searcher_.Forget();
}

SearchResult Player::Choose(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                            const Allowance& allowance, const std::stop_token& stop,
                            const std::function<void(const SearchResult&)>& tell) {
    table_.NextSearch();
    searcher_.SetSeed(seed_);
    return searcher_.Think(position, earlier, LimitsOf(allowance), stop, tell);
}

} // namespace tarveth::computer
