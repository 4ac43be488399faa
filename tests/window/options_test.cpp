// The options dialog of the real program: its pages, what Okay changes at once and in tarveth.ini, and what
// Cancel leaves alone.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <utility>

namespace tarveth::harness {
namespace {

constexpr const char* kIni =
    "[Options]\r\nAnimateMoves=0\r\n"
    "[Sounds]\r\nNewUserSoundDelay=7\r\nSoundLoser=/sounds/lost.wav\r\n"
    "[ClientOptions]\r\nTranscriptFontName=Times New Roman\r\nTranscriptFontSize=14\r\n";

// Pictures of 48 pixels; a Blue Master fills most of its square, a Pawn little.
constexpr const char* kPictures = TARVETH_SOURCE_DIR "/pics/48/";

std::string SchemeOfMastersOnly() {
    std::string text;
    for (const std::string side : {"Blue", "Red"}) {
        text += "[" + side + "]\r\n";
        for (const char kind : {'1', '2', '3'}) {
            text += kind + side + "=" + kPictures + (side == "Blue" ? "blue" : "red") + "1.bmp\r\n";
        }
    }
    return text;
}

class Options : public testing::Test {
protected:
    // Opens the dialog by its access keys, on the page with that number.
    Window Open(int page = 0) {
        EXPECT_TRUE(desk.window.Activate());
        desk.Choose("O", "o");
        Window dialog = desk.program.WaitForWindow("Tarveth Options");
        for (int i = 0; i < page; ++i) {
            desk.screen.Key("Down");
        }
        if (page > 0) {
            EXPECT_TRUE(WaitUntil([&] { return Showing("fraOptions(" + std::to_string(page) + ")"); }));
        }
        desk.WaitUntilAtRest();
        // The window manager may still be moving the dialog.
        EXPECT_TRUE(WaitUntil([&] {
            LookAround();
            return inside == dialog.ClientArea();
        }));
        return dialog;
    }

    // Reads all controls once: to ask for each of them takes long.
    void LookAround() {
        controls.clear();
        bool isInside = false;
        for (const AccessibleNode& control : desk.reader.Read()) {
            controls[control.id] = control;
            inside = isInside ? control.extents : inside;
            isInside = control.name == "Tarveth Options";
        }
    }
    bool Sees(const std::string& id) { return controls[id].Has("showing") && controls[id].Has("sensitive"); }
    bool Showing(const std::string& id) {
        const auto control = desk.reader.Find(WithId(id));
        return control && control->Has("showing");
    }

    void Press(const std::string& id) {
        ASSERT_TRUE(Sees(id)) << id;
        desk.program.WaitForWindow("Tarveth Options"); // after a file dialog it comes back to the keyboard
        desk.WaitUntilAtRest();
        desk.screen.Click(controls[id].extents.Centre());
    }

    // Clicks on a check box and waits for its mark to come or go.
    void Toggle(const std::string& id) {
        ASSERT_NO_FATAL_FAILURE(Press(id));
        EXPECT_TRUE(WaitUntil([&] {
            const auto box = desk.reader.Find(WithId(id));
            return box && box->Has("checked") != controls[id].Has("checked");
        })) << id;
    }

    void CloseBy(const Window& dialog, const std::string& id) {
        Press(id);
        EXPECT_TRUE(dialog.WaitUntilGone());
        EXPECT_TRUE(desk.window.Activate());
        desk.WaitUntilAtRest();
    }

    // The dialog that opens over the options, once it has the keyboard.
    Window NextDialog() {
        EXPECT_TRUE(WaitUntil([&] { return desk.program.Windows().size() == 3; }));
        Window next = desk.program.Windows().back();
        EXPECT_TRUE(next.Activate());
        return next;
    }

    // The lines of tarveth.ini after the program has closed, without their ends.
    std::vector<std::string> IniAfterClose() {
        EXPECT_EQ(desk.Close(), 0);
        std::vector<std::string> lines;
        std::string line;
        for (const char letter : folder.Read("tarveth.ini")) {
            if (letter == '\n') {
                lines.push_back(std::exchange(line, {}));
            } else if (letter != '\r') {
                line += letter;
            }
        }
        return lines;
    }

    static bool Has(const std::vector<std::string>& lines, const std::string& line) {
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    }

    GameFolder folder{kIni};
    GameDesk desk{folder};
    // When last looked at: the controls by their given names, and what surrounds those of the dialog.
    std::map<std::string, AccessibleNode> controls;
    Rect inside;
};

TEST_F(Options, ShowOnePageAtATime) {
    Open();
    for (int page = 0; page < 4; ++page) {
        desk.WaitUntilAtRest();
        LookAround();
        for (int other = 0; other < 4; ++other) {
            EXPECT_EQ(Sees("fraOptions(" + std::to_string(other) + ")"), other == page)
                << page << ' ' << other;
        }
        desk.screen.Key("Down");
    }
}

TEST_F(Options, ShowTheSettings) {
    Open();
    EXPECT_FALSE(controls["chkPlayOptions(0)"].Has("checked"));
    EXPECT_TRUE(controls["chkPlayOptions(2)"].Has("checked"));
    EXPECT_FALSE(controls["chkSounds"].Has("checked"));
    EXPECT_EQ(controls["txtSample(1)"].text, "Text that your opponent wrote");
    EXPECT_EQ(controls["txtSampleFont(0)"].text, "14pt Times New Roman");
    EXPECT_EQ(controls["txtSound(0)"].text, "<beep>");
    EXPECT_EQ(controls["txtSound(2)"].text, "/sounds/lost.wav");
    EXPECT_EQ(controls["txtInput"].text, "");
    EXPECT_EQ(controls["txtPictureScheme"].text, "[none]");
    EXPECT_EQ(controls["txtRedPicture(3)"].text, "[none]");
}

TEST_F(Options, TakeEffectAtOnceAndAreKept) {
    desk.Move("5F", "5E");
    ASSERT_TRUE(desk.PromptBecomes("Pick piece"));
    const Window dialog = Open();
    for (const char* box : {"chkPlayOptions(1)", "chkPlayOptions(2)", "chkPlayOptions(3)"}) {
        Toggle(box);
    }
    desk.screen.Key("Return"); // Okay is the button that Enter presses
    EXPECT_TRUE(dialog.WaitUntilGone());
    EXPECT_TRUE(WaitUntil([&] { return Showing("lblGrid(0)") && Showing("lstHistory"); }));
    EXPECT_EQ(desk.History().size(), 1U);
    const std::vector<std::string> ini = IniAfterClose();
    for (const char* line : {"AnimateMoves=0", "GridLabels=-1", "ZOCRight=0", "History=-1", "AutoSaveLog=0",
                             "NewUserSoundDelay=7", "SoundVictor=", "SoundLoser=/sounds/lost.wav"}) {
        EXPECT_TRUE(Has(ini, line)) << line;
    }
}

TEST_F(Options, AreForgottenByCancelEscapeAndTheCross) {
    for (const char* way : {"btnCancel", "Escape", "cross"}) {
        const Window dialog = Open();
        Toggle("chkPlayOptions(1)");
        if (way == std::string("btnCancel")) {
            Press(way);
        } else if (way == std::string("Escape")) {
            desk.screen.Key(way);
        } else {
            Window(dialog).Close();
        }
        EXPECT_TRUE(dialog.WaitUntilGone()) << way;
        desk.WaitUntilAtRest();
        EXPECT_FALSE(Showing("lblGrid(0)")) << way;
    }
    EXPECT_TRUE(Has(IniAfterClose(), "GridLabels=0"));
}

TEST_F(Options, DoNotChangeTheDelay) {
    const Window dialog = Open(2);
    Press("txtInput");
    desk.screen.Type("55");
    Toggle("chkSounds");
    CloseBy(dialog, "btnOkay");
    const std::vector<std::string> ini = IniAfterClose();
    EXPECT_TRUE(Has(ini, "NewUserSoundDelay=7"));
    EXPECT_TRUE(Has(ini, "UseNewUserSound=-1"));
}

TEST_F(Options, TakeColorsAndFontsFromTheSystemsDialogs) {
    const Window dialog = Open(1);
    Press("btnChange(2)");
    const Window colors = NextDialog();
    desk.screen.Key("Alt+n"); // the color's name
    desk.screen.Key("Ctrl+A");
    desk.screen.Type("#102030");
    desk.screen.Key("Tab");
    desk.screen.Key("Alt+s");
    ASSERT_TRUE(colors.WaitUntilGone());
    Press("btnChangeFont(2)");
    const Window fonts = NextDialog();
    desk.screen.Type("DejaVu Sans Mono"); // searches
    ASSERT_TRUE(
        desk.reader.WaitFor([](const AccessibleNode& node) { return node.text == "DejaVu Sans Mono"; }));
    desk.screen.Key("Down");
    desk.screen.Key("Return");
    ASSERT_TRUE(fonts.WaitUntilGone());
    EXPECT_TRUE(desk.TextBecomes("txtSampleFont(2)", "8pt DejaVu Sans Mono"));
    CloseBy(dialog, "btnOkay");
    const std::vector<std::string> ini = IniAfterClose();
    EXPECT_TRUE(Has(ini, "TranscriptSysColor=" + std::to_string(0x302010)));
    EXPECT_TRUE(Has(ini, "TranscriptMyColor=32768"));
    EXPECT_TRUE(Has(ini, "ChatTextFontName=DejaVu Sans Mono"));
    EXPECT_TRUE(Has(ini, "TranscriptFontName=Times New Roman"));
}

TEST_F(Options, SetAndClearSounds) {
    const Window dialog = Open(2);
    Press("btnChangeSound(1)");
    desk.AnswerFileDialog("Specify Sound File", TARVETH_SOURCE_DIR "/sounds/victory.wav");
    EXPECT_TRUE(desk.TextBecomes("txtSound(1)", TARVETH_SOURCE_DIR "/sounds/victory.wav"));
    Press("btnClearSound(2)");
    EXPECT_TRUE(desk.TextBecomes("txtSound(2)", "<beep>"));
    CloseBy(dialog, "btnOkay");
    const std::vector<std::string> ini = IniAfterClose();
    EXPECT_TRUE(Has(ini, "SoundVictor=" TARVETH_SOURCE_DIR "/sounds/victory.wav"));
    EXPECT_TRUE(Has(ini, "SoundLoser="));
}

TEST_F(Options, LoadASchemeThatChangesThePieces) {
    const std::string scheme = folder.Path() / "masters.tps";
    folder.Write("masters.tps", SchemeOfMastersOnly());
    const Picture before = desk.Board();
    const Window dialog = Open(3);
    const Picture builtin = desk.screen.Capture(controls["picBluePreview(3)"].extents);
    Press("btnChangePictureScheme");
    desk.AnswerFileDialog("Specify Picture Scheme", scheme);
    EXPECT_TRUE(desk.TextBecomes("txtPictureScheme", scheme));
    EXPECT_EQ(desk.Text("txtBluePicture(3)"), std::string(kPictures) + "blue1.bmp");
    EXPECT_FALSE(desk.screen.Capture(controls["picBluePreview(3)"].extents) == builtin);
    Press("btnClearRedPicture(2)");
    EXPECT_TRUE(desk.TextBecomes("txtRedPicture(2)", "[none]"));
    CloseBy(dialog, "btnOkay");
    EXPECT_FALSE(desk.Board() == before);
    desk.KeepShot("pieces-of-a-scheme");
    const std::vector<std::string> ini = IniAfterClose();
    EXPECT_TRUE(Has(ini, "PictureScheme=" + scheme));
    EXPECT_TRUE(Has(ini, "3Blue=" + std::string(kPictures) + "blue1.bmp"));
    EXPECT_TRUE(Has(ini, "2Red=[none]"));
}

TEST_F(Options, SaveASchemeThatCancelLeavesAndAskBeforeTheyOverwriteIt) {
    const Window dialog = Open(3);
    Press("btnChangeBluePicture(1)");
    desk.AnswerFileDialog("Specify Picture File", std::string(kPictures) + "blue2.bmp");
    Press("btnSavePictureScheme");
    desk.AnswerFileDialog("Save Picture Scheme As", folder.Path() / "blue");
    EXPECT_TRUE(desk.TextBecomes("txtPictureScheme", folder.Path() / "blue.tps"));
    const std::string written = folder.Read("blue.tps");
    EXPECT_EQ(written, "[Blue]\r\n1Blue=" + std::string(kPictures) +
                           "blue2.bmp\r\n2Blue=[none]\r\n3Blue=[none]\r\n"
                           "[Red]\r\n1Red=[none]\r\n2Red=[none]\r\n3Red=[none]\r\n");

    Press("btnClearBluePicture(1)");
    Press("btnSavePictureScheme");
    desk.AnswerFileDialog("Save Picture Scheme As", folder.Path() / "blue.tps");
    const Window question = NextDialog();
    EXPECT_NE(desk.reader.Outline().find("blue.tps\nThis file already exists. Overwrite it?"),
              std::string::npos);
    desk.screen.Key("Alt+n");
    EXPECT_TRUE(question.WaitUntilGone());
    CloseBy(dialog, "btnCancel");
    EXPECT_EQ(folder.Read("blue.tps"), written);
    EXPECT_TRUE(Has(IniAfterClose(), "1Blue=[none]"));
}

TEST_F(Options, TellOnceAboutPicturesThatCannotBeUsed) {
    folder.Write("bad.bmp", "no picture");
    folder.Write("worse.bmp", "BM");
    folder.Write("bad.tps", "[Blue]\n1Blue=bad.bmp\n[Red]\n3Red=worse.bmp\n1Red=missing.bmp\n");
    const Picture before = desk.Board();
    const Window dialog = Open(3);
    Press("btnChangePictureScheme");
    desk.AnswerFileDialog("Specify Picture Scheme", folder.Path() / "bad.tps");
    Press("btnOkay");
    EXPECT_TRUE(dialog.WaitUntilGone());
    const Window box = desk.MessageBox();
    const std::string text = desk.MessageBoxText();
    EXPECT_NE(text.find("bad.bmp"), std::string::npos) << text;
    EXPECT_NE(text.find("worse.bmp"), std::string::npos) << text;
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
    EXPECT_TRUE(desk.window.Activate());
    EXPECT_TRUE(desk.Board() == before);
}

} // namespace
} // namespace tarveth::harness
