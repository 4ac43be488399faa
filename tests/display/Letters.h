// Small pictures in the form of text, one letter for each pixel.
#pragma once

#include "display/pixels.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth::test {

struct Letter {
    char name;
    Pixel colour;
};

// '.' is the key green; '~' differs from it by one.
inline constexpr Letter kLetters[] = {
    {'.', kKeyGreen},        {'~', Rgb(0, 254, 0)}, {'r', Rgb(255, 0, 0)},    {'b', Rgb(0, 0, 255)},
    {'y', Rgb(255, 255, 0)}, {'k', Rgb(0, 0, 0)},   {'w', Rgb(255, 255, 255)}};

// Makes a picture from rows of equal length. Throws std::invalid_argument for a letter that stands for no
// colour.
inline PixelBuffer Picture(const std::vector<std::string_view>& rows) {
    PixelBuffer picture(rows.empty() ? 0 : static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x) {
            const char name = rows[static_cast<std::size_t>(y)].at(static_cast<std::size_t>(x));
            const Letter* letter = std::begin(kLetters);
            while (letter != std::end(kLetters) && letter->name != name)
                ++letter;
            if (letter == std::end(kLetters))
                throw std::invalid_argument("no such colour");
            picture.At(x, y) = letter->colour;
        }
    return picture;
}

// Gives the text of a picture, with '?' for a colour that no letter stands for.
inline std::vector<std::string> TextOf(const PixelBuffer& picture) {
    std::vector<std::string> rows;
    for (int y = 0; y < picture.Height(); ++y) {
        std::string row;
        for (int x = 0; x < picture.Width(); ++x) {
            char name = '?';
            for (const Letter& letter : kLetters)
                if (letter.colour == picture.At(x, y))
                    name = letter.name;
            row += name;
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace tarveth::test
