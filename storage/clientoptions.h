// What the options dialog holds while it is open: a copy of the settings it shows, and what its buttons do to
// that copy. The settings themselves change only when it is closed with Okay.
#pragma once

#include "storage/schemes.h"
#include "storage/settings.h"
#include "storage/settings_table.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tarveth {

inline constexpr char kBeep[] = "<beep>"; // how a sound without a file is shown

struct ClientOptions {
    std::array<std::int16_t, CountCheckBoxes(kPlayPage)> PlayOptions{}; // the page's check boxes, in order
    std::array<std::int16_t, CountCheckBoxes(kSoundPage)> PlaySounds{};
    std::array<std::string, 3> Sounds;            // new user, victory, defeat
    std::array<std::int32_t, 4> SampleColor{};    // mine, the opponent's, the system's, everybody else's
    std::array<std::string, 3> SampleFontName;    // transcript, user list, chat text
    std::array<std::int16_t, 3> SampleFontSize{}; // points
    std::string PictureScheme = kNoPicture;
    PictureNames BluePics, RedPics;
    bool Canceled = true; // anything but Okay leaves it so

    friend bool operator==(const ClientOptions&, const ClientOptions&) = default;
};

// Fill the options from the settings, and the settings from the options. "NewUserSoundDelay" is not among
// them: whoever wants another delay changes tarveth.ini.
void CopyFromSettings(ClientOptions& options, const Settings& settings);
void CopyToSettings(const ClientOptions& options, Settings& settings);

// What the boxes show: the file or "<beep>"; "14pt Times New Roman"; the file or "[none]".
std::string SoundText(const ClientOptions& options, std::size_t i);
std::string FontText(const ClientOptions& options, std::size_t i);
std::string PictureText(const std::string& name);

// Takes a scheme file and the pictures it names. A name that no file has gives "[none]" for the scheme and
// leaves the pictures. Throws platform::FileError when the file cannot be read; nothing changes then.
void LoadPictureScheme(ClientOptions& options, const std::string& chosenName);

// The name proposed for saving; empty without a scheme.
std::string ProposedSchemeName(const ClientOptions& options);
// The file that a chosen name means: without blanks around it and with ".tps" behind it, in any case; empty
// for none.
std::string SchemeFileName(const std::string& chosenName);
// Writes the scheme file and makes it the scheme in use. Throws platform::FileError when it cannot be
// written; nothing changes then.
void SavePictureScheme(ClientOptions& options, const std::string& fileName);

} // namespace tarveth
