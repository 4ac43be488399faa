// The configuration file of tarveth-lobby: lines of "option = value" with the options of the command line,
// without their hyphens. A line that begins with "#" is a comment; a value may stand between double quotes.
#pragma once

#include <istream>
#include <string>
#include <vector>

namespace tarveth {

struct ConfigLine {
    int number = 0;   // of the line in the file, from 1
    std::string word; // "--option=value"; empty if the line has no "="
};

// Gives the lines that are neither empty nor comments.
std::vector<ConfigLine> ReadConfigLines(std::istream& file);

} // namespace tarveth
