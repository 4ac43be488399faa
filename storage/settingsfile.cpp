#include "storage/settingsfile.h"

#include "platform/profile_integer.h"
#include "text/trim.h"

#include <limits>
#include <span>
#include <string_view>
#include <variant>

namespace tarveth {

namespace {

using Member = std::variant<std::int16_t*, std::int32_t*, std::string*>;

// One setting: its place in the file and its place in the settings. Reader and writer go through the same
// rows.
struct Row {
    const char* section;
    const char* key;
    Member (*member)(Settings&);
};

constexpr Row kSettings[] = {
    {"Options", "GameBoard", [](Settings& s) -> Member { return &s.BoardVariant; }},
    {"Options", "ZOCRight", [](Settings& s) -> Member { return &s.ZOCRight; }},
    {"Options", "GridLabels", [](Settings& s) -> Member { return &s.GridLabels; }},
    {"Options", "AnimateMoves", [](Settings& s) -> Member { return &s.AnimateMoves; }},
    {"Options", "History", [](Settings& s) -> Member { return &s.History; }},
    {"Options", "AutoSaveLog", [](Settings& s) -> Member { return &s.AutoSaveLog; }},
    {"Options", "Nickname", [](Settings& s) -> Member { return &s.Nickname; }},
    {"Sounds", "UseNewUserSound", [](Settings& s) -> Member { return &s.UseNewUserSound; }},
    {"Sounds", "NewUserSound", [](Settings& s) -> Member { return &s.NewUserSound; }},
    {"Sounds", "NewUserSoundDelay", [](Settings& s) -> Member { return &s.NewUserSoundDelay; }},
    {"Sounds", "SoundVictor", [](Settings& s) -> Member { return &s.SoundVictor; }},
    {"Sounds", "SoundLoser", [](Settings& s) -> Member { return &s.SoundLoser; }},
    {"Pictures", "PictureScheme", [](Settings& s) -> Member { return &s.PictureScheme; }},
    {"Pictures", "1Blue", [](Settings& s) -> Member { return &s.BluePics[1]; }},
    {"Pictures", "2Blue", [](Settings& s) -> Member { return &s.BluePics[2]; }},
    {"Pictures", "3Blue", [](Settings& s) -> Member { return &s.BluePics[3]; }},
    {"Pictures", "1Red", [](Settings& s) -> Member { return &s.RedPics[1]; }},
    {"Pictures", "2Red", [](Settings& s) -> Member { return &s.RedPics[2]; }},
    {"Pictures", "3Red", [](Settings& s) -> Member { return &s.RedPics[3]; }},
    {"BoardBlack", "R", [](Settings& s) -> Member { return &s.BoardBlack.R; }},
    {"BoardBlack", "G", [](Settings& s) -> Member { return &s.BoardBlack.G; }},
    {"BoardBlack", "B", [](Settings& s) -> Member { return &s.BoardBlack.B; }},
    {"BoardWhite", "R", [](Settings& s) -> Member { return &s.BoardWhite.R; }},
    {"BoardWhite", "G", [](Settings& s) -> Member { return &s.BoardWhite.G; }},
    {"BoardWhite", "B", [](Settings& s) -> Member { return &s.BoardWhite.B; }},
};

constexpr Row kClientOptions[] = {
    {"ClientOptions", "TranscriptFontName", [](Settings& s) -> Member { return &s.TranscriptFontName; }},
    {"ClientOptions", "TranscriptFontSize", [](Settings& s) -> Member { return &s.TranscriptFontSize; }},
    {"ClientOptions", "TranscriptMyColor", [](Settings& s) -> Member { return &s.TranscriptMyColor; }},
    {"ClientOptions", "TranscriptOppColor", [](Settings& s) -> Member { return &s.TranscriptOppColor; }},
    {"ClientOptions", "TranscriptSysColor", [](Settings& s) -> Member { return &s.TranscriptSysColor; }},
    {"ClientOptions", "TranscriptColor", [](Settings& s) -> Member { return &s.TranscriptColor; }},
    {"ClientOptions", "UserListFontName", [](Settings& s) -> Member { return &s.UserListFontName; }},
    {"ClientOptions", "UserListFontSize", [](Settings& s) -> Member { return &s.UserListFontSize; }},
    {"ClientOptions", "ChatTextFontName", [](Settings& s) -> Member { return &s.ChatTextFontName; }},
    {"ClientOptions", "ChatTextFontSize", [](Settings& s) -> Member { return &s.ChatTextFontSize; }},
};

// Registers a row's section when it is another than the last one's.
class SectionRegister {
public:
    SectionRegister(modINI& ini, const std::string& folder) : ini_(ini), file_(folder + "tarveth.ini") {}

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

std::vector<SettingProblem> Load(std::span<const Row> rows, Settings& settings, modINI& ini,
                                 const std::string& folder) {
    std::vector<SettingProblem> problems;
    SectionRegister sections(ini, folder);
    for (const Row& row : rows) {
        sections.Enter(row.section);
        Reader reader{ini, row.key};
        std::string wrong = std::visit(reader, row.member(settings));
        if (!wrong.empty())
            problems.push_back({row.section, row.key, reader.text, std::move(wrong)});
    }
    return problems;
}

void Save(std::span<const Row> rows, Settings settings, modINI& ini, const std::string& folder) {
    SectionRegister sections(ini, folder);
    for (const Row& row : rows) {
        sections.Enter(row.section);
        std::visit(Writer{ini, row.key}, row.member(settings));
    }
}

} // namespace

std::vector<SettingName> AllSettingNames() {
    std::vector<SettingName> names;
    for (const std::span<const Row> rows :
         {std::span<const Row>(kSettings), std::span<const Row>(kClientOptions)})
        for (const Row& row : rows)
            names.push_back({row.section, row.key});
    return names;
}

void SetDefaultSettings(Settings& settings) {
    settings = Settings();
}

std::vector<SettingProblem> LoadSettings(Settings& settings, modINI& ini, const std::string& folder) {
    return Load(kSettings, settings, ini, folder);
}

std::vector<SettingProblem> LoadClientOptions(Settings& settings, modINI& ini, const std::string& folder) {
    return Load(kClientOptions, settings, ini, folder);
}

void SaveSettings(const Settings& settings, modINI& ini, const std::string& folder) {
    Save(kSettings, settings, ini, folder);
}

void SaveClientOptions(const Settings& settings, modINI& ini, const std::string& folder) {
    Save(kClientOptions, settings, ini, folder);
}

std::string ProblemLines(const std::vector<SettingProblem>& problems, const std::string& iniPath) {
    std::string lines;
    for (const SettingProblem& problem : problems)
        lines += "tarveth: " + iniPath + ": [" + problem.section + "] " + problem.key + ": " +
                 problem.message + "\n";
    return lines;
}

} // namespace tarveth
