// tarveth-computer: the computer player as a program.
#include "computer/lineprotocol.h"
#include "version.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <iostream>
#include <string>

namespace {

void ServeProtocol(int level) {
    tarveth::computer::LineProtocol protocol(level);
    for (std::string line; std::getline(std::cin, line);) {
        const auto answer = protocol.Answer(line);
        if (!answer)
            return;
        std::cout << *answer << std::endl;
    }
}

} // namespace

int main(int count, char** arguments) try {
    CLI::App app("A player of Tarveth that thinks", "tarveth-computer");
    bool protocol = false;
    int level = tarveth::computer::kDefaultLevel;
    app.set_version_flag("--version", std::string("tarveth-computer ") + tarveth::kVersion);
    app.add_flag("--protocol", protocol, "Obey lines on standard input, so that programs can be matched")
        ->required();
    app.add_option("--level", level, "Playing strength")
        ->check(CLI::Range(tarveth::computer::kWeakestLevel, tarveth::computer::kStrongestLevel))
        ->capture_default_str();
    CLI11_PARSE(app, count, arguments);
    ServeProtocol(level);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "tarveth-computer: %s\n", error.what());
    return 1;
}
