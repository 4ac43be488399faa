// The values of the settings: defaults, values from the file, and values that are refused.
#include "storage/settingsfile.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

class SettingsValues : public testing::Test {
protected:
    // Gives the settings after a start with this file, and stores the problems of both readers.
    Settings Start(std::string_view bytes) {
        PutBytes(folder.File("tarveth.ini"), bytes);
        Settings settings;
        SetDefaultSettings(settings);
        problems = LoadSettings(settings, ini, folder.Name());
        const auto more = LoadClientOptions(settings, ini, folder.Name());
        problems.insert(problems.end(), more.begin(), more.end());
        return settings;
    }

    TempFolder folder;
    modINI ini{[](const std::string& text, const std::string&) { ADD_FAILURE() << text; }};
    std::vector<SettingProblem> problems;
};

TEST_F(SettingsValues, WithoutAFileAreTheDefaults) {
    Settings settings;
    settings.Nickname = "left over";
    SetDefaultSettings(settings);
    EXPECT_TRUE(LoadSettings(settings, ini, folder.Name()).empty());
    EXPECT_TRUE(LoadClientOptions(settings, ini, folder.Name()).empty());

    EXPECT_EQ(settings.BoardVariant, kImperialBoard);
    EXPECT_EQ(settings.ZOCRight, -1);
    EXPECT_EQ(settings.GridLabels, 0);
    EXPECT_EQ(settings.AnimateMoves, -1);
    EXPECT_EQ(settings.History, 0);
    EXPECT_EQ(settings.AutoSaveLog, 0);
    EXPECT_EQ(settings.Nickname, "Bubba");
    EXPECT_EQ(settings.UseNewUserSound, 0);
    EXPECT_EQ(settings.NewUserSound, "");
    EXPECT_EQ(settings.NewUserSoundDelay, 1);
    EXPECT_EQ(settings.SoundVictor + settings.SoundLoser, "");
    EXPECT_EQ(settings.PictureScheme, "[none]");
    EXPECT_EQ(settings.BluePics, (std::array<std::string, 4>{"", "[none]", "[none]", "[none]"}));
    EXPECT_EQ(settings.RedPics, settings.BluePics);
    EXPECT_EQ(settings.BoardBlack, (BoardColor{0, 0, 0}));
    EXPECT_EQ(settings.BoardWhite, (BoardColor{255, 255, 255}));
    EXPECT_EQ(settings.TranscriptMyColor, 0 + 128 * 256 + 0 * 65536);
    EXPECT_EQ(settings.TranscriptOppColor, 0);
    EXPECT_EQ(settings.TranscriptSysColor, 128 + 0 * 256 + 128 * 65536);
    EXPECT_EQ(settings.TranscriptColor, 0);
    for (const auto& font :
         {settings.TranscriptFontName, settings.UserListFontName, settings.ChatTextFontName})
        EXPECT_EQ(font, "MS Sans Serif");
    for (const auto size :
         {settings.TranscriptFontSize, settings.UserListFontSize, settings.ChatTextFontSize})
        EXPECT_EQ(size, 8);
    EXPECT_EQ(folder.FileCount(), 0u);
}

TEST_F(SettingsValues, AFileWithSomeKeysKeepsTheDefaultsForTheOthers) {
    Settings expected;
    expected.GridLabels = -1;
    expected.RedPics[2] = "pics/red.bmp";
    expected.TranscriptColor = 255;
    EXPECT_EQ(Start("[options]\ngridlabels=-1\n[Pictures]\n2RED=pics/"
                    "red.bmp\n[ClientOptions]\nTranscriptColor=255\n"),
              expected);
    EXPECT_TRUE(problems.empty());
}

TEST_F(SettingsValues, AStringIsReadTrimmed) {
    EXPECT_EQ(Start("[Options]\r\nNickname=  Bubba  \r\n").Nickname, "Bubba");
    EXPECT_EQ(Start("[Options]\r\nNickname=\"  Ann  \"\r\n").Nickname, "Ann");
    EXPECT_EQ(Start("[Options]\r\nNickname=\r\n").Nickname, "");
}

TEST_F(SettingsValues, ABooleanWrittenByHandAs1IsReadAs1) {
    EXPECT_EQ(Start("[Options]\r\nHistory=1\r\n").History, 1);
    EXPECT_TRUE(Start("[Options]\r\nHistory=1\r\n").ShowsHistory());
    EXPECT_TRUE(problems.empty());
}

TEST_F(SettingsValues, NoRangeIsChecked) {
    const Settings settings =
        Start("[Options]\r\nGameBoard=3\r\n[BoardBlack]\r\nR=256\r\nG=-32768\r\nB=32767\r\n");
    EXPECT_EQ(settings.BoardVariant, 3);
    EXPECT_EQ(settings.BoardBlack, (BoardColor{256, -32768, 32767}));
    EXPECT_TRUE(problems.empty());
}

TEST_F(SettingsValues, ANumberThatDoesNotFit16BitsIsAProblemAndNeverWraps) {
    const Settings settings =
        Start("[Options]\r\nGameBoard=65538\r\nHistory=4294967297\r\n[BoardWhite]\r\nR=-32769\r\n");
    EXPECT_EQ(settings, Settings());
    ASSERT_EQ(problems.size(), 3u);
    EXPECT_EQ(problems[0], (SettingProblem{"Options", "GameBoard", "65538",
                                           "\"65538\" is not between -32768 and 32767; 1 is used."}));
    EXPECT_EQ(problems[1].key, "History");
    EXPECT_EQ(problems[2], (SettingProblem{"BoardWhite", "R", "-32769",
                                           "\"-32769\" is not between -32768 and 32767; 255 is used."}));
}

TEST_F(SettingsValues, AColourHas32Bits) {
    EXPECT_EQ(Start("[ClientOptions]\r\nTranscriptColor=-5\r\n").TranscriptColor, -5);
    EXPECT_EQ(Start("[ClientOptions]\r\nTranscriptColor=2147483647\r\n").TranscriptColor, INT32_MAX);
    EXPECT_TRUE(problems.empty());
    EXPECT_EQ(Start("[ClientOptions]\r\nTranscriptMyColor=4294967295\r\n").TranscriptMyColor, 32768);
    EXPECT_EQ(problems.size(), 1u);
}

TEST_F(SettingsValues, AValueThatIsNoNumberCountsAs0AndIsAProblem) {
    const Settings settings = Start("[Options]\r\nGameBoard=crown\r\nZOCRight=7up\r\n");
    EXPECT_EQ(settings.BoardVariant, 0);
    EXPECT_EQ(settings.ZOCRight, 7);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0],
              (SettingProblem{"Options", "GameBoard", "crown", "\"crown\" is not a number; 0 is used."}));
}

TEST_F(SettingsValues, AnEmptyNumberKeepsItsDefaultAndIsAProblem) {
    EXPECT_EQ(Start("[Options]\r\nGameBoard=\r\nZOCRight=  \r\n[BoardWhite]\r\nR=\"\"\r\n"), Settings());
    ASSERT_EQ(problems.size(), 3U);
    EXPECT_EQ(problems[0], (SettingProblem{"Options", "GameBoard", "", "\"\" is not a number; 1 is used."}));
    EXPECT_EQ(problems[2].message, "\"\" is not a number; 255 is used.");
}

TEST_F(SettingsValues, ProblemsBecomeALineEach) {
    Start("[Options]\r\nGameBoard=99999\r\n[ClientOptions]\r\nUserListFontSize=big\r\n");
    EXPECT_EQ(ProblemLines(problems, "/games/tarveth.ini"),
              "tarveth: /games/tarveth.ini: [Options] GameBoard: \"99999\" is not between -32768 and 32767; "
              "1 is used.\n"
              "tarveth: /games/tarveth.ini: [ClientOptions] UserListFontSize: \"big\" is not a number; 0 is "
              "used.\n");
    EXPECT_EQ(ProblemLines({}, "/games/tarveth.ini"), "");
}

TEST_F(SettingsValues, AFileThatIsNoIniFileGivesTheDefaults) {
    EXPECT_EQ(Start(std::string(300'000, '[')), Settings());
    EXPECT_EQ(Start(std::string(2'000'000, '\n')), Settings());
    std::filesystem::remove(folder.File("tarveth.ini"));
    std::filesystem::create_directory(folder.File("tarveth.ini"));
    EXPECT_EQ(Start(""), Settings());
}

} // namespace
} // namespace tarveth
