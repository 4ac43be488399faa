// The user's settings: their names, their built-in values, and their way from and to tarveth.ini.
// What the reader forgives: missing file, sections and keys (the setting stays as it is), any case, any
// order, unknown lines. A number that does not fit is told as a SettingProblem and changes nothing.
#pragma once

#include "storage/modINI.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tarveth {

// The colour of one kind of board square; meant to be 0 to 255, kept as read.
struct BoardColor {
    std::int16_t R = 0;
    std::int16_t G = 0;
    std::int16_t B = 0;

    friend bool operator==(const BoardColor&, const BoardColor&) = default;
};

// Yes-or-no settings hold the number that was read: -1 is written for yes, and any other than 0 means it.
// Colours are red + green * 256 + blue * 65536.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): the members stand in the order of the file
struct Settings {
    std::int16_t BoardVariant = 1; // 1 Imperial, any other Draume Crown
    std::int16_t ZOCRight = -1;
    std::int16_t GridLabels = 0;
    std::int16_t AnimateMoves = -1;
    std::int16_t History = 0;
    std::int16_t AutoSaveLog = 0;
    std::string Nickname = "Bubba";

    std::int16_t UseNewUserSound = 0;
    std::string NewUserSound; // a WAV file, or "<beep>"
    std::int16_t NewUserSoundDelay = 1;
    std::string SoundVictor;
    std::string SoundLoser;

    std::string PictureScheme = "[none]";
    std::array<std::string, 4> BluePics = {"", "[none]", "[none]", "[none]"}; // by PieceKind, 1 to 3
    std::array<std::string, 4> RedPics = {"", "[none]", "[none]", "[none]"};

    BoardColor BoardBlack = {0, 0, 0};
    BoardColor BoardWhite = {255, 255, 255};

    std::string TranscriptFontName = "MS Sans Serif";
    std::int16_t TranscriptFontSize = 8; // sizes in points
    std::int32_t TranscriptMyColor = 32768;
    std::int32_t TranscriptOppColor = 0;
    std::int32_t TranscriptSysColor = 8388736;
    std::int32_t TranscriptColor = 0;
    std::string UserListFontName = "MS Sans Serif";
    std::int16_t UserListFontSize = 8;
    std::string ChatTextFontName = "MS Sans Serif";
    std::int16_t ChatTextFontSize = 8;

    friend bool operator==(const Settings&, const Settings&) = default;
};

// What is wrong with one line of the file, and what was done about it.
struct SettingProblem {
    std::string section;
    std::string key;
    std::string value;
    std::string message;

    friend bool operator==(const SettingProblem&, const SettingProblem&) = default;
};

struct SettingName {
    const char* section;
    const char* key;
};

// Every setting's place in the file: those of LoadSettings in their order, then those of LoadClientOptions.
std::vector<SettingName> AllSettingNames();

// Gives every setting its built-in value.
void SetDefaultSettings(Settings& settings);

// Read tarveth.ini in folder (which ends in its separator): the client window's fonts and colours with
// LoadClientOptions, all the rest with LoadSettings. The file cannot fail; the problems found are returned.
std::vector<SettingProblem> LoadSettings(Settings& settings, modINI& ini, const std::string& folder);
std::vector<SettingProblem> LoadClientOptions(Settings& settings, modINI& ini, const std::string& folder);

// Write every key of the same sections, changed or not. They are on the disk after the next IniFlush.
void SaveSettings(const Settings& settings, modINI& ini, const std::string& folder);
void SaveClientOptions(const Settings& settings, modINI& ini, const std::string& folder);

// One message for the user about all the problems found in the file; empty when there are none.
std::string ProblemText(const std::vector<SettingProblem>& problems, const std::string& iniPath);

} // namespace tarveth
