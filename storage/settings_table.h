// The table of settings: where each stands in tarveth.ini, in Settings and, if it is a check box of the
// options dialog, there. File and dialog are made from these rows, so a new check box is one row here and the
// member of Settings that holds its default.
#pragma once

#include "storage/settings.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace tarveth {

using SettingMember = std::variant<std::int16_t*, std::int32_t*, std::string*>;

// The pages of the options dialog, in the order of its list.
enum OptionsPage : std::size_t { kPlayPage, kChatPage, kSoundPage, kPicturePage };

// Where a setting is a check box: the page, and which of that page's boxes it is, from 0, top to bottom.
struct CheckBox {
    OptionsPage page = kPlayPage;
    std::size_t index = 0;
    const char* caption = nullptr; // null for a setting without a check box
};

struct SettingRow {
    const char* section;
    const char* key;
    SettingMember (*member)(Settings&);
    CheckBox box = {};
};

// A member of the settings, or with `part` one of its elements or members.
template <auto member>
SettingMember At(Settings& settings) {
    return &(settings.*member);
}
template <auto member, auto part>
SettingMember At(Settings& settings) {
    if constexpr (std::is_member_pointer_v<decltype(part)>)
        return &(settings.*member.*part);
    else
        return &(settings.*member)[part];
}

// The rows of a section stand together, in the order in which its keys are written.
inline constexpr std::array kSettings = std::to_array<SettingRow>({
    {"Options", "GameBoard", At<&Settings::BoardVariant>},
    {"Options", "ZOCRight", At<&Settings::ZOCRight>, {kPlayPage, 2, "Show ZOC On Right Click"}},
    {"Options", "GridLabels", At<&Settings::GridLabels>, {kPlayPage, 1, "Show Grid Labels"}},
    {"Options", "AnimateMoves", At<&Settings::AnimateMoves>, {kPlayPage, 0, "Animate Moves"}},
    {"Options", "History", At<&Settings::History>, {kPlayPage, 3, "Show Move History"}},
    {"Options",
     "AutoSaveLog",
     At<&Settings::AutoSaveLog>,
     {kPlayPage, 4, "Auto-Save Move History At Game End"}},
    {"Options", "Nickname", At<&Settings::Nickname>},
    {"Sounds",
     "UseNewUserSound",
     At<&Settings::UseNewUserSound>,
     {kSoundPage, 0, "Play sound when new user logs on to server"}},
    {"Sounds", "NewUserSound", At<&Settings::NewUserSound>},
    {"Sounds", "NewUserSoundDelay", At<&Settings::NewUserSoundDelay>},
    {"Sounds", "SoundVictor", At<&Settings::SoundVictor>},
    {"Sounds", "SoundLoser", At<&Settings::SoundLoser>},
    {"Pictures", "PictureScheme", At<&Settings::PictureScheme>},
    {"Pictures", "1Blue", At<&Settings::BluePics, 1>},
    {"Pictures", "2Blue", At<&Settings::BluePics, 2>},
    {"Pictures", "3Blue", At<&Settings::BluePics, 3>},
    {"Pictures", "1Red", At<&Settings::RedPics, 1>},
    {"Pictures", "2Red", At<&Settings::RedPics, 2>},
    {"Pictures", "3Red", At<&Settings::RedPics, 3>},
    {"BoardBlack", "R", At<&Settings::BoardBlack, &BoardColor::R>},
    {"BoardBlack", "G", At<&Settings::BoardBlack, &BoardColor::G>},
    {"BoardBlack", "B", At<&Settings::BoardBlack, &BoardColor::B>},
    {"BoardWhite", "R", At<&Settings::BoardWhite, &BoardColor::R>},
    {"BoardWhite", "G", At<&Settings::BoardWhite, &BoardColor::G>},
    {"BoardWhite", "B", At<&Settings::BoardWhite, &BoardColor::B>},
    {"ClientOptions", "TranscriptFontName", At<&Settings::TranscriptFontName>},
    {"ClientOptions", "TranscriptFontSize", At<&Settings::TranscriptFontSize>},
    {"ClientOptions", "TranscriptMyColor", At<&Settings::TranscriptMyColor>},
    {"ClientOptions", "TranscriptOppColor", At<&Settings::TranscriptOppColor>},
    {"ClientOptions", "TranscriptSysColor", At<&Settings::TranscriptSysColor>},
    {"ClientOptions", "TranscriptColor", At<&Settings::TranscriptColor>},
    {"ClientOptions", "UserListFontName", At<&Settings::UserListFontName>},
    {"ClientOptions", "UserListFontSize", At<&Settings::UserListFontSize>},
    {"ClientOptions", "ChatTextFontName", At<&Settings::ChatTextFontName>},
    {"ClientOptions", "ChatTextFontSize", At<&Settings::ChatTextFontSize>},
    {"View", "LegalMoves", At<&Settings::LegalMoves>},
    {"View", "LastMove", At<&Settings::LastMove>},
    {"View", "Zones", At<&Settings::Zones>},
    {"View", "BothZones", At<&Settings::BothZones>},
    {"Game", "KeepAside", At<&Settings::KeepAside>},
    {"Game", "KeepGames", At<&Settings::KeepGames>},
    {"Game", "OwnSide", At<&Settings::OwnSide>},
    {"Game", "ComputerLevel", At<&Settings::ComputerLevel>},
});

// The sections that are written only once something in them is not as it is built in. Earlier releases do not
// know them, and a first tarveth.ini is to be as those wrote it.
inline constexpr std::array<std::string_view, 2> kLaterSections = {"View", "Game"};

constexpr bool IsInLaterSection(const SettingRow& row) {
    return std::ranges::find(kLaterSections, std::string_view(row.section)) != kLaterSections.end();
}

constexpr std::size_t CountCheckBoxes(OptionsPage page) {
    return static_cast<std::size_t>(std::ranges::count_if(kSettings, [page](const SettingRow& row) {
        return row.box.caption != nullptr && row.box.page == page;
    }));
}

// The settings that are check boxes of the page, by their index there. Two with the same index, or an index
// that leaves a gap, do not compile.
template <OptionsPage page>
constexpr auto CheckBoxesOf() {
    std::array<const SettingRow*, CountCheckBoxes(page)> rows{};
    for (const SettingRow& row : kSettings)
        if (row.box.caption != nullptr && row.box.page == page) {
            if (rows.at(row.box.index) != nullptr)
                throw std::logic_error("two check boxes with the same index");
            rows.at(row.box.index) = &row;
        }
    return rows;
}

} // namespace tarveth
