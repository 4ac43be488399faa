// Files in the system's code page, and folders and files whose names it has no letters for.
#include "platform/atomic_file.h"
#include "platform/file_exists.h"
#include "platform/file_text.h"
#include "platform/private_profile.h"
#include "platform/program_folder.h"
#include "platform/wav_player.h"
#include "storage/modFileIO.h"
#include "storage/modINI.h"
#include "tests/TestGame.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <array>

#include <windows.h>

namespace tarveth {
namespace {

using platform::TextForFile;
using platform::TextFromFile;

constexpr char kUmlauts[] = "\xc3\xa4\xc3\xb6\xc3\xbc"; // äöü
constexpr char kUmlautBytes[] = "\xe4\xf6\xfc";         // the same in windows-1252
constexpr char kChess[] = "\xe5\xb0\x86\xe6\xa3\x8b";   // 将棋, which windows-1252 does not have
constexpr char kMarkedChess[] = "\xef\xbb\xbf\xe5\xb0\x86\xe6\xa3\x8b";

TEST(FileText, IsInTheSystemsCodePage) {
    ASSERT_EQ(GetACP(), 1252U) << "these tests are written for a system with western letters";
    EXPECT_EQ(TextForFile(kUmlauts), kUmlautBytes);
    EXPECT_EQ(TextFromFile(kUmlautBytes), kUmlauts);
    EXPECT_EQ(TextForFile("a\r\n\tb"), "a\r\n\tb");
    EXPECT_EQ(TextForFile(""), "");
    EXPECT_EQ(TextFromFile(""), "");
}

TEST(FileText, ReadsBackEveryByte) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        EXPECT_EQ(TextForFile(TextFromFile(bytes)), bytes) << byte;
    }
}

TEST(FileText, WithoutLettersInTheCodePageIsMarkedAndReadsBack) {
    EXPECT_EQ(TextForFile(kChess), kMarkedChess);
    EXPECT_EQ(TextFromFile(kMarkedChess), kChess);
}

TEST(FileText, CutInTheMiddleOfALetterIsStillText) {
    EXPECT_EQ(TextFromFile(std::string(kMarkedChess).substr(0, 8)), "\xe5\xb0\x86\xef\xbf\xbd");
}

TEST(Settings, AreWrittenInTheCodePageAndReadAsText) {
    const TempFolder folder;
    modINI ini([](const std::string&, const std::string&) {});
    ini.IniRegister("Options", folder.File("p.ini"));
    EXPECT_EQ(ini.IniPutString("Nickname", kUmlauts), 1);
    EXPECT_TRUE(ini.IniFlush());
    EXPECT_EQ(GetBytes(folder.File("p.ini")), std::string("[Options]\r\nNickname=") + kUmlautBytes + "\r\n");
    EXPECT_EQ(ini.IniGetString("Nickname", ""), kUmlauts);
    EXPECT_EQ(ini.IniGetString("Missing", kChess), kChess);
}

// A folder and a file in it, with names that the code page has no letters for.
class NamesBeyondTheCodePage : public testing::Test {
protected:
    NamesBeyondTheCodePage() { std::filesystem::create_directory(platform::PathFromText(inside)); }

    const TempFolder folder;
    const std::string inside = folder.File(kChess);
    const std::string file = inside + "\\" + kChess + ".ini";
};

TEST_F(NamesBeyondTheCodePage, AreFoundReadAndWritten) {
    EXPECT_FALSE(platform::FileExists(file));
    platform::WriteFileAtomically(file, "old");
    platform::WriteFileAtomically(file, "new");
    EXPECT_TRUE(platform::FileExists(file));
    EXPECT_EQ(platform::ReadWholeFile(file, 10), "new");
    EXPECT_EQ(platform::WritableFolder(inside), inside + "\\");
}

TEST_F(NamesBeyondTheCodePage, HoldSettings) {
    platform::PrivateProfile profile;
    EXPECT_EQ(profile.GetPrivateProfileIntA("A", "n", 7, file), 7);
    EXPECT_TRUE(profile.WritePrivateProfileStringA("A", "k", kUmlautBytes, file));
    EXPECT_TRUE(profile.WritePrivateProfileStringA("A", "n", "-5", file));
    EXPECT_TRUE(profile.Flush());
    EXPECT_EQ(GetBytes(file), std::string("[A]\r\nk=") + kUmlautBytes + "\r\nn=-5\r\n");
    std::array<char, 3> buffer = {};
    EXPECT_EQ(profile.GetPrivateProfileStringA("A", "k", "", buffer, file), 2U);
    EXPECT_EQ(std::string(buffer.data()), std::string(kUmlautBytes, 2));
    EXPECT_EQ(profile.GetPrivateProfileIntA("A", "n", 7, file), -5);
    EXPECT_FALSE(profile.WritePrivateProfileStringA("A", "k", "two\nlines", file));
}

TEST_F(NamesBeyondTheCodePage, HoldGames) {
    test::TestGame table;
    table.Move("4E", "4D");
    const std::string path = inside + "\\" + kChess + ".tsg";
    WriteGame(table.game, kChess, path);
    EXPECT_EQ(ReadGame(path).lstHistory, table.game.lstHistory);
    WriteGame(table.game, kUmlauts, path);
    EXPECT_EQ(GetBytes(path), "Tarveth 1.00\r\n" + GameText(table.game, kUmlautBytes).substr(14));
}

TEST_F(NamesBeyondTheCodePage, OfMissingFilesAreInTheErrorsText) {
    try {
        platform::ReadWholeFile(file, 10);
        FAIL();
    } catch (const std::exception& error) {
        EXPECT_TRUE(std::string(error.what()).starts_with(file + ": cannot be read (")) << error.what();
    }
}

} // namespace
} // namespace tarveth
