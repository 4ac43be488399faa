#include "storage/settingsfile.h"

#include "platform/profile_integer.h"
#include "storage/settings_table.h"
#include "text/trim.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <type_traits>
#include <variant>

namespace tarveth {

namespace {

// Registers a row's section when it is another than the last one's.
class SectionRegister {
public:
    SectionRegister(modINI& ini, const std::string& folder) : ini_(ini), file_(folder + kSettingsFile) {}

    void Enter(std::string_view section) {
        if (section == current_)
            return;
        ini_.IniRegister(std::string(section), file_);
        current_ = section;
    }

private:
    modINI& ini_;
    std::string file_;
    std::string_view current_;
};

// Reads one setting. Gives what is wrong with its text, nothing when all is well.
struct Reader {
    modINI& ini;
    const std::string key;
    std::string text = {}; // of a number, as it stands in the file

    std::string operator()(std::string* setting) {
        *setting = Trim(ini.IniGetString(key, *setting));
        return {};
    }

    template <typename Number>
    std::string operator()(Number* setting) {
        using Limits = std::numeric_limits<Number>;
        // The platform gives numbers modulo 2^32, so the text itself is asked whether it fits.
        text = ini.IniGetString(key, std::to_string(*setting));
        const platform::ProfileInteger read = platform::ReadProfileInteger(text);
        std::string wrong;
        if (read.value < Limits::min() || read.value > Limits::max())
            wrong = "not between " + std::to_string(Limits::min()) + " and " + std::to_string(Limits::max());
        else
            *setting = static_cast<Number>(ini.IniGetInt(key, *setting));
        if (!read.hasDigits)
            wrong = "not a number";
        if (!wrong.empty())
            wrong = "\"" + text + "\" is " + wrong + "; " + std::to_string(*setting) + " is used.";
        return wrong;
    }
};

struct Writer {
    modINI& ini;
    const std::string key;

    void operator()(const std::string* setting) const { ini.IniPutString(key, *setting); }
    template <typename Number>
    void operator()(const Number* setting) const {
        ini.IniPutNumber(key, *setting);
    }
};

// Which rows of the table one procedure reads or writes.
using Choice = bool (*)(const SettingRow&);

bool IsClientOption(const SettingRow& row) {
    return row.section == std::string_view("ClientOptions");
}

bool IsNoClientOption(const SettingRow& row) {
    return !IsClientOption(row);
}

bool IsAlwaysWritten(const SettingRow& row) {
    return IsNoClientOption(row) && !IsInLaterSection(row);
}

std::vector<SettingProblem> Load(Choice chosen, Settings& settings, modINI& ini, const std::string& folder) {
    std::vector<SettingProblem> problems;
    SectionRegister sections(ini, folder);
    for (const SettingRow& row : kSettings) {
        if (!chosen(row))
            continue;
        sections.Enter(row.section);
        Reader reader{ini, row.key};
        std::string wrong = std::visit(reader, row.member(settings));
        if (!wrong.empty())
            problems.push_back({row.section, row.key, reader.text, std::move(wrong)});
    }
    return problems;
}

template <typename Chosen>
void Save(Chosen chosen, Settings settings, modINI& ini, const std::string& folder) {
    SectionRegister sections(ini, folder);
    for (const SettingRow& row : kSettings) {
        if (!chosen(row))
            continue;
        sections.Enter(row.section);
        std::visit(Writer{ini, row.key}, row.member(settings));
    }
}

// Whether a member has another value in each of the two.
bool Differ(const SettingRow& row, Settings& one, Settings& other) {
    return std::visit(
        [](const auto* a, const auto* b) {
            if constexpr (std::is_same_v<decltype(a), decltype(b)>)
                return *a != *b;
            else
                return true;
        },
        row.member(one), row.member(other));
}

// Whether the section of the file says something else than the settings. A missing key says its built-in
// value.
bool IsOutOfDate(std::string_view section, Settings settings, modINI& ini, const std::string& folder) {
    Settings inFile;
    LoadSettings(inFile, ini, folder);
    return std::ranges::any_of(kSettings, [&](const SettingRow& row) {
        return row.section == section && Differ(row, settings, inFile);
    });
}

} // namespace

void SetDefaultSettings(Settings& settings) {
    settings = Settings();
}

std::vector<SettingProblem> LoadSettings(Settings& settings, modINI& ini, const std::string& folder) {
    return Load(IsNoClientOption, settings, ini, folder);
}

std::vector<SettingProblem> LoadClientOptions(Settings& settings, modINI& ini, const std::string& folder) {
    return Load(IsClientOption, settings, ini, folder);
}

void SaveSettings(const Settings& settings, modINI& ini, const std::string& folder) {
    Save(IsAlwaysWritten, settings, ini, folder);
}

void SaveLaterSections(const Settings& settings, modINI& ini, const std::string& folder) {
    for (const std::string_view section : kLaterSections)
        if (IsOutOfDate(section, settings, ini, folder))
            Save([section](const SettingRow& row) { return row.section == section; }, settings, ini, folder);
}

void SaveClientOptions(const Settings& settings, modINI& ini, const std::string& folder) {
    Save(IsClientOption, settings, ini, folder);
}

std::string ProblemLines(const std::vector<SettingProblem>& problems, const std::string& iniPath) {
    std::string lines;
    for (const SettingProblem& problem : problems)
        lines += "tarveth: " + iniPath + ": [" + problem.section + "] " + problem.key + ": " +
                 problem.message + "\n";
    return lines;
}

} // namespace tarveth
