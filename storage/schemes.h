// Picture schemes: the names of the six piece pictures as an INI file with the sections "Blue" and "Red".
// What the reader forgives: everything that INI files forgive, missing sections and keys (those names stay as
// they are), and blanks around a name. Whether the pictures exist is not asked here.
#pragma once

#include <array>
#include <string>

namespace tarveth {

// The names of a side's picture files, indexed by PieceKind (1 to 3); "[none]" where there is no picture.
using PictureNames = std::array<std::string, 4>;

// Reads the picture names from the scheme file. Throws platform::FileError when it cannot be read or is
// longer than 1 MiB; the names are then unchanged.
void PictureSchemeRead(const std::string& pictureScheme, PictureNames& bluePics, PictureNames& redPics);

// Writes the picture names into the scheme file atomically; its other lines stay. Throws platform::FileError
// when it cannot be written or a name contains a line end; the file is then unchanged.
void PictureSchemeWrite(const std::string& pictureScheme, const PictureNames& bluePics,
                        const PictureNames& redPics);

} // namespace tarveth
