// Picture schemes in the options dialog of the real program: loading, clearing, saving and saving over one.

#include "tests/window/OptionsDesk.h"

namespace tarveth::harness {
namespace {

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

class PictureSchemes : public OptionsDesk {
protected:
    void LoadScheme(const std::string& file) {
        Press("btnChangePictureScheme");
        desk.AnswerFileDialog("Specify Picture Scheme", file);
    }

    // The texts of the scheme's box and of the six pictures' boxes.
    std::vector<std::string> Shown() {
        LookAround();
        std::vector<std::string> texts{controls["txtPictureScheme"].text};
        for (const std::string side : {"Blue", "Red"}) {
            for (const char kind : {'1', '2', '3'}) {
                texts.push_back(controls["txt" + side + "Picture(" + kind + ")"].text);
            }
        }
        return texts;
    }

    // Saves in a file that is there already; the question that comes.
    Window SaveOver(const std::string& file) {
        Press("btnSavePictureScheme");
        desk.AnswerFileDialog("Save Picture Scheme As", file);
        Window question = NextDialog();
        EXPECT_NE(desk.reader.Outline().find(file + "\nThis file already exists. Overwrite it?"),
                  std::string::npos);
        return question;
    }
};

TEST_F(PictureSchemes, ChangeThePieces) {
    const std::string scheme = folder.Path() / "masters.tps";
    folder.Write("masters.tps", SchemeOfMastersOnly());
    const Picture before = desk.Board();
    const Window dialog = Open(3);
    const Picture builtin = desk.screen.Capture(controls["picBluePreview(3)"].extents);
    LoadScheme(scheme);
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

TEST_F(PictureSchemes, LeaveTheirPicturesWhenCleared) {
    const std::string scheme = folder.Path() / "masters.tps";
    folder.Write("masters.tps", SchemeOfMastersOnly());
    const Window dialog = Open(3);
    LoadScheme(scheme);
    EXPECT_TRUE(desk.TextBecomes("txtPictureScheme", scheme));
    Press("btnClearScheme");
    EXPECT_TRUE(desk.TextBecomes("txtPictureScheme", "[none]"));
    const std::string blue = std::string(kPictures) + "blue1.bmp";
    const std::string red = std::string(kPictures) + "red1.bmp";
    EXPECT_EQ(Shown(), (std::vector<std::string>{"[none]", blue, blue, blue, red, red, red}));
    CloseBy(dialog, "btnOkay");
    const std::vector<std::string> ini = IniAfterClose();
    EXPECT_TRUE(Has(ini, "PictureScheme=[none]"));
    EXPECT_TRUE(Has(ini, "1Blue=" + blue));
    EXPECT_TRUE(Has(ini, "3Red=" + red));
}

TEST_F(PictureSchemes, AreSavedAndLeftByCancel) {
    const Window dialog = Open(3);
    Press("btnChangeBluePicture(1)");
    desk.AnswerFileDialog("Specify Picture File", std::string(kPictures) + "blue2.bmp");
    Press("btnSavePictureScheme");
    desk.AnswerFileDialog("Save Picture Scheme As", folder.Path() / "blue");
    EXPECT_TRUE(desk.TextBecomes("txtPictureScheme", folder.Path() / "blue.tps"));
    CloseBy(dialog, "btnCancel");
    EXPECT_EQ(folder.Read("blue.tps"), "[Blue]\r\n1Blue=" + std::string(kPictures) +
                                           "blue2.bmp\r\n2Blue=[none]\r\n3Blue=[none]\r\n"
                                           "[Red]\r\n1Red=[none]\r\n2Red=[none]\r\n3Red=[none]\r\n");
    EXPECT_TRUE(Has(IniAfterClose(), "1Blue=[none]"));
}

TEST_F(PictureSchemes, AreOverwrittenAfterYes) {
    const std::string scheme = folder.Path() / "old.tps";
    folder.Write("old.tps", SchemeOfMastersOnly());
    Open(3);
    const Window question = SaveOver(scheme);
    desk.screen.Key("Alt+y");
    EXPECT_TRUE(question.WaitUntilGone());
    EXPECT_TRUE(desk.TextBecomes("txtPictureScheme", scheme));
    EXPECT_EQ(folder.Read("old.tps"), "[Blue]\r\n1Blue=[none]\r\n2Blue=[none]\r\n3Blue=[none]\r\n"
                                      "[Red]\r\n1Red=[none]\r\n2Red=[none]\r\n3Red=[none]\r\n");
}

TEST_F(PictureSchemes, AreNotOverwrittenAfterNoCancelOrTheCross) {
    folder.Write("old.tps", "an older scheme");
    Open(3);
    for (const std::string way : {"Alt+n", "Alt+c", "Escape", "cross"}) {
        Window question = SaveOver(folder.Path() / "old.tps");
        if (way == "cross") {
            question.Close();
        } else {
            desk.screen.Key(way);
        }
        EXPECT_TRUE(question.WaitUntilGone()) << way;
        desk.WaitUntilAtRest();
        EXPECT_EQ(folder.Read("old.tps"), "an older scheme") << way;
        EXPECT_EQ(desk.Text("txtPictureScheme"), "[none]") << way;
    }
}

TEST_F(PictureSchemes, TellOnceAboutPicturesThatCannotBeUsed) {
    folder.Write("bad.bmp", "no picture");
    folder.Write("worse.bmp", "BM");
    folder.Write("bad.tps", "[Blue]\n1Blue=bad.bmp\n[Red]\n3Red=worse.bmp\n1Red=missing.bmp\n");
    const Picture before = desk.Board();
    const Window dialog = Open(3);
    LoadScheme(folder.Path() / "bad.tps");
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
