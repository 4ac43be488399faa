// The options dialog's copy of the settings, and what its buttons do.
#include "storage/clientoptions.h"

#include "platform/file_error.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace tarveth {
namespace {

// Every setting has a value of its own.
Settings Unusual() {
    Settings settings;
    settings.BoardVariant = kDraumeCrownBoard;
    settings.AnimateMoves = 0;
    settings.GridLabels = -1;
    settings.ZOCRight = 1;
    settings.History = 7;
    settings.AutoSaveLog = -3;
    settings.Nickname = "Anna";
    settings.UseNewUserSound = 5;
    settings.NewUserSound = "arrival.wav";
    settings.NewUserSoundDelay = 44;
    settings.SoundVictor = "victory.wav";
    settings.SoundLoser = "defeat.wav";
    settings.PictureScheme = "mine.tps";
    settings.BluePics = {"", "b1", "b2", "b3"};
    settings.RedPics = {"", "r1", "r2", "r3"};
    settings.BoardBlack = {1, 2, 3};
    settings.TranscriptFontName = "Serif";
    settings.TranscriptFontSize = 14;
    settings.TranscriptMyColor = 11;
    settings.TranscriptOppColor = 12;
    settings.TranscriptSysColor = 13;
    settings.TranscriptColor = 14;
    settings.UserListFontName = "Sans";
    settings.UserListFontSize = 15;
    settings.ChatTextFontName = "Mono";
    settings.ChatTextFontSize = 16;
    return settings;
}

ClientOptions OptionsOf(const Settings& settings) {
    ClientOptions options;
    CopyFromSettings(options, settings);
    return options;
}

template <std::size_t count>
std::vector<std::string> Captions(const std::array<const SettingRow*, count>& boxes) {
    std::vector<std::string> captions;
    captions.reserve(count);
    for (const SettingRow* row : boxes)
        captions.emplace_back(row->box.caption);
    return captions;
}

TEST(ClientOptions, HaveTheirCheckBoxesInTheOrderOfThePages) {
    EXPECT_EQ(Captions(CheckBoxesOf<kPlayPage>()),
              (std::vector<std::string>{"Animate Moves", "Show Grid Labels", "Show ZOC On Right Click",
                                        "Show Move History", "Auto-Save Move History At Game End"}));
    EXPECT_EQ(Captions(CheckBoxesOf<kSoundPage>()),
              std::vector<std::string>{"Play sound when new user logs on to server"});
}

TEST(ClientOptions, AreFilledFromTheSettings) {
    const ClientOptions options = OptionsOf(Unusual());
    EXPECT_EQ(options.PlayOptions, (std::array<std::int16_t, 5>{0, -1, 1, 7, -3}));
    EXPECT_EQ(options.PlaySounds[0], 5);
    EXPECT_EQ(options.Sounds, (std::array<std::string, 3>{"arrival.wav", "victory.wav", "defeat.wav"}));
    EXPECT_EQ(options.SampleColor, (std::array<std::int32_t, 4>{11, 12, 13, 14}));
    EXPECT_EQ(options.SampleFontName, (std::array<std::string, 3>{"Serif", "Sans", "Mono"}));
    EXPECT_EQ(options.SampleFontSize, (std::array<std::int16_t, 3>{14, 15, 16}));
    EXPECT_EQ(options.PictureScheme, "mine.tps");
    EXPECT_EQ(options.BluePics, (PictureNames{"", "b1", "b2", "b3"}));
    EXPECT_EQ(options.RedPics, (PictureNames{"", "r1", "r2", "r3"}));
    EXPECT_TRUE(options.Canceled);
}

TEST(ClientOptions, ThatAreCopiedBackUnchangedChangeNothing) {
    Settings settings = Unusual();
    CopyToSettings(OptionsOf(settings), settings);
    EXPECT_EQ(settings, Unusual());
}

TEST(ClientOptions, ComeBackIntoTheirSettingsAndNoOthers) {
    Settings settings;
    CopyToSettings(OptionsOf(Unusual()), settings);
    Settings expected = Unusual();
    expected.BoardVariant = kImperialBoard;
    expected.Nickname = "Bubba";
    expected.NewUserSoundDelay = 1;
    expected.BoardBlack = {0, 0, 0};
    EXPECT_EQ(settings, expected);
}

TEST(ClientOptions, ShowASoundWithoutAFileAsABeepAndKeepItEmpty) {
    Settings settings;
    ClientOptions options = OptionsOf(settings);
    options.Sounds[2] = "/sounds/defeat.wav";
    EXPECT_EQ(SoundText(options, 1), "<beep>");
    EXPECT_EQ(SoundText(options, 2), "/sounds/defeat.wav");
    CopyToSettings(options, settings);
    EXPECT_EQ(settings.SoundVictor, "");
    EXPECT_EQ(settings.SoundLoser, "/sounds/defeat.wav");
}

TEST(ClientOptions, ShowAFontAsItsSizeAndName) {
    ClientOptions options = OptionsOf({});
    EXPECT_EQ(FontText(options, 0), "8pt MS Sans Serif");
    options.SampleFontName[2] = "Times New Roman";
    options.SampleFontSize[2] = 14;
    EXPECT_EQ(FontText(options, 2), "14pt Times New Roman");
}

TEST(ClientOptions, ShowAPictureWithoutAFileAsNone) {
    EXPECT_EQ(PictureText(""), "[none]");
    EXPECT_EQ(PictureText("[none]"), "[none]");
    EXPECT_EQ(PictureText("a.bmp"), "a.bmp");
}

class SchemeButtons : public testing::Test {
protected:
    TempFolder folder;
    std::string file = folder.File("blue.tps");
    ClientOptions options = OptionsOf(Unusual());
    const ClientOptions before = options;
};

TEST_F(SchemeButtons, SaveUnderANameWithTheEndingAndLoadTheSixNamesAgain) {
    SavePictureScheme(options, SchemeFileName(folder.File("blue")));
    EXPECT_EQ(options.PictureScheme, file);
    ClientOptions others = OptionsOf({});
    LoadPictureScheme(others, file);
    EXPECT_EQ(others.PictureScheme, file);
    EXPECT_EQ(others.BluePics, before.BluePics);
    EXPECT_EQ(others.RedPics, before.RedPics);
}

TEST_F(SchemeButtons, LoadANameWithBlanksAroundIt) {
    PutBytes(file, "[Red]\r\n2Red=two.bmp\r\n");
    LoadPictureScheme(options, "  " + file + " ");
    EXPECT_EQ(options.PictureScheme, file);
    EXPECT_EQ(options.RedPics, (PictureNames{"", "r1", "two.bmp", "r3"}));
    EXPECT_EQ(options.BluePics, before.BluePics);
}

TEST_F(SchemeButtons, ForgetTheSchemeWhenTheFileIsNotThere) {
    for (const std::string& name : {file, std::string(), std::string("[none]"), folder.Name()}) {
        options = before;
        LoadPictureScheme(options, name);
        EXPECT_EQ(options.PictureScheme, "[none]") << name;
        EXPECT_EQ(options.BluePics, before.BluePics);
        EXPECT_EQ(options.RedPics, before.RedPics);
    }
}

TEST_F(SchemeButtons, KeepEverythingWhenTheFileIsTooLong) {
    PutBytes(file, std::string(2 << 20, ';'));
    EXPECT_THROW(LoadPictureScheme(options, file), platform::FileError);
    EXPECT_EQ(options, before);
}

TEST_F(SchemeButtons, KeepTheSchemeWhenItCannotBeSaved) {
    EXPECT_THROW(SavePictureScheme(options, folder.File("no/such/folder.tps")), platform::FileError);
    EXPECT_EQ(options, before);
}

TEST_F(SchemeButtons, ProposeTheSchemeInUse) {
    options.PictureScheme = " /pics/mine.tps ";
    EXPECT_EQ(ProposedSchemeName(options), "/pics/mine.tps");
    options.PictureScheme = "[none]";
    EXPECT_EQ(ProposedSchemeName(options), "");
}

TEST(SchemeName, GetsTheEndingUnlessItHasItInAnyCase) {
    EXPECT_EQ(SchemeFileName("blue"), "blue.tps");
    EXPECT_EQ(SchemeFileName(" blue.tps "), "blue.tps");
    EXPECT_EQ(SchemeFileName("BLUE.TPS"), "BLUE.TPS");
    EXPECT_EQ(SchemeFileName("blue.Tps"), "blue.Tps");
    EXPECT_EQ(SchemeFileName("blue.bmp"), "blue.bmp.tps");
    EXPECT_EQ(SchemeFileName("tps"), "tps.tps");
    EXPECT_EQ(SchemeFileName("   "), "");
}

} // namespace
} // namespace tarveth
