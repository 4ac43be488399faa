// tarveth.ini and the whole program: what it writes, how it reads the file, and where the file is.

#include "tests/FirstSettings.h"
#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

constexpr int kTwips = 15; // in a pixel

// The whole file of a first start; the position is the window's frame, in twips with a blank in front.
std::string FirstFile(const Rect& frame) {
    std::string text = test::kFirstSettings;
    text += "X= " + std::to_string(frame.x * kTwips) + "\nY= " + std::to_string(frame.y * kTwips) + "\n";
    text +=
        "W= " + std::to_string(frame.width * kTwips) + "\nH= " + std::to_string(frame.height * kTwips) + "\n";
    std::string file;
    for (const char letter : text) {
        file += letter == '\n' ? "\r\n" : std::string(1, letter);
    }
    return file;
}

// Moves the window and changes its size. Gives the place of its frame.
Rect PutAt(GameDesk& desk, Point corner, int width, int height) {
    desk.window.MoveTo(corner);
    desk.window.Resize(width, height);
    EXPECT_TRUE(WaitUntil([&] {
        const Rect inside = desk.window.ClientArea();
        return desk.window.Frame().x == corner.x && inside.width == width && inside.height == height;
    }));
    desk.WaitUntilAtRest();
    return desk.window.Frame();
}

void ExpectAPlayableGame(GameDesk& desk) {
    desk.Move("4E", "4D");
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
}

// Closes the one message box and gives what it said.
std::string TheOneMessage(GameDesk& desk) {
    const Window box = desk.MessageBox();
    std::string text = desk.MessageBoxText();
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
    desk.WaitUntilAtRest();
    EXPECT_EQ(desk.program.Windows().size(), 1U) << "one message, not more";
    return text;
}

// Gives a BMP file of this size with one bit a pixel and all pixels in one colour.
std::string Bitmap(std::int32_t width, std::int32_t height) {
    const auto number = [](std::int64_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i) {
            text += static_cast<char>(value >> (8 * i) & 0xFF);
        }
        return text;
    };
    constexpr int kHeaders = 14 + 40 + 8;
    const std::int64_t pixels = (width + 31LL) / 32 * 4 * height;
    return "BM" + number(kHeaders + pixels, 4) + number(0, 4) + number(kHeaders, 4) + number(40, 4) +
           number(width, 4) + number(height, 4) + number(1, 2) + number(1, 2) + number(0, 4) +
           number(pixels, 4) + number(0, 16) + number(0xFF00FF, 4) + number(0, 4) +
           std::string(static_cast<std::size_t>(pixels), '\0');
}

TEST(SettingsFile, IsWrittenWholeAtTheFirstClose) {
    const GameFolder folder;
    GameDesk desk(folder);
    EXPECT_FALSE(folder.Has("tarveth.ini"));
    const Rect frame = desk.window.Frame();
    EXPECT_EQ(desk.Close(), 0);
    EXPECT_EQ(folder.Read("tarveth.ini"), FirstFile(frame));
    EXPECT_EQ(desk.program.Output(), "");
}

TEST(SettingsFile, BringsTheWindowBackToItsPlace) {
    const GameFolder folder;
    Rect left;
    {
        GameDesk desk(folder);
        left = PutAt(desk, {123, 77}, 901, 703);
        EXPECT_EQ(desk.Close(), 0);
    }
    GameDesk again(folder);
    EXPECT_EQ(again.window.Frame(), left);
    const std::string file = folder.Read("tarveth.ini");
    EXPECT_EQ(again.Close(), 0);
    EXPECT_EQ(folder.Read("tarveth.ini"), file);
}

TEST(SettingsFile, BringsTheWindowBackToTheCorner) {
    const GameFolder folder;
    {
        GameDesk desk(folder);
        PutAt(desk, {0, 0}, 700, 700);
        EXPECT_EQ(desk.Close(), 0);
    }
    const GameDesk again(folder);
    EXPECT_EQ(again.window.Frame().x, 0);
    EXPECT_EQ(again.window.Frame().y, 0);
}

TEST(SettingsFile, KeepsWhatSomebodyWroteIntoIt) {
    const GameFolder folder("; my own settings\r\n[Options]\r\n; the crown is better\r\ngameboard = 2\r\n"
                            "Colour of joy=green\r\n\r\n[Elsewhere]\r\nanything=at all\r\n");
    {
        GameDesk desk(folder);
        desk.Choose("O", "i");
        EXPECT_EQ(desk.Close(), 0);
    }
    const std::string file = folder.Read("tarveth.ini");
    for (const char* line : {"; my own settings\r\n[Options]\r\n; the crown is better\r\n",
                             "Colour of joy=green\r\n", "[Elsewhere]\r\nanything=at all\r\n"}) {
        EXPECT_NE(file.find(line), std::string::npos) << file;
    }
    EXPECT_EQ(file.find("GameBoard"), std::string::npos) << "the key stays as it was written";
    const GameDesk again(folder);
    EXPECT_TRUE(again.reader.Find(WithName("Imperial Board"))->Has("checked"));
}

TEST(SettingsFile, MayGiveOneCoordinateAlone) {
    const GameFolder across("[Position]\r\nX=3000\r\nY=1e30\r\n");
    EXPECT_EQ(GameDesk(across).window.Frame().x, 200);
    const GameFolder down("[Position]\r\nY=1500\r\n");
    EXPECT_EQ(GameDesk(down).window.Frame().y, 100);
}

TEST(SettingsFile, CannotLoseTheWindow) {
    for (const char* place :
         {"X= -90000\r\nY= -90000\r\n", "X= 900000\r\nY= 900000\r\n", "X=1e30\r\nY=nan\r\n"}) {
        const GameFolder folder(std::string("[Position]\r\n") + place + "W= 11670\r\nH= 11790\r\n");
        GameDesk desk(folder);
        const Rect frame = desk.window.Frame();
        const Rect screen = desk.screen.Area();
        EXPECT_GE(frame.x, 0) << place;
        EXPECT_GE(frame.y, 0) << place;
        EXPECT_LE(frame.x + frame.width, screen.width) << place;
        EXPECT_LE(frame.y + frame.height, screen.height) << place;
    }
}

TEST(SettingsFile, CannotMakeTheWindowUnusable) {
    for (const char* size : {"W= 9999999\r\nH= 9999999\r\n", "W=-500\r\nH=-500\r\n", "W=x\r\nH=\r\n"}) {
        const GameFolder folder(std::string("[Position]\r\nX= 150\r\nY= 150\r\n") + size);
        GameDesk desk(folder);
        const Rect inside = desk.window.ClientArea();
        EXPECT_GE(inside.width, 600) << size;
        EXPECT_GE(inside.height, 400) << size;
        EXPECT_LE(inside.width, 1600) << size;
        EXPECT_LE(inside.height, 1200) << size;
        ExpectAPlayableGame(desk);
        EXPECT_EQ(desk.Close(), 0);
    }
}

TEST(SettingsFile, IsToldOnStandardErrorAloneWhatIsWrongInIt) {
    const GameFolder folder("[Options]\r\nGameBoard=40000\r\nAnimateMoves=no\r\nZOCRight=yes\r\nHistory=\r\n"
                            "[BoardBlack]\r\nR=99999999999999999999\r\nG=12 or so\r\n");
    GameDesk desk(folder);
    desk.KeepShot("bad-settings");
    EXPECT_EQ(desk.program.Windows().size(), 1U) << "no message box";
    const std::string begin = "tarveth: " + (folder.Path() / "tarveth.ini").string() + ": ";
    const std::string output = desk.program.Output();
    for (const char* fault :
         {"[Options] GameBoard: \"40000\" is not between -32768 and 32767; 1",
          "[Options] ZOCRight: \"yes\" is not a number; 0",
          "[Options] AnimateMoves: \"no\" is not a number; 0", "[Options] History: \"\" is not a number; 0",
          "[BoardBlack] R: \"99999999999999999999\" is not between -32768 and 32767; 0"})
        EXPECT_NE(output.find(begin + fault + " is used.\n"), std::string::npos) << fault << output;
    ExpectAPlayableGame(desk);
}

TEST(SettingsFile, OfUtf16IsLeftAsItIs) {
    const std::string wide("\xff\xfe[\0O\0]\0\r\0\n\0", 12);
    const GameFolder folder(wide);
    GameDesk desk(folder);
    EXPECT_EQ(desk.program.Windows().size(), 1U) << "no message box";
    EXPECT_EQ(desk.Close(), 0);
    EXPECT_EQ(folder.Read("tarveth.ini"), wide);
}

TEST(AProgramThatStarts, RemovesWhatAKilledOneLeftInItsFolder) {
    const GameFolder folder;
    folder.Write(".tarveth-2147483640-0", "half a game");
    GameDesk desk(folder);
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / ".tarveth-2147483640-0"));
    EXPECT_EQ(desk.Close(), 0);
}

TEST(SettingsFile, NamesPicturesThatAreNone) {
    const GameFolder folder(
        "[Pictures]\r\n1Blue=text.bmp\r\n2Blue=dot.bmp\r\n3Blue=huge.bmp\r\n1Red=none.bmp\r\n");
    folder.Write("text.bmp", "This is not a picture.");
    folder.Write("dot.bmp", Bitmap(1, 1));
    folder.Write("huge.bmp", Bitmap(8000, 8000));
    GameDesk desk(folder);
    desk.KeepShot("bad-pictures");
    const std::string text = TheOneMessage(desk);
    for (const char* picture : {"text.bmp", "dot.bmp", "huge.bmp"}) {
        EXPECT_NE(text.find((folder.Path() / picture).string()), std::string::npos) << text;
    }
    EXPECT_EQ(text.find("none.bmp"), std::string::npos) << "a missing picture is no fault";

    const Picture board = desk.Board();
    EXPECT_EQ(desk.Close(), 0);

    const GameFolder plain;
    GameDesk builtIn(plain);
    EXPECT_TRUE(board == builtIn.Board());
}

TEST(SettingsFile, IsTheUsersOwnWhereTheProgramsFolderIsReadOnly) {
    const GameFolder folder;
    const GameFolder home;
    folder.Write("tarveth.ini", "[Options]\r\nGameBoard=2\r\n");
    const GameDeskOptions options = InReadOnlyFolder(folder, (home.Path() / "data").string());
    GameDesk desk(folder, options);
    desk.Choose("O", "d");
    EXPECT_EQ(desk.Close(), 0);
    EXPECT_EQ(folder.Read("tarveth.ini"), "[Options]\r\nGameBoard=2\r\n");
    EXPECT_NE(home.Read("data/tarveth/tarveth.ini").find("GameBoard=2\r\n"), std::string::npos)
        << home.Read("data/tarveth/tarveth.ini");
}

TEST(SettingsFile, IsMissedInOneMessageWhereNothingCanBeWritten) {
    const GameFolder folder;
    GameDesk desk(folder, InReadOnlyFolder(folder, "/proc/nowhere"));
    EXPECT_EQ(desk.MessageBoxText(), "Settings, logs and games cannot be kept: neither " +
                                         folder.Path().string() +
                                         "/ nor a data folder of your own can be written.");
    desk.screen.Key("Return");
    desk.Move("4E", "4D");
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red")) << "and the game is played all the same";
    EXPECT_EQ(desk.Close(), 0);
}

} // namespace
} // namespace tarveth::harness
