// Tests of the window tests' own harness, on a sample window.

#include "tests/window/Accessible.h"
#include "tests/window/Program.h"

#include <gtest/gtest.h>

#include <csignal>

namespace tarveth::harness {
namespace {

class Harness : public testing::Test {
protected:
    AccessibleNode Control(const NodeCondition& condition) const {
        const auto control = reader.WaitFor(condition);
        EXPECT_TRUE(control) << reader.Outline();
        return control.value_or(AccessibleNode{});
    }

    bool MessageBecomes(const std::string& text) const {
        return WaitUntil([&] { return reader.LabelText("lblMessage") == text; });
    }

    Screen screen;
    Program program{screen, {.path = PROGRAM_UNDER_TEST}};
    Window window = program.WaitForWindow("Sample");
    ScreenReader reader{program.Pid()};
    AccessibleNode board = Control(WithId("picDisplay"));
};

TEST_F(Harness, FindsTheWindowByItsTitle) {
    EXPECT_EQ(window.Title(), "Sample window");
    EXPECT_EQ(program.WindowTitles(), std::vector<std::string>{"Sample window"});
    EXPECT_EQ(screen.Active(), window.Id());
}

TEST_F(Harness, SaysWhichWindowDidNotCome) {
    EXPECT_THROW(program.WaitForWindow("Another", Milliseconds(50)), std::runtime_error);
}

TEST_F(Harness, ClosesThroughTheMenuWithTheMouse) {
    screen.Click(Control(WithRoleAndName("menu", "File")).extents.Centre());
    const auto showing = [](const AccessibleNode& node) {
        return node.name == "Exit" && node.Has("showing");
    };
    screen.Click(Control(showing).extents.Centre());
    EXPECT_EQ(program.WaitForExit(), 0);
}

TEST_F(Harness, ClosesThroughTheMenuWithTheKeyboard) {
    screen.Key("Alt+F");
    screen.Key("x");
    EXPECT_EQ(program.WaitForExit(), 0);
}

TEST_F(Harness, ClosesThroughTheWindowManager) {
    window.Close();
    EXPECT_EQ(program.WaitForExit(), 0);
    EXPECT_TRUE(window.WaitUntilGone());
    EXPECT_FALSE(program.Alive());
}

TEST_F(Harness, EndsWithTheSignalThatEndedIt) {
    kill(program.Pid(), SIGKILL);
    EXPECT_EQ(program.WaitForExit(), 128 + SIGKILL);
}

TEST_F(Harness, MovesAndResizesTheWindow) {
    window.MoveTo({40, 60});
    window.Resize(500, 400);
    EXPECT_TRUE(WaitUntil([&] {
        const Rect client = window.ClientArea();
        const Rect frame = window.Frame();
        return client.width == 500 && client.height == 400 && frame.x == 40 && frame.y == 60;
    }));
    EXPECT_GT(window.Frame().height, 400) << "a title bar is part of the frame";
}

TEST_F(Harness, ClicksWhereItIsTold) {
    screen.Click({board.extents.x + 30, board.extents.y + 40});
    EXPECT_TRUE(MessageBecomes("left 30,40")) << reader.Outline();
    const Rect client = window.ClientArea();
    window.Click({board.extents.x - client.x + 7, board.extents.y - client.y + 9}, Button::Right);
    EXPECT_TRUE(MessageBecomes("right 7,9")) << reader.Outline();
}

TEST_F(Harness, TypesIntoTheFocusedControl) {
    ASSERT_TRUE(Control(WithId("txtEntry")).Has("focused"));
    screen.Type("Tarveth, 4E!");
    EXPECT_TRUE(WaitUntil([&] { return reader.LabelText("txtEntry") == "Tarveth, 4E!"; }))
        << reader.Outline();
    screen.Key("Ctrl+A");
    screen.Key("BackSpace");
    EXPECT_TRUE(WaitUntil([&] { return reader.LabelText("txtEntry").empty(); })) << reader.Outline();
}

TEST_F(Harness, FindsADialogAndAnswersIt) {
    screen.Key("Alt+F");
    screen.Key("a");
    const Window dialog = program.WaitForWindow("About");
    EXPECT_TRUE(reader.WaitFor(WithRoleAndName("label", "What this is"))) << reader.Outline();
    screen.Key("Return");
    EXPECT_TRUE(dialog.WaitUntilGone());
    EXPECT_TRUE(window.Visible());
}

TEST_F(Harness, PhotographsWhatIsInTheWindow) {
    constexpr std::uint32_t kBlue = 0x0000FF;
    const auto blueAtBoard = [&] {
        const Rect client = window.ClientArea();
        const Point centre = board.extents.Centre();
        return window.Capture().Pixel(centre.x - client.x, centre.y - client.y) == kBlue;
    };
    EXPECT_TRUE(WaitUntil(blueAtBoard));
    EXPECT_GT(window.Capture().ColourCount(), 2);
}

TEST_F(Harness, CutsAPictureToTheScreen) {
    const Rect all = screen.Area();
    const Picture corner = screen.Capture({all.width - 10, all.height - 5, 100, 100});
    EXPECT_EQ(corner.width, 10);
    EXPECT_EQ(corner.height, 5);
    EXPECT_THROW((void)corner.Pixel(10, 0), std::out_of_range);
}

TEST_F(Harness, ReadsNamesDescriptionsAndTexts) {
    const AccessibleNode label = Control(WithId("lblMessage"));
    EXPECT_EQ(label.role, "label");
    EXPECT_EQ(label.name, "at rest");
    EXPECT_EQ(label.text, "at rest");
    EXPECT_EQ(label.description, "Message");
    EXPECT_EQ(board.name, "Board");
    const AccessibleNode list = Control(WithId("lstHistory"));
    EXPECT_EQ(list.name, "Moves");
    EXPECT_EQ(list.role, "table");
    EXPECT_TRUE(reader.Find(WithRoleAndName("table cell", "second line"))) << reader.Outline();
}

TEST_F(Harness, ReadsALabelAgainAfterItHasChanged) {
    ASSERT_EQ(reader.LabelText("lblMessage"), "at rest");
    screen.Key("Alt+P");
    EXPECT_TRUE(MessageBecomes("pressed"));
    EXPECT_EQ(Control(WithId("lblMessage")).name, "pressed");
    EXPECT_THROW((void)reader.LabelText("lblNobody"), std::runtime_error);
}

TEST_F(Harness, AsksNothingThatMakesTheProgramComplain) {
    const std::string before = program.Output();
    EXPECT_FALSE(reader.Read().empty());
    EXPECT_EQ(program.Output(), before);
}

TEST_F(Harness, CountsWhatTheProgramUses) {
    const ProcessUsage before = program.Usage();
    EXPECT_GT(before.peakMemoryKiB, 1000);
    EXPECT_GT(WakeUpsBetween({}, before), 0);
    screen.Click(board.extents.Centre());
    EXPECT_TRUE(WaitUntil([&] { return WakeUpsBetween(before, program.Usage()) > 0; }));
    EXPECT_GT(program.Usage().cpuTime, before.cpuTime);
}

TEST(Usage, AThreadThatHasEndedIsOneWakeUpAndTakesNothingOfTheOthersAway) {
    const ProcessUsage before{.voluntarySwitches = {{1, 10}, {2, 500}, {3, 7}}};
    const ProcessUsage after{.voluntarySwitches = {{1, 14}, {3, 7}, {4, 2}}};
    EXPECT_EQ(WakeUpsBetween(before, after), 4 + 1 + 0 + 2);
}

TEST_F(Harness, PassesArgumentsEnvironmentAndFolder) {
    Program shell(screen, {.path = "/bin/sh",
                           .arguments = {"-c", "echo $GDK_SCALE $PWD; exit 7"},
                           .environment = {{"GDK_SCALE", "2"}},
                           .workingFolder = "/usr"});
    EXPECT_EQ(shell.WaitForExit(), 7);
    EXPECT_EQ(shell.Output(), "2 /usr\n");
}

TEST_F(Harness, SaysThatAProgramIsNotThere) {
    Program missing(screen, {.path = "/no/such/program"});
    EXPECT_EQ(missing.WaitForExit(), 127);
}

} // namespace
} // namespace tarveth::harness
