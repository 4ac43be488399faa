#include "display/piecepictures.h"

#include "display/bitmap.h"
#include "display/builtin_pictures.h"
#include "engine/rules/modPieces.h"
#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/file_exists.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>

namespace tarveth {

namespace {

constexpr std::uintmax_t kLargestFile = 4'194'304; // bytes; more than a picture of the largest size has

PixelBuffer ReadPictureFile(const std::string& path) {
    const std::string bytes = platform::ReadWholeFile(path, kLargestFile);
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    return ReadBitmap({data, bytes.size()});
}

constexpr bool kSlashSystem = std::filesystem::path::preferred_separator == '/';

// Replaces backslashes on systems whose separator is "/", since a scheme file may come from Windows.
std::string WithOwnSeparators(std::string name) {
    if constexpr (kSlashSystem)
        std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

// Whether a name is used as it is. On purpose a share is marked by two forward slashes, not by backslashes.
bool StandsAlone(const std::string& name) {
    return name.find("//") != std::string::npos || name.find(':') != std::string::npos ||
           (kSlashSystem && name.front() == '/');
}

void Load(PixelBuffer& picture, const PixelBuffer& builtin, const std::string& path,
          std::vector<std::string>& problems) {
    picture = builtin;
    if (path.empty())
        return;
    try {
        picture = ReadPictureFile(path);
    } catch (const BitmapError& error) {
        problems.push_back("The picture " + path + ' ' + error.what() + '.');
    } catch (const platform::FileError& error) {
        problems.emplace_back(error.what());
    }
}

} // namespace

PiecePictures::PiecePictures() {
    for (int kind = Master; kind <= Pawn; ++kind) {
        const auto i = static_cast<std::size_t>(kind);
        picDefaultBlue[i] = ReadBitmap(BuiltinPicture(Blue, kind));
        picDefaultRed[i] = ReadBitmap(BuiltinPicture(Red, kind));
    }
}

std::vector<std::string> PiecePictures::LoadPiecePictures(const Settings& settings,
                                                          const std::vector<std::string>& folders) {
    std::vector<std::string> problems;
    for (std::size_t kind = Master; kind <= Pawn; ++kind)
        Load(picBlue[kind], picDefaultBlue[kind], FindPicture(settings.BluePics[kind], folders), problems);
    for (std::size_t kind = Master; kind <= Pawn; ++kind)
        Load(picRed[kind], picDefaultRed[kind], FindPicture(settings.RedPics[kind], folders), problems);
    SquareSize = picBlue[Master].Width();
    return problems;
}

const PixelBuffer* PiecePictures::Of(int side, int kind) const {
    if (kind < Master || kind > Pawn)
        return nullptr;
    return &(side == Blue ? picBlue : picRed)[static_cast<std::size_t>(kind)];
}

std::string FindPicture(const std::string& name, const std::vector<std::string>& folders) {
    if (name.empty())
        return {};
    const std::string path = WithOwnSeparators(name);
    if (StandsAlone(name))
        return platform::FileExists(path) ? path : std::string{};
    return platform::FindInFolders(path, folders);
}

} // namespace tarveth
