// Counts the complete turns from a starting layout or a saved game, one line a depth.
#include "engine/rules/Game.h"
#include "engine/rules/perft.h"
#include "platform/file_error.h"
#include "storage/modFileIO.h"

#include <charconv>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr int kDeepest = 20;

constexpr std::string_view kUsage =
    "usage: tarveth-perft --layout imperial|draume --depth N\n"
    "       tarveth-perft --file GAME.TSG --depth N\n"
    "Prints for each depth 1 to N (at most 20) how many complete turns there are:\n"
    "depth turns own controlled captures own_captures returns wins\n";

struct Arguments {
    std::optional<std::int16_t> layout; // BoardVariant
    std::optional<std::string> file;
    int depth = 0;
};

std::optional<std::int16_t> LayoutNamed(std::string_view name) {
    if (name == "imperial")
        return tarveth::kImperialBoard;
    if (name == "draume")
        return tarveth::kDraumeCrownBoard;
    return std::nullopt;
}

std::optional<int> DepthOf(std::string_view text) {
    int depth = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), depth);
    if (error != std::errc() || end != text.data() + text.size() || depth < 1 || depth > kDeepest)
        return std::nullopt;
    return depth;
}

// Reads the arguments; gives nothing if they are not understood.
std::optional<Arguments> ReadArguments(int count, char** values) {
    Arguments arguments;
    if (count % 2 == 0)
        return std::nullopt;
    for (int i = 1; i < count; i += 2) {
        const std::string_view option = values[i];
        const std::string_view value = values[i + 1];
        if (option == "--layout" && !arguments.layout && (arguments.layout = LayoutNamed(value)))
            continue;
        if (option == "--file" && !arguments.file) {
            arguments.file = value;
            continue;
        }
        if (option != "--depth" || arguments.depth != 0 || !DepthOf(value))
            return std::nullopt;
        arguments.depth = *DepthOf(value);
    }
    if (arguments.depth == 0 || arguments.layout.has_value() == arguments.file.has_value())
        return std::nullopt;
    return arguments;
}

tarveth::Game StartOf(const Arguments& arguments) {
    if (arguments.file)
        return tarveth::ReadGame(*arguments.file);
    tarveth::Game game;
    tarveth::CreatePieces(game);
    tarveth::PlacePieces(game, *arguments.layout);
    game.Turn = tarveth::Blue;
    return game;
}

} // namespace

int main(int argumentCount, char** argumentValues) {
    const auto arguments = ReadArguments(argumentCount, argumentValues);
    if (!arguments) {
        std::cerr << kUsage;
        return 2;
    }
    try {
        const tarveth::Game game = StartOf(*arguments);
        for (int depth = 1; depth <= arguments->depth; ++depth) {
            const tarveth::TurnCounts n = tarveth::CountTurns(game, depth);
            std::cout << depth << ' ' << n.turns << ' ' << n.own << ' ' << n.controlled << ' ' << n.captures
                      << ' ' << n.ownCaptures << ' ' << n.returns << ' ' << n.wins << std::endl;
        }
    } catch (const tarveth::platform::FileError& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
