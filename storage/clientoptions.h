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
    bool Canceled = true; // false only after Okay

    friend bool operator==(const ClientOptions&, const ClientOptions&) = default;
};

// Fill the options from the settings, and the settings from the options. "NewUserSoundDelay" is no option of
// the dialog: a user who wants another delay changes tarveth.ini.
void CopyFromSettings(ClientOptions& options, const Settings& settings);
void CopyToSettings(const ClientOptions& options, Settings& settings);

// Give what the dialog's boxes show: the sound file or "<beep>"; size and name of a font, as in
// "14pt Times New Roman"; the picture file or "[none]".
std::string SoundText(const ClientOptions& options, std::size_t i);
std::string FontText(const ClientOptions& options, std::size_t i);
std::string PictureText(const std::string& name);

// Puts a scheme file and the pictures it names into the options. Where there is no such file, the scheme
// becomes "[none]" and the pictures stay. Throws platform::FileError when the file cannot be read; the
// options are then unchanged.
void LoadPictureScheme(ClientOptions& options, const std::string& chosenName);

// Gives the file name that a dialog proposes for saving; empty while no scheme is in use.
std::string ProposedSchemeName(const ClientOptions& options);
// Gives the file that a chosen name means: without the blanks around it, and with ".tps" added unless it ends
// in that, in capitals or small letters. Empty for a name of blanks alone.
std::string SchemeFileName(const std::string& chosenName);
// Writes the scheme file and makes it the scheme in use. Throws platform::FileError when it cannot be
// written; the options are then unchanged.
void SavePictureScheme(ClientOptions& options, const std::string& fileName);

} // namespace tarveth
