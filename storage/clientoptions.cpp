#include "storage/clientoptions.h"

#include "platform/file_exists.h"
#include "text/foldcase.h"
#include "text/trim.h"

#include <algorithm>
#include <string_view>
#include <variant>

namespace tarveth {

namespace {

constexpr std::string_view kSchemeEnding = ".tps";

// Calls `copy` with each check box of a page and its setting in turn.
template <OptionsPage page, typename Values, typename Copy>
void ForEachCheckBox(Values& values, Settings& settings, Copy copy) {
    static constexpr auto kBoxes = CheckBoxesOf<page>();
    for (std::size_t i = 0; i < kBoxes.size(); ++i)
        copy(values[i], *std::get<std::int16_t*>(kBoxes[i]->member(settings)));
}

// Calls `copy` with each option and its setting in turn.
template <typename Options, typename Copy>
void ForEachPair(Options& options, Settings& settings, Copy copy) {
    ForEachCheckBox<kPlayPage>(options.PlayOptions, settings, copy);
    ForEachCheckBox<kSoundPage>(options.PlaySounds, settings, copy);
    copy(options.Sounds[0], settings.NewUserSound);
    copy(options.Sounds[1], settings.SoundVictor);
    copy(options.Sounds[2], settings.SoundLoser);
    copy(options.SampleColor[0], settings.TranscriptMyColor);
    copy(options.SampleColor[1], settings.TranscriptOppColor);
    copy(options.SampleColor[2], settings.TranscriptSysColor);
    copy(options.SampleColor[3], settings.TranscriptColor);
    copy(options.SampleFontName[0], settings.TranscriptFontName);
    copy(options.SampleFontSize[0], settings.TranscriptFontSize);
    copy(options.SampleFontName[1], settings.UserListFontName);
    copy(options.SampleFontSize[1], settings.UserListFontSize);
    copy(options.SampleFontName[2], settings.ChatTextFontName);
    copy(options.SampleFontSize[2], settings.ChatTextFontSize);
    copy(options.PictureScheme, settings.PictureScheme);
    for (std::size_t kind = 1; kind < options.BluePics.size(); ++kind)
        copy(options.BluePics[kind], settings.BluePics[kind]);
    for (std::size_t kind = 1; kind < options.RedPics.size(); ++kind)
        copy(options.RedPics[kind], settings.RedPics[kind]);
}

bool HasSchemeEnding(std::string_view name) {
    return FoldAscii(name).ends_with(kSchemeEnding);
}

} // namespace

void CopyFromSettings(ClientOptions& options, const Settings& settings) {
    Settings copied = settings; // the table of settings gives members that may be changed
    ForEachPair(options, copied, [](auto& option, const auto& setting) { option = setting; });
}

void CopyToSettings(const ClientOptions& options, Settings& settings) {
    ForEachPair(options, settings, [](const auto& option, auto& setting) { setting = option; });
}

std::string SoundText(const ClientOptions& options, std::size_t i) {
    return options.Sounds[i].empty() ? kBeep : options.Sounds[i];
}

std::string FontText(const ClientOptions& options, std::size_t i) {
    return std::to_string(options.SampleFontSize[i]) + "pt " + options.SampleFontName[i];
}

std::string PictureText(const std::string& name) {
    return name.empty() ? kNoPicture : name;
}

void LoadPictureScheme(ClientOptions& options, const std::string& chosenName) {
    const std::string name = Trim(chosenName);
    if (!platform::FileExists(name)) {
        options.PictureScheme = kNoPicture;
        return;
    }
    PictureSchemeRead(name, options.BluePics, options.RedPics);
    options.PictureScheme = name;
}

std::string ProposedSchemeName(const ClientOptions& options) {
    const std::string name = Trim(options.PictureScheme);
    return name == kNoPicture ? std::string() : name;
}

std::string SchemeFileName(const std::string& chosenName) {
    std::string name = Trim(chosenName);
    if (!name.empty() && !HasSchemeEnding(name))
        name += kSchemeEnding;
    return name;
}

void SavePictureScheme(ClientOptions& options, const std::string& fileName) {
    PictureSchemeWrite(fileName, options.BluePics, options.RedPics);
    options.PictureScheme = fileName;
}

} // namespace tarveth
