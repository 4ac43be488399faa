// Draws the manual's diagrams.
//
//   tarveth-diagram FILE.position FOLDER
//
// writes FILE.png (twice the size it is meant to be seen at), FILE.txt (fixed-width letters) and FILE.alt
// (its title) into the folder.

#include "tools/diagram/diagram.h"
#include "tools/diagram/picture.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include <png.h>

namespace {

using tarveth::Pixel;
using tarveth::PixelBuffer;
using tarveth::diagram::Diagram;

void WritePng(const PixelBuffer& pixels, const std::filesystem::path& file) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(pixels.ByteCount());
    for (int y = 0; y < pixels.Height(); ++y) {
        for (int x = 0; x < pixels.Width(); ++x) {
            const Pixel pixel = pixels.At(x, y);
            for (const int component :
                 {tarveth::RedOf(pixel), tarveth::GreenOf(pixel), tarveth::BlueOf(pixel)})
                bytes.push_back(static_cast<std::uint8_t>(component));
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(pixels.Width());
    image.height = static_cast<png_uint_32>(pixels.Height());
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, file.c_str(), 0, bytes.data(), 0, nullptr) == 0)
        throw std::runtime_error(file.string() + ": " + static_cast<const char*>(image.message));
}

void WriteLines(const std::vector<std::string>& lines, const std::filesystem::path& file) {
    std::ofstream out(file);
    for (const std::string& line : lines)
        out << line << '\n';
    if (!out.flush())
        throw std::runtime_error(file.string() + " cannot be written");
}

void Run(const std::filesystem::path& position, const std::filesystem::path& folder) {
    std::ifstream file(position);
    if (!file)
        throw std::runtime_error("it cannot be opened");
    const Diagram diagram = tarveth::diagram::ReadDiagram(file);
    std::filesystem::path out = folder / position.stem();
    WritePng(PictureOf(diagram), out.replace_extension(".png"));
    WriteLines(TextOf(diagram), out.replace_extension(".txt"));
    WriteLines({diagram.title}, out.replace_extension(".alt"));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "Usage: tarveth-diagram FILE.position FOLDER\n";
        return 2;
    }
    try {
        Run(argv[1], argv[2]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "tarveth-diagram: " << argv[1] << ": " << error.what() << '\n';
        return 1;
    }
}
