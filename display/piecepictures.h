// The six piece pictures in use, and how large they make a square.
#pragma once

#include "display/pixels.h"
#include "storage/settings.h"

#include <array>
#include <string>
#include <vector>

namespace tarveth {

struct PiecePictures {
    // by PieceKind, 1 to 3
    std::array<PixelBuffer, 4> picBlue, picRed;
    std::array<PixelBuffer, 4> picDefaultBlue, picDefaultRed; // built in, never changed
    int SquareSize = 32; // pixels; the width of the Blue Master's picture once pictures are loaded

    // Reads the built-in pictures; none is in use yet.
    PiecePictures();

    // Takes the pictures that the settings name, the built-in one where no such file is. Relative names are
    // looked up in each of the folders (with their trailing separators) in turn. A file that is there but
    // cannot be used gives the built-in picture and one sentence in the result.
    std::vector<std::string> LoadPiecePictures(const Settings& settings,
                                               const std::vector<std::string>& folders);

    // The picture in use for a piece: Blue's for side 1, Red's for any other; null for a kind outside 1 to 3.
    const PixelBuffer* Of(int side, int kind) const;
};

// The file a picture name means: the name itself when it names a drive or a share ("//", ":", or an absolute
// path of this system), otherwise the first of the folders in which there is one; empty when there is no
// file.
std::string FindPicture(const std::string& name, const std::vector<std::string>& folders);

} // namespace tarveth
