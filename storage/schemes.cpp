#include "storage/schemes.h"

#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "storage/modINI.h"
#include "text/trim.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace tarveth {

namespace {

constexpr std::uintmax_t kLargestScheme = 1 << 20; // what INI access takes at most

// Every section is registered before it is used, so the error reporter is never called.
modINI NewIni() {
    return modINI([](const std::string&, const std::string&) {});
}

// "1Blue" for kind 1 in the section "Blue".
std::string KeyOf(std::size_t kind, const std::string& section) {
    return std::to_string(kind) + section;
}

void ReadSection(modINI& ini, const std::string& section, const std::string& file, PictureNames& names) {
    ini.IniRegister(section, file);
    for (std::size_t kind = 1; kind < names.size(); ++kind)
        names[kind] = Trim(ini.IniGetString(KeyOf(kind, section), names[kind]));
}

bool WriteSection(modINI& ini, const std::string& section, const std::string& file,
                  const PictureNames& names) {
    ini.IniRegister(section, file);
    for (std::size_t kind = 1; kind < names.size(); ++kind)
        if (ini.IniPutString(KeyOf(kind, section), names[kind]) == 0)
            return false;
    return true;
}

bool FitsOneLine(const PictureNames& names) {
    constexpr std::string_view kLineEnds("\r\n\0", 3);
    return std::all_of(names.begin() + 1, names.end(), [&](const std::string& name) {
        return name.find_first_of(kLineEnds) == std::string::npos;
    });
}

} // namespace

void PictureSchemeRead(const std::string& pictureScheme, PictureNames& bluePics, PictureNames& redPics) {
    // INI access treats a file that cannot be read as an empty one. The user chose this file, so they are
    // told.
    platform::ReadWholeFile(Trim(pictureScheme), kLargestScheme);
    modINI ini = NewIni();
    ReadSection(ini, "Blue", pictureScheme, bluePics);
    ReadSection(ini, "Red", pictureScheme, redPics);
}

void PictureSchemeWrite(const std::string& pictureScheme, const PictureNames& bluePics,
                        const PictureNames& redPics) {
    // The check comes before the first key is put, since every key that was put is written by the flush.
    if (!FitsOneLine(bluePics) || !FitsOneLine(redPics))
        throw platform::FileError(pictureScheme, "cannot hold a file name of more than one line");
    modINI ini = NewIni();
    if (!WriteSection(ini, "Blue", pictureScheme, bluePics) ||
        !WriteSection(ini, "Red", pictureScheme, redPics) || !ini.IniFlush())
        throw platform::FileError(pictureScheme, ini.IniFailure());
}

} // namespace tarveth
