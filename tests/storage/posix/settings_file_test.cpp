// Writing tarveth.ini: what stays byte for byte as it was, and what happens on a full disk.
#include "storage/settingsfile.h"
#include "storage/window_positions.h"

#include "tests/FirstSettings.h"
#include "tests/platform/ForkedChild.h"
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

TEST(SettingsOnDisk, EditedByHandKeepsAllThatIsNotASetting) {
    const TempFolder folder;
    const std::string file = folder.File("tarveth.ini");
    modINI ini([](const std::string& text, const std::string&) { ADD_FAILURE() << text; });
    Settings settings;
    PutBytes(file,
             "; my own file\n\n[OPTIONS]\r\n  nickname = Ann ; me\r\nFavourite=9\r\n\tgameboard=2\r\n\r\n"
             "[Notes]\ntext = keep  me\n\n[Position]\r\nx=5\r\nY=6\r\nW=7\r\nH=8");
    LoadSettings(settings, ini, folder.Name());
    EXPECT_EQ(settings.Nickname, "Ann ; me");
    settings.Nickname = "Ann";
    SaveClientOptions(settings, ini, folder.Name());
    SaveSettings(settings, ini, folder.Name());
    SaveMainPosition({1200, -15, 9000.5F, 7200}, ini, folder.Name());
    EXPECT_TRUE(ini.IniFlush());
    const std::string first = test::kFirstSettings;
    const std::size_t sounds = first.find("[Sounds]");
    EXPECT_EQ(GetBytes(file),
              "; my own file\n\n[OPTIONS]\r\nnickname=Ann\r\nFavourite=9\r\ngameboard=2\r\n" +
                  Lines("ZOCRight=-1\nGridLabels=0\nAnimateMoves=-1\nHistory=0\nAutoSaveLog=0\n\n") +
                  "[Notes]\ntext = keep  me\n\n[Position]\r\nx= 1200\r\nY=-15\r\nW= 9000.5\r\nH= 7200\r\n" +
                  Lines(first.substr(0, first.find("[Options]"))) +
                  Lines(first.substr(sounds, first.find("[Position]") - sounds)));
}

TEST(SettingsOnDisk, ThatCannotBeWrittenStaysWhole) {
    const TempFolder folder;
    const std::string file = folder.File("tarveth.ini");
    const std::string old = "[Options]\r\nNickname=Ann\r\n; " + std::string(8000, 'x') + "\r\n";
    PutBytes(file, old);
    EXPECT_TRUE(TrueInChild([&] {
        modINI ini([](const std::string&, const std::string&) {});
        const bool limited = LimitFileSize(2048);
        SaveSettings(Settings(), ini, folder.Name());
        return limited && !ini.IniFlush();
    }));
    EXPECT_EQ(GetBytes(file), old);
    EXPECT_EQ(folder.FileCount(), 1U);
}

} // namespace
} // namespace tarveth
