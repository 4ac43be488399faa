// The pages of the options dialog of the real program, and what a screen reader is told on each of them.

#include "tests/window/OptionsDesk.h"

namespace tarveth::harness {
namespace {

using Lines = std::vector<std::string>;

class OptionsPages : public OptionsDesk {
protected:
    // What is told about the page, itself first: "given name or role: name: text".
    Lines ToldOn(int page) {
        Open(page);
        Lines lines;
        int pageDepth = -1;
        for (const AccessibleNode& control : desk.reader.Read()) {
            if (control.id == "fraOptions(" + std::to_string(page) + ")") {
                pageDepth = control.depth;
            } else if (control.depth <= pageDepth) {
                break;
            }
            if (pageDepth >= 0 && !control.name.empty()) {
                lines.push_back(Line(control));
            }
        }
        return lines;
    }

private:
    static std::string Line(const AccessibleNode& control) {
        const bool isFilled = control.role == "text" && !control.text.empty();
        return (control.id.empty() ? control.role : control.id) + ": " + control.name +
               (isFilled ? ": " + control.text : "");
    }
};

TEST_F(OptionsPages, AreShownOneAtATime) {
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

TEST_F(OptionsPages, AreListedInTheirOrder) {
    Open();
    Lines entries;
    bool isInList = false;
    for (const AccessibleNode& control : desk.reader.Read()) {
        isInList = control.id == "cmbOptions" || (isInList && control.role.starts_with("menu"));
        if (isInList && control.role == "menu item") {
            entries.push_back(control.name);
        }
    }
    EXPECT_EQ(entries,
              (Lines{"Play Options", "Chat Font & Color Options", "Sound Options", "Piece Picture Options"}));
}

TEST_F(OptionsPages, ComeWhenChosenFromTheList) {
    Open();
    ChoosePage(3, "Piece Picture Options");
    ChoosePage(1, "Chat Font & Color Options");
    ChoosePage(2, "Sound Options");
    ChoosePage(0, "Play Options");
}

TEST_F(OptionsPages, TellThePlayOptions) {
    EXPECT_EQ(ToldOn(0), (Lines{
                             "fraOptions(0): Play Options",
                             "chkPlayOptions(0): Animate Moves",
                             "chkPlayOptions(1): Show Grid Labels",
                             "chkPlayOptions(2): Show ZOC On Right Click",
                             "chkPlayOptions(3): Show Move History",
                             "chkPlayOptions(4): Auto-Save Move History At Game End",
                         }));
    for (int i = 1; i < 5; ++i) {
        EXPECT_GT(controls["chkPlayOptions(" + std::to_string(i) + ")"].extents.y,
                  controls["chkPlayOptions(" + std::to_string(i - 1) + ")"].extents.y)
            << i;
    }
}

TEST_F(OptionsPages, TellTheColorsAndFonts) {
    EXPECT_EQ(ToldOn(1), (Lines{
                             "fraOptions(1): Chat Font & Color Options",
                             "txtSample(0): Sample: Text that you wrote",
                             "btnChange(0): Change the color of: Text that you wrote",
                             "txtSample(1): Sample: Text that your opponent wrote",
                             "btnChange(1): Change the color of: Text that your opponent wrote",
                             "txtSample(2): Sample: Text of most system messages",
                             "btnChange(2): Change the color of: Text of most system messages",
                             "txtSample(3): Sample: Everything else (other chatters, etc.)",
                             "btnChange(3): Change the color of: Everything else (other chatters, etc.)",
                             "label: Your current transcript font",
                             "txtSampleFont(0): Your current transcript font: 14pt Times New Roman",
                             "btnChangeFont(0): Change: Your current transcript font",
                             "label: Your current users list font",
                             "txtSampleFont(1): Your current users list font: 8pt MS Sans Serif",
                             "btnChangeFont(1): Change: Your current users list font",
                             "label: Your current chat text font",
                             "txtSampleFont(2): Your current chat text font: 8pt MS Sans Serif",
                             "btnChangeFont(2): Change: Your current chat text font",
                         }));
}

TEST_F(OptionsPages, TellTheSounds) {
    EXPECT_EQ(ToldOn(2), (Lines{
                             "fraOptions(2): Sound Options",
                             "chkSounds: Play sound when new user logs on to server",
                             "label: Sound to play when new user logs on",
                             "txtSound(0): Sound to play when new user logs on: <beep>",
                             "btnChangeSound(0): Set new sound: Sound to play when new user logs on",
                             "btnClearSound(0): Clear sound: Sound to play when new user logs on",
                             "label: Sound to play when you win a game",
                             "txtSound(1): Sound to play when you win a game: <beep>",
                             "btnChangeSound(1): Set new sound: Sound to play when you win a game",
                             "btnClearSound(1): Clear sound: Sound to play when you win a game",
                             "label: Sound to play when you lose a game",
                             "txtSound(2): Sound to play when you lose a game: /sounds/lost.wav",
                             "btnChangeSound(2): Set new sound: Sound to play when you lose a game",
                             "btnClearSound(2): Clear sound: Sound to play when you lose a game",
                             "label: Delay before sound can play again",
                             "txtInput: Delay before sound can play again",
                             "label: seconds",
                         }));
}

TEST_F(OptionsPages, TellThePictures) {
    Lines told{
        "fraOptions(3): Piece Picture Options",
        "label: Current Picture Scheme",
        "txtPictureScheme: Current Picture Scheme: [none]",
        "btnChangePictureScheme: Change picture scheme...",
        "btnSavePictureScheme: Save As...",
        "btnClearScheme: Clear scheme",
    };
    const auto add = [&](const std::string& side, const std::string& kind, const std::string& caption) {
        told.insert(told.end(),
                    {
                        "label: " + caption,
                        "txt" + side + "Picture" + kind + ": " + caption + ": [none]",
                        "pic" + side + "Preview" + kind + ": " + caption,
                        "btnChange" + side + "Picture" + kind + ": Load a new picture: " + caption,
                        "btnClear" + side + "Picture" + kind + ": Clear picture: " + caption,
                    });
    };
    add("Blue", "(1)", "Picture for the Blue Masters");
    add("Blue", "(2)", "Picture for the Blue Officers");
    add("Blue", "(3)", "Picture for the Blue Pawns");
    add("Red", "(1)", "Picture for the Red Masters");
    add("Red", "(2)", "Picture for the Red Officers");
    add("Red", "(3)", "Picture for the Red Pawns");
    EXPECT_EQ(ToldOn(3), told);
}

} // namespace
} // namespace tarveth::harness
