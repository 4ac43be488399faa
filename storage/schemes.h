// Picture schemes: the names of the six piece pictures as an INI file with the sections "Blue" and "Red".
// What the reader forgives: everything that INI files forgive, missing sections and keys (those names stay as
// they are), and blanks around a name. Whether the pictures exist is not asked here.
#pragma once

#include <array>
#include <string>

namespace tarveth {

// A side's picture files by PieceKind, 1 to 3; "[none]" where there is none.
using PictureNames = std::array<std::string, 4>;

// Takes the names from the scheme file. Throws platform::FileError when it cannot be read or is longer than
// 1 MiB; the names are then as they were.
void PictureSchemeRead(const std::string& pictureScheme, PictureNames& bluePics, PictureNames& redPics);

// Puts the names into the scheme file, in one piece; other lines that it has stay. Throws platform::FileError
// when it cannot be written or a name holds a line's end; the file is then as it was.
void PictureSchemeWrite(const std::string& pictureScheme, const PictureNames& bluePics,
                        const PictureNames& redPics);

} // namespace tarveth
