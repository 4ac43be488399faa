#include "computer/Player.h"

#include <algorithm>
#include <thread>

namespace tarveth::computer {

namespace {

constexpr std::size_t kTableMebibytes = 32;
constexpr std::size_t kLargeTableMebibytes = 256; // of the strongest level
// Ending a search and answering takes a little of the time that was given.
constexpr std::chrono::milliseconds kReserve{2};

SearchLimits LimitsOf(const Allowance& allowance) {
    SearchLimits limits;
    limits.nodes = allowance.nodes;
    if (allowance.time)
        limits.until = Clock::now() + std::max(*allowance.time - kReserve, std::chrono::milliseconds(1));
    return limits;
}

// All of the machine's cores but one.
unsigned Helpers() {
    const unsigned cores = std::thread::hardware_concurrency();
    return cores > 2 ? cores - 2 : 0;
}

} // namespace

Player::Player(int level, std::uint64_t seed) : level_(level), seed_(seed) {
    MakeTable();
}

void Player::MakeTable() {
    helpers_.clear();
    searcher_.reset();
    table_.reset(); // before the next, so that memory never holds both
    table_ = std::make_unique<TranspositionTable>(level_ == kStrongestLevel ? kLargeTableMebibytes
                                                                            : kTableMebibytes);
    searcher_ = std::make_unique<Searcher>(*table_);
    if (level_ == kStrongestLevel)
        for (unsigned i = 0; i < Helpers(); ++i)
            helpers_.push_back(std::make_unique<Searcher>(*table_));
}

void Player::SetLevel(int level) {
    const bool otherTable = (level == kStrongestLevel) != (level_ == kStrongestLevel);
    level_ = level;
    if (otherTable)
        MakeTable();
}

void Player::BeginGame(std::uint64_t seed) {
    seed_ = seed;
    if (!hasThought_)
        return; // clearing the table is most of what a new game takes
    hasThought_ = false;
    table_->Clear();
    searcher_->Forget();
    for (const auto& helper : helpers_)
        helper->Forget();
}

SearchResult Player::Choose(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                            const Allowance& allowance, const std::stop_token& stop,
                            const std::function<void(const SearchResult&)>& tell) {
    hasThought_ = true;
    table_->NextSearch();
    const LevelTraits& traits = TraitsOf(level_);
    const SearchLimits limits = LimitsOf(allowance);
    searcher_->SetSeed(seed_);
    if (traits.likeAPerson)
        return ChooseLikeAPerson(position, traits, seed_, *searcher_, limits, stop);
    // Threads finish in an order that nobody knows; a count of nodes asks for the same turn every time.
    if (!helpers_.empty() && limits.nodes == 0)
        return SearchTogether(position, earlier, limits, stop, tell);
    return SearchAlone(position, earlier, limits, stop, tell);
}

SearchResult Player::SearchAlone(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                                 SearchLimits limits, const std::stop_token& stop,
                                 const std::function<void(const SearchResult&)>& tell) {
    limits.enough = TraitsOf(level_).nodes;
    limits.leastDepth = TraitsOf(level_).leastDepth;
    return searcher_->Think(position, earlier, limits, stop, tell);
}

// Every thread searches the whole tree; what one finds out the others read in the table they share.
SearchResult Player::SearchTogether(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                                    const SearchLimits& limits, const std::stop_token& stop,
                                    const std::function<void(const SearchResult&)>& tell) {
    std::stop_source done;
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < helpers_.size(); ++i)
        threads.emplace_back([&, i] {
            SearchLimits own = limits;
            own.firstDepth = 1 + static_cast<int>(i % 2); // so that they do not all do the same at once
            helpers_[i]->SetSeed(seed_);
            helpers_[i]->Think(position, earlier, own, done.get_token());
        });
    SearchResult result = searcher_->Think(position, earlier, limits, stop, tell);
    done.request_stop();
    return result;
}

} // namespace tarveth::computer
