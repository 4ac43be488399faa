// The sounds of the running game, recorded by SDL's driver that writes them to a file.

#include "storage/modFileIO.h"
#include "tests/TestGame.h"
#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

#include <fstream>

namespace tarveth::harness {
namespace {

// Each side has one Master left, beside the other's, and a Pawn far off.
constexpr const char* kLastMasters = "turn B | BM 4D | BP 1A | RM 4E | RP 8H | "
                                     "jail BM BM BO BO BO BO BP BP BP BP BP RM RM RO RO RO RO RP RP RP RP RP";

std::string FileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class Sounds : public testing::Test {
protected:
    Sounds() {
        folder.Write("tarveth.ini", "[Options]\r\nAnimateMoves=0\r\n[Sounds]\r\nSoundVictor=" +
                                        std::string(TARVETH_SOURCE_DIR "/sounds/arrival.wav\r\n"));
        folder.Write("last.tsg", GameText(test::TestGame(kLastMasters).game, "last"));
    }

    GameDeskOptions With(const std::string& driver) const {
        return {.arguments = {(folder.Path() / "last.tsg").string()},
                .environment = {{"SDL_AUDIODRIVER", driver},
                                {"SDL_DISKAUDIOFILE", (folder.Path() / "played.raw").string()},
                                {"SDL_DISKAUDIODELAY", "1"}}};
    }

    // Whether the program has loaded the sound library.
    static bool ReadyForSound(const GameDesk& desk) {
        return FileBytes("/proc/" + std::to_string(desk.program.Pid()) + "/maps").find("libSDL2") !=
               std::string::npos;
    }

    GameFolder folder;
};

TEST_F(Sounds, OfTheVictoryAreHeardAndNothingOfThemIsLoadedBefore) {
    GameDesk desk(folder, With("disk"));
    EXPECT_FALSE(ReadyForSound(desk));
    desk.Move("4D", "4E");
    ASSERT_TRUE(desk.PromptBecomes("Game Over"));
    const std::string samples = FileBytes(TARVETH_SOURCE_DIR "/sounds/arrival.wav").substr(44);
    EXPECT_TRUE(WaitUntil([&] { return folder.Read("played.raw").find(samples) != std::string::npos; }));
    EXPECT_TRUE(ReadyForSound(desk));
    EXPECT_EQ(desk.Close(), 0);
}

TEST_F(Sounds, OfARelativeNameAreFoundBesideAnInstalledProgram) {
    const GameFolder home;
    const std::string data = (home.Path() / "data").string();
    std::filesystem::create_directories(home.Path() / "data/tarveth");
    home.Write("data/tarveth/tarveth.ini",
               "[Options]\r\nAnimateMoves=0\r\n[Sounds]\r\nSoundVictor=sounds/arrival.wav\r\n");
    std::filesystem::copy(TARVETH_SOURCE_DIR "/sounds", folder.Path() / "sounds");
    GameDeskOptions options = With("disk");
    options.environment["SDL_DISKAUDIOFILE"] = (home.Path() / "played.raw").string();
    const GameDeskOptions installed = InReadOnlyFolder(folder, data);
    options.environment.insert(installed.environment.begin(), installed.environment.end());
    options.through = installed.through;
    GameDesk desk(folder, options);
    desk.Move("4D", "4E");
    ASSERT_TRUE(desk.PromptBecomes("Game Over"));
    const std::string samples = FileBytes(TARVETH_SOURCE_DIR "/sounds/arrival.wav").substr(44);
    EXPECT_TRUE(WaitUntil([&] { return home.Read("played.raw").find(samples) != std::string::npos; }));
    EXPECT_EQ(desk.Close(), 0);
}

TEST_F(Sounds, DoNotDisturbTheGameOnASystemWithoutSound) {
    GameDesk desk(folder, With("of no system"));
    desk.Move("4D", "4E");
    ASSERT_TRUE(desk.PromptBecomes("Game Over"));
    EXPECT_TRUE(WaitUntil([&] { return ReadyForSound(desk); }));
    desk.WaitUntilAtRest();
    EXPECT_EQ(desk.program.WindowTitles().size(), 1U);
    EXPECT_EQ(desk.Close(), 0);
    EXPECT_EQ(desk.program.Output(), "");
}

TEST_F(Sounds, EndWithTheProgram) {
    GameDeskOptions slow = With("disk");
    slow.environment["SDL_DISKAUDIODELAY"] = "500";
    GameDesk desk(folder, slow);
    desk.Move("4D", "4E");
    ASSERT_TRUE(desk.PromptBecomes("Game Over"));
    ASSERT_TRUE(WaitUntil([&] { return folder.Has("played.raw"); }));
    EXPECT_EQ(desk.Close(), 0);
}

} // namespace
} // namespace tarveth::harness
