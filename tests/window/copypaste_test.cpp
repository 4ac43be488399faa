// A game goes to the clipboard and into a picture, and a position comes back from the clipboard.

#include "tests/window/Clipboard.h"
#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

using Lines = std::vector<std::string>;

constexpr char kIni[] = "[Options]\r\nGameBoard=1\r\nAnimateMoves=0\r\nHistory=-1\r\n"
                        "[View]\r\nLegalMoves=0\r\nLastMove=0\r\nZones=0\r\n";

class CopyPasteDesk : public testing::Test {
protected:
    static void Play(GameDesk& desk, const std::string& from, const std::string& to) {
        desk.ForgetBoardArea(); // the bar moves it
        desk.Move(from, to);
        ASSERT_TRUE(desk.PromptBecomes("Pick piece"));
    }
    // Presses the keys and waits for what the label of messages then says.
    static void Press(GameDesk& desk, const char* keys, const std::string& told) {
        desk.screen.Key(keys);
        EXPECT_TRUE(desk.TextBecomes("lblMessage", told)) << keys << ": " << desk.Text("lblMessage");
    }

    const GameFolder folder{kIni};
};

TEST_F(CopyPasteDesk, APositionIsCopiedAsOneLine) {
    GameDesk desk(folder);
    Press(desk, "Ctrl+C", "The position is copied.");
    const std::string start = ClipboardText(desk.screen);
    EXPECT_TRUE(start.starts_with("turn B | BM 4H | BM 5H | BM 6H | BO 4G | ")) << start;
    Play(desk, "4E", "4D");
    Play(desk, "4C", "4D");
    Press(desk, "Ctrl+C", "The position is copied.");
    const std::string after = ClipboardText(desk.screen);
    EXPECT_TRUE(after.starts_with("turn B | BM 4H | ")) << after;
    EXPECT_NE(after.find(" | RO 4D<4C"), std::string::npos) << after;
    EXPECT_TRUE(after.ends_with(" | jail BP")) << after;
}

TEST_F(CopyPasteDesk, APastedPositionIsAGameOfItsOwnAndTheOneBeforeIsKept) {
    GameDesk desk(folder);
    Play(desk, "4E", "4D");
    Press(desk, "Ctrl+C", "The position is copied.");
    Play(desk, "5D", "5E");
    Press(desk, "Ctrl+V", "The position is pasted.");
    EXPECT_EQ(desk.Text("lblCurPlayer"), "Red");
    EXPECT_TRUE(desk.History().empty());
    EXPECT_TRUE(desk.TextBecomes("lblBar", "The game before is kept."));
    desk.KeepShot("pasted");
    Play(desk, "5D", "5E");
    EXPECT_EQ(desk.History(), Lines{"R:RP 5D-5E"});
}

TEST_F(CopyPasteDesk, AGameIsCopiedAsItsMovesWhichAreNoPosition) {
    GameDesk desk(folder);
    Press(desk, "Ctrl+Shift+C", "The game has no move yet that could be copied.");
    Play(desk, "4E", "4D");
    Play(desk, "4C", "4D");
    Press(desk, "Ctrl+Shift+C", "The moves of the game are copied.");
    EXPECT_EQ(ClipboardText(desk.screen), "B:BP 4E-4D\nR:RO 4C-4D cBP\n");
    desk.screen.Key("Ctrl+V");
    const Window box = desk.MessageBox();
    EXPECT_EQ(desk.MessageBoxText(), "The clipboard holds no position, which is one line of text.");
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
    EXPECT_EQ(desk.History().size(), 2U) << "the game goes on";
}

TEST_F(CopyPasteDesk, ThePictureOfTheBoardIsAFile) {
    GameDesk desk(folder);
    Play(desk, "4E", "4D");
    const Rect board = desk.BoardArea();
    desk.Choose("G", "u");
    desk.AnswerFileDialog("Save Picture", (folder.Path() / "board").string());
    ASSERT_TRUE(WaitUntil([&] { return folder.Has("board.png"); }));
    const std::string bytes = folder.Read("board.png");
    ASSERT_GT(bytes.size(), 24U);
    EXPECT_TRUE(bytes.starts_with("\x89PNG\r\n")) << "the signature of such files";
    const auto number = [&](std::size_t at) {
        return static_cast<unsigned char>(bytes[at + 2]) * 256 + static_cast<unsigned char>(bytes[at + 3]);
    };
    EXPECT_GE(number(16), board.width);
    EXPECT_EQ(number(16), number(20)) << "it is as wide as it is high";
}

} // namespace
} // namespace tarveth::harness
