// Reads the settings from tarveth.ini and writes them back.
// The reader accepts a missing file and missing sections and keys (the setting keeps its value), names in
// capitals or small letters, any order, and unknown lines. A number that does not fit or is empty leaves the
// setting as it is and is reported as a SettingProblem.
#pragma once

#include "storage/modINI.h"
#include "storage/settings.h"

#include <string>
#include <vector>

namespace tarveth {

// What is wrong with one line of the file, and what was done about it.
struct SettingProblem {
    std::string section;
    std::string key;
    std::string value;
    std::string message;

    friend bool operator==(const SettingProblem&, const SettingProblem&) = default;
};

// Gives every setting its built-in value.
void SetDefaultSettings(Settings& settings);

// Read tarveth.ini in folder (which ends in its separator): the client window's fonts and colours with
// LoadClientOptions, all the rest with LoadSettings. The file cannot fail; the problems found are returned.
std::vector<SettingProblem> LoadSettings(Settings& settings, modINI& ini, const std::string& folder);
std::vector<SettingProblem> LoadClientOptions(Settings& settings, modINI& ini, const std::string& folder);

// Write every key of the same sections but kLaterSections, changed or not. They are on the disk after the
// next IniFlush.
void SaveSettings(const Settings& settings, modINI& ini, const std::string& folder);
void SaveClientOptions(const Settings& settings, modINI& ini, const std::string& folder);

// Writes those of kLaterSections whose settings are not what the file says, each with all its keys. To be
// called last, so that new sections stand at the end.
void SaveLaterSections(const Settings& settings, modINI& ini, const std::string& folder);

// The problems found in the file, each on a line of its own for standard error.
std::string ProblemLines(const std::vector<SettingProblem>& problems, const std::string& iniPath);

} // namespace tarveth
