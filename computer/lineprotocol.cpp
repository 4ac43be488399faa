#include "computer/lineprotocol.h"

#include "computer/positionline.h"

#include <array>
#include <charconv>

namespace tarveth::computer {

namespace {

constexpr std::int64_t kLongestThought = std::int64_t{24} * 60 * 60 * 1000; // milliseconds

template <class Number>
std::optional<Number> NumberIn(std::string_view text, Number least, Number most) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < least || number > most)
        return std::nullopt;
    return number;
}

std::string Describe(const SearchResult& result) {
    std::string text = "bestturn " + WriteTurn(result.turn) + " depth " + std::to_string(result.depth) +
                       " score " + std::to_string(result.value) + " nodes " + std::to_string(result.nodes);
    if (!result.line.empty())
        text += " line";
    for (const SearchTurn turn : result.line)
        text += " " + WriteTurn(turn);
    return text;
}

} // namespace

LineProtocol::LineProtocol(int level) : player_(level, 1), record_(StartOf(kImperialBoard)) {}

std::optional<std::string> LineProtocol::Answer(std::string_view line) {
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    const std::size_t blank = line.find(' ');
    const std::string_view command = line.substr(0, blank);
    const std::string_view rest = blank == std::string_view::npos ? "" : line.substr(blank + 1);
    using Handler = std::string (LineProtocol::*)(std::string_view);
    static constexpr std::array<std::pair<std::string_view, Handler>, 7> kWithArgument{{
        {"newgame", &LineProtocol::NewGame},
        {"position", &LineProtocol::SetPosition},
        {"turn", &LineProtocol::PlayTurn},
        {"go", &LineProtocol::Go},
        {"level", &LineProtocol::SetLevel},
        {"seed", &LineProtocol::SetSeed},
        {"nodes", &LineProtocol::SetNodes},
    }};
    for (const auto& [name, handler] : kWithArgument)
        if (command == name)
            return (this->*handler)(rest);
    if (line == "quit")
        return std::nullopt;
    if (line == "turns")
        return Turns();
    if (line == "show")
        return "position " + WritePosition(record_.Rules());
    if (line == "result")
        return Result();
    return "error unknown command";
}

std::string LineProtocol::NewGame(std::string_view layout) {
    if (layout != "imperial" && layout != "draume")
        return "error newgame needs imperial or draume";
    record_ = GameRecord(StartOf(layout == "imperial" ? kImperialBoard : kDraumeCrownBoard));
    player_.BeginGame(seed_);
    return "ok";
}

std::string LineProtocol::SetPosition(std::string_view text) {
    const auto game = ReadPosition(text);
    if (!game)
        return "illegal position";
    record_ = GameRecord(*game);
    player_.BeginGame(seed_);
    return "ok";
}

std::string LineProtocol::PlayTurn(std::string_view text) {
    const SearchTurn turn = FindTurn(record_.Rules(), text);
    if (turn.IsNone())
        return "illegal " + std::string(text);
    record_.Play(turn);
    return "ok";
}

std::string LineProtocol::Go(std::string_view milliseconds) {
    const auto time = NumberIn<std::int64_t>(milliseconds, 0, kLongestThought);
    if (!time)
        return "error go needs milliseconds";
    if (record_.Rules().IsOver())
        return "bestturn none";
    Allowance allowance;
    if (nodes_ == 0)
        allowance.time = std::chrono::milliseconds(*time);
    allowance.nodes = nodes_;
    const SearchResult result = player_.Choose(record_.Position(), record_.Earlier(), allowance);
    return result.turn.IsNone() ? "bestturn none" : Describe(result);
}

std::string LineProtocol::Turns() const {
    std::string text = "turns";
    for (const SearchTurn turn : ListTurns(record_.Rules()))
        text += " " + WriteTurn(turn);
    return text;
}

std::string LineProtocol::Result() const {
    if (record_.Rules().HasLost(Red))
        return "result blue";
    if (record_.Rules().HasLost(Blue))
        return "result red";
    return ListTurns(record_.Rules()).empty() ? "result stuck" : "result none";
}

std::string LineProtocol::SetLevel(std::string_view number) {
    const auto level = NumberIn(number, kWeakestLevel, kStrongestLevel);
    if (!level)
        return "error level needs a number from 1 to 7";
    player_.SetLevel(*level);
    return "ok";
}

std::string LineProtocol::SetSeed(std::string_view number) {
    const auto seed = NumberIn<std::uint64_t>(number, 0, UINT64_MAX);
    if (!seed)
        return "error seed needs a number";
    seed_ = *seed;
    return "ok";
}

std::string LineProtocol::SetNodes(std::string_view number) {
    const auto nodes = NumberIn<std::uint64_t>(number, 0, UINT64_MAX);
    if (!nodes)
        return "error nodes needs a number";
    nodes_ = *nodes;
    return "ok";
}

} // namespace tarveth::computer
