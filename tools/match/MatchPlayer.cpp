#include "tools/match/MatchPlayer.h"

#include "computer/Player.h"

#include <charconv>
#include <stdexcept>

namespace tarveth::match {

namespace {

class LevelPlayer : public MatchPlayer {
public:
    LevelPlayer(int level, const Pace& pace) : pace_(pace), player_(level) {}

    void BeginGame(const computer::GameRecord&, std::uint64_t seed) override { player_.BeginGame(seed); }
    void Played(computer::SearchTurn) override {}
    computer::SearchTurn Choose(const computer::GameRecord& game) override {
        computer::Allowance allowance;
        allowance.nodes = pace_.nodes;
        if (pace_.nodes == 0)
            allowance.time = std::chrono::milliseconds(pace_.milliseconds);
        const auto result = player_.Choose(game.Position(), game.Earlier(), allowance);
        effort.depths += static_cast<std::uint64_t>(result.depth);
        effort.nodes += result.nodes;
        return result.turn;
    }

private:
    Pace pace_;
    computer::Player player_;
};

template <class Number>
Number NumberIn(const std::string& text, const std::string& description) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::invalid_argument("no such player: " + description);
    return number;
}

} // namespace

std::unique_ptr<MatchPlayer> MakePlayer(const std::string& description, const Pace& pace) {
    const std::size_t colon = description.find(':');
    const std::string kind = description.substr(0, colon);
    std::string rest = colon == std::string::npos ? "" : description.substr(colon + 1);
    if (kind == "exec")
        return MakeProgram(rest, pace);
    if (description == "random")
        return MakeRandomPlayer();
    if (kind == "material")
        return MakeMaterialPlayer(NumberIn<int>(rest, description));
    if (kind != "level")
        throw std::invalid_argument("no such player: " + description);
    Pace own = pace;
    const std::size_t comma = rest.find(',');
    if (comma != std::string::npos) {
        const std::string option = rest.substr(comma + 1);
        rest.resize(comma);
        if (option.starts_with("nodes="))
            own.nodes = NumberIn<std::uint64_t>(option.substr(6), description);
        else if (option.starts_with("ms="))
            own = {NumberIn<int>(option.substr(3), description), 0};
        else
            throw std::invalid_argument("no such player: " + description);
    }
    return std::make_unique<LevelPlayer>(NumberIn<int>(rest, description), own);
}

} // namespace tarveth::match
