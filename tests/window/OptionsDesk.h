// The options dialog of the running game, for the tests of its pages and buttons.
#pragma once

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarveth::harness {

class OptionsDesk : public testing::Test {
protected:
    // The tarveth.ini that the game starts with.
    static constexpr const char* kIni =
        "[Options]\r\nAnimateMoves=0\r\n"
        "[Sounds]\r\nNewUserSoundDelay=7\r\nSoundLoser=/sounds/lost.wav\r\n"
        "[ClientOptions]\r\nTranscriptFontName=Times New Roman\r\nTranscriptFontSize=14\r\n";

    explicit OptionsDesk(std::string_view ini = kIni) : folder(ini) {}

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

    // Reads all controls at once, since reading each by itself is slow.
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

    // Chooses a page from the list.
    void ChoosePage(int page, const std::string& caption) {
        ASSERT_NO_FATAL_FAILURE(Press("cmbOptions"));
        std::optional<AccessibleNode> entry;
        ASSERT_TRUE(WaitUntil([&] {
            entry = desk.reader.Find(WithRoleAndName("menu item", caption));
            return entry && entry->Has("showing");
        })) << caption;
        desk.WaitUntilAtRest();
        desk.screen.Click(entry->extents.Centre());
        EXPECT_TRUE(WaitUntil([&] { return Showing("fraOptions(" + std::to_string(page) + ")"); }));
        desk.WaitUntilAtRest();
        LookAround();
    }

    void Press(const std::string& id) {
        ASSERT_TRUE(Sees(id)) << id;
        desk.program.WaitForWindow("Tarveth Options"); // after a file dialog it comes back to the keyboard
        desk.WaitUntilAtRest();
        desk.screen.Click(controls[id].extents.Centre());
    }

    // Clicks on a check box and waits until its mark has changed.
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

    // Waits for the dialog that opens over the options to have the focus.
    Window NextDialog() {
        EXPECT_TRUE(WaitUntil([&] { return desk.program.Windows().size() == 3; }));
        Window next = desk.program.Windows().back();
        EXPECT_TRUE(next.Activate());
        return next;
    }

    // Changes the color of a sample, "#102030", in the system's dialog.
    void ChangeColor(int sample, const std::string& color) {
        Press("btnChange(" + std::to_string(sample) + ")");
        const Window colors = NextDialog();
        desk.screen.Key("Alt+n"); // the color's name
        desk.screen.Key("Ctrl+A");
        desk.screen.Type(color);
        desk.screen.Key("Tab");
        desk.screen.Key("Alt+s");
        ASSERT_TRUE(colors.WaitUntilGone());
    }

    void ChangeFont(int sample, const std::string& font) {
        Press("btnChangeFont(" + std::to_string(sample) + ")");
        const Window fonts = NextDialog();
        desk.screen.Type(font); // searches
        ASSERT_TRUE(desk.reader.WaitFor([&](const AccessibleNode& node) { return node.text == font; }));
        desk.screen.Key("Down");
        desk.screen.Key("Return");
        ASSERT_TRUE(fonts.WaitUntilGone());
    }

    // Closes the program and gives the lines of tarveth.ini, without their ends.
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

    GameFolder folder;
    GameDesk desk{folder};
    // What LookAround has found: the controls by their given names, and the boxes around those of the dialog.
    std::map<std::string, AccessibleNode> controls;
    Rect inside;
};

} // namespace tarveth::harness
