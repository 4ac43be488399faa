// What must hold for a picture scheme of any bytes: six names can be read, and those that one line can hold
// are written and read back. Shared by the fuzz target and the test that replays its corpus.
#pragma once

#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/profile_line.h"
#include "storage/schemes.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>

namespace tarveth {

// A name that a file gave back as it stands, and that is no longer than what reading gives.
inline bool IsPlainName(const std::string& name) {
    return name.size() <= 254 && (name.empty() || (name.front() != ' ' && name.back() != ' '));
}

// INI values lose the quotes around them, and the odd blank, each time they are read.
inline bool StaysAsItIs(const std::string& name) {
    return platform::BareValue(name) == name;
}

// What is broken for a scheme of these bytes; nothing if all is well. `file` is overwritten.
inline std::string SchemeFault(std::string_view bytes, const std::string& file) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
    PictureNames blue = {"", "b1", "b2", "b3"};
    PictureNames red = {"", "r1", "r2", "r3"};
    PictureSchemeRead(file, blue, red);
    const auto all = [&](auto holds) {
        return std::all_of(blue.begin() + 1, blue.end(), holds) &&
               std::all_of(red.begin() + 1, red.end(), holds);
    };
    if (!all(IsPlainName))
        return "a name is too long or has blanks around it";
    try {
        PictureSchemeWrite(file, blue, red);
    } catch (const platform::FileError&) {
        return platform::ReadWholeFile(file, bytes.size()) == bytes ? "" : "a refused write changed the file";
    }
    PictureNames blueAgain = {"", "x", "x", "x"};
    PictureNames redAgain = blueAgain;
    PictureSchemeRead(file, blueAgain, redAgain);
    if (all(StaysAsItIs) && (blueAgain != blue || redAgain != red))
        return "a name did not read back";
    return "";
}

} // namespace tarveth
