// The options dialog of the real program: what Okay changes at once and in tarveth.ini, and what Cancel
// leaves alone.

#include "tests/window/OptionsDesk.h"

namespace tarveth::harness {
namespace {

class Options : public OptionsDesk {};

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

TEST_F(Options, OfAllPagesAreForgottenByCancel) {
    const Window dialog = Open(1);
    ChangeColor(3, "#102030");
    ChangeFont(0, "DejaVu Sans Mono");
    EXPECT_TRUE(desk.TextBecomes("txtSampleFont(0)", "14pt DejaVu Sans Mono"));
    ChoosePage(2, "Sound Options");
    Press("btnChangeSound(1)");
    desk.AnswerFileDialog("Specify Sound File", TARVETH_SOURCE_DIR "/sounds/victory.wav");
    EXPECT_TRUE(desk.TextBecomes("txtSound(1)", TARVETH_SOURCE_DIR "/sounds/victory.wav"));
    CloseBy(dialog, "btnCancel");
    EXPECT_EQ(desk.Close(), 0);

    const GameFolder untouched(kIni);
    EXPECT_EQ(GameDesk(untouched).Close(), 0);
    EXPECT_EQ(folder.Read("tarveth.ini"), untouched.Read("tarveth.ini"));
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
    ChangeColor(2, "#102030");
    ChangeFont(2, "DejaVu Sans Mono");
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

// A game that starts with grid labels and history.
class OptionsInUse : public OptionsDesk {
protected:
    OptionsInUse() : OptionsDesk("[Options]\r\nGridLabels=-1\r\nHistory=-1\r\n") {}

    // Whether all of what the two options show is there, or nothing of it.
    bool AllShown(bool shown) {
        LookAround();
        bool all = controls["lstHistory"].Has("showing") == shown;
        for (int label = 0; label < 16; ++label) {
            all = all && controls["lblGrid(" + std::to_string(label) + ")"].Has("showing") == shown;
        }
        return all;
    }
};

TEST_F(OptionsInUse, ShowNothingMoreOnceTheyAreOff) {
    EXPECT_TRUE(AllShown(true));
    const Window dialog = Open();
    Toggle("chkPlayOptions(1)");
    Toggle("chkPlayOptions(3)");
    CloseBy(dialog, "btnOkay");
    EXPECT_TRUE(WaitUntil([&] { return AllShown(false); })) << desk.reader.Outline();
    const std::vector<std::string> ini = IniAfterClose();
    EXPECT_TRUE(Has(ini, "GridLabels=0"));
    EXPECT_TRUE(Has(ini, "History=0"));
}

} // namespace
} // namespace tarveth::harness
