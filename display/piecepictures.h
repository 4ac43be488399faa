// The six piece pictures in use, and the size of the squares that follows from them.
#pragma once

#include "display/pixels.h"
#include "storage/settings.h"

#include <array>
#include <string>
#include <vector>

namespace tarveth {

struct PiecePictures {
    // Indexed by PieceKind, 1 to 3.
    std::array<PixelBuffer, 4> picBlue, picRed;
    std::array<PixelBuffer, 4> picDefaultBlue, picDefaultRed; // the built-in pictures
    int SquareSize = 32; // the width of the Blue Master's picture, in pixels, once pictures are loaded

    // Reads the built-in pictures. LoadPiecePictures puts pictures to use.
    PiecePictures();

    // Loads the pictures that the settings name, and takes the built-in picture where there is no such file.
    // Relative names are looked up in each of the folders (with their trailing separators) in turn. A file
    // that exists but cannot be used gives the built-in picture and one sentence in the result.
    std::vector<std::string> LoadPiecePictures(const Settings& settings,
                                               const std::vector<std::string>& folders);

    // Gives the picture in use for a piece. Any side but Blue is Red; an unknown kind gives null.
    const PixelBuffer* Of(int side, int kind) const;
};

// Finds the file that a picture name stands for. A name with a drive or a share ("//" or ":" in it, or an
// absolute path of this system) is used as it is; any other is looked up in the folders in turn. Empty when
// there is no such file.
std::string FindPicture(const std::string& name, const std::vector<std::string>& folders);

} // namespace tarveth
