// The content of tarveth.ini after the main window has closed.
#include "storage/settingsfile.h"
#include "storage/window_positions.h"

#include "tests/FirstSettings.h"
#include "tests/platform/IniBytes.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

// Line ends are written as \n here and are CR LF in the file.
std::string Lines(std::string_view text) {
    std::string bytes;
    for (const char letter : text)
        bytes += letter == '\n' ? std::string("\r\n") : std::string(1, letter);
    return bytes;
}

class SettingsFile : public testing::Test {
protected:
    // What the main window does when it is asked to close.
    bool Close() {
        SaveClientOptions(settings, ini, folder.Name());
        SaveSettings(settings, ini, folder.Name());
        SaveMainPosition(position, ini, folder.Name());
        SaveLaterSections(settings, ini, folder.Name());
        return ini.IniFlush();
    }

    TempFolder folder;
    std::string file = folder.File("tarveth.ini");
    modINI ini{[](const std::string& text, const std::string&) { ADD_FAILURE() << text; }};
    Settings settings;
    WindowPosition position = {1200, -15, 9000.5F, 7200};
};

// With the position of the fixture.
const std::string kFirstClose = std::string(test::kFirstSettings) + "X= 1200\nY=-15\nW= 9000.5\nH= 7200\n";

TEST_F(SettingsFile, TheFirstCloseCreatesItWithAllSections) {
    EXPECT_TRUE(Close());
    EXPECT_EQ(WithoutBlanksBeforeValues(GetBytes(file)), WithoutBlanksBeforeValues(Lines(kFirstClose)));
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST_F(SettingsFile, AnUnchangedCloseLeavesItAsItIs) {
    EXPECT_TRUE(Close());
    const std::string first = GetBytes(file);
    EXPECT_TRUE(Close());
    EXPECT_EQ(GetBytes(file), first);
}

TEST_F(SettingsFile, GivesBackEverySettingThatWasSaved) {
    settings.BoardVariant = kDraumeCrownBoard;
    settings.ZOCRight = 0;
    settings.GridLabels = -1;
    settings.AnimateMoves = 0;
    settings.History = 1;
    settings.AutoSaveLog = -1;
    settings.Nickname = "Ann";
    settings.UseNewUserSound = -1;
    settings.NewUserSound = "<beep>";
    settings.NewUserSoundDelay = 60;
    settings.SoundVictor = "C:\\MEDIA\\TADA.WAV";
    settings.SoundLoser = "sad trombone.wav";
    settings.PictureScheme = "pics/stone.tps";
    settings.BluePics = {"", "b1.bmp", "b2.bmp", "b3.bmp"};
    settings.RedPics = {"", "r1.bmp", "r2.bmp", "r3.bmp"};
    settings.BoardBlack = {1, 2, 3};
    settings.BoardWhite = {4, 5, 6};
    settings.TranscriptFontName = "Courier New";
    settings.TranscriptFontSize = 10;
    settings.TranscriptMyColor = 1;
    settings.TranscriptOppColor = 2;
    settings.TranscriptSysColor = 16777215;
    settings.TranscriptColor = -4;
    settings.UserListFontName = "Arial";
    settings.UserListFontSize = 11;
    settings.ChatTextFontName = "Times";
    settings.ChatTextFontSize = 12;
    EXPECT_TRUE(Close());

    Settings read;
    EXPECT_TRUE(LoadSettings(read, ini, folder.Name()).empty());
    EXPECT_TRUE(LoadClientOptions(read, ini, folder.Name()).empty());
    EXPECT_EQ(read, settings);
}

// Lines of the section [View], the last of the file.
std::string ViewSection(const std::string& file) {
    const std::string text = WithoutBlanksBeforeValues(GetBytes(file));
    const auto at = text.find("[View]");
    return at == std::string::npos ? std::string() : text.substr(at);
}

TEST_F(SettingsFile, ALaterSectionIsWrittenAtTheEndOnceSomethingInItHasChanged) {
    settings.Zones = -1;
    EXPECT_TRUE(Close());
    const std::string changed = Lines("[View]\nLegalMoves=-1\nLastMove=-1\nZones=-1\nBothZones=0\n");
    EXPECT_EQ(ViewSection(file), changed);
    Settings read;
    EXPECT_TRUE(LoadSettings(read, ini, folder.Name()).empty());
    EXPECT_EQ(read, settings);
}

TEST_F(SettingsFile, ALaterSectionOnceWrittenFollowsBackToTheBuiltInValues) {
    settings.LegalMoves = 0;
    EXPECT_TRUE(Close());
    settings.LegalMoves = -1;
    EXPECT_TRUE(Close());
    EXPECT_EQ(ViewSection(file), Lines("[View]\nLegalMoves=-1\nLastMove=-1\nZones=0\nBothZones=0\n"));
    Settings read;
    LoadSettings(read, ini, folder.Name());
    EXPECT_EQ(read, Settings());
}

TEST_F(SettingsFile, AValueWithALineBreakCannotSmuggleInAnother) {
    settings.Nickname = "Ann\r\nGameBoard=2\r\n[Evil]\r\nk=v";
    EXPECT_TRUE(Close());
    Settings read;
    LoadSettings(read, ini, folder.Name());
    EXPECT_EQ(read, Settings());
    EXPECT_EQ(GetBytes(file).find("Evil"), std::string::npos);
}

} // namespace
} // namespace tarveth
