// Which sound is played, and when.
#include "storage/sounds.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarveth {
namespace {

struct RecordingSounds : SoundPort {
    void Beep() override { heard.emplace_back("beep"); }
    void PlayWav(const std::string& path) override { heard.push_back(path); }

    std::vector<std::string> heard;
};

using Heard = std::vector<std::string>;

class GameSounds : public testing::Test {
protected:
    GameSounds() {
        for (const std::string& file : {victor, loser, arrival})
            PutBytes(file, "RIFF");
        settings.UseNewUserSound = -1;
    }

    void ArriveAfter(int seconds) {
        now += std::chrono::seconds(seconds);
        sounds.NewUserSound();
    }

    TempFolder folder;
    std::string victor = folder.File("victor.wav");
    std::string loser = folder.File("loser.wav");
    std::string arrival = folder.File("arrival.wav");
    Settings settings;
    RecordingSounds port;
    Sounds::Time now{};
    std::string mine = folder.File("mine/");
    std::string shipped = folder.File("shipped/");
    Sounds sounds{settings, port, {mine, shipped}, [this] { return now; }};
};

TEST_F(GameSounds, OfAGameEndAreTheWinnersAndTheLosers) {
    settings.SoundVictor = victor;
    settings.SoundLoser = loser;
    sounds.GameEndSound(true);
    sounds.GameEndSound(false);
    EXPECT_EQ(port.heard, (Heard{victor, loser}));
}

TEST_F(GameSounds, OfAGameEndAreOneBeepWithoutAName) {
    settings.SoundLoser = loser;
    sounds.GameEndSound(true);
    EXPECT_EQ(port.heard, Heard{"beep"});
}

TEST_F(GameSounds, OfAGameEndAreOneBeepWithoutTheFile) {
    settings.SoundVictor = victor;
    settings.SoundLoser = folder.File("deleted.wav");
    sounds.GameEndSound(false);
    EXPECT_EQ(port.heard, Heard{"beep"});
    settings.SoundLoser = folder.Name();
    sounds.GameEndSound(false);
    EXPECT_EQ(port.heard, (Heard{"beep", "beep"})) << "a folder is no sound";
}

TEST_F(GameSounds, OfARelativeNameAreTheUsersOwnOrElseTheShippedOnes) {
    settings.SoundVictor = "sounds/victor.wav";
    settings.NewUserSound = "sounds/arrival.wav";
    for (const std::string& where : {mine, shipped})
        std::filesystem::create_directories(where + "sounds");
    for (const char* file : {"victor.wav", "arrival.wav"})
        PutBytes(shipped + "sounds/" + file, "RIFF");
    PutBytes(mine + "sounds/arrival.wav", "RIFF");
    sounds.GameEndSound(true);
    sounds.NewUserSound();
    EXPECT_EQ(port.heard, (Heard{shipped + "sounds/victor.wav", mine + "sounds/arrival.wav"}));
    settings.SoundLoser = "sounds/none.wav";
    sounds.GameEndSound(false);
    EXPECT_EQ(port.heard.back(), "beep");
}

TEST_F(GameSounds, OfAGameEndAskNeitherTheSwitchNorTheTime) {
    settings.UseNewUserSound = 0;
    settings.NewUserSoundDelay = 60;
    settings.SoundVictor = victor;
    sounds.GameEndSound(true);
    sounds.GameEndSound(true);
    EXPECT_EQ(port.heard, (Heard{victor, victor}));
}

TEST_F(GameSounds, OfNewUsersAreNoneWhenSwitchedOff) {
    settings.UseNewUserSound = 0;
    sounds.NewUserSound();
    settings.NewUserSound = arrival;
    sounds.NewUserSound();
    EXPECT_EQ(port.heard, Heard{});
}

TEST_F(GameSounds, OfNewUsersAreOnForAnyNumberButZero) {
    settings.UseNewUserSound = 1;
    sounds.NewUserSound();
    EXPECT_EQ(port.heard, Heard{"beep"});
}

TEST_F(GameSounds, OfNewUsersBeepEveryTimeWithoutTheFile) {
    settings.NewUserSoundDelay = 5;
    for (const std::string& name : {std::string(), std::string("<beep>"), folder.File("deleted.wav")}) {
        settings.NewUserSound = name;
        sounds.NewUserSound();
        sounds.NewUserSound();
    }
    EXPECT_EQ(port.heard, Heard(6, "beep"));
}

TEST_F(GameSounds, OfNewUsersKeepTheirDelay) {
    settings.NewUserSound = arrival;
    settings.NewUserSoundDelay = 5;
    ArriveAfter(0);
    ArriveAfter(2);
    ArriveAfter(2);
    EXPECT_EQ(port.heard, Heard{arrival});
    ArriveAfter(1);
    EXPECT_EQ(port.heard, (Heard{arrival, arrival})) << "five seconds later to the moment";
    ArriveAfter(4);
    EXPECT_EQ(port.heard, (Heard{arrival, arrival})) << "the delay counts from the last one played";
}

TEST_F(GameSounds, OfNewUsersArePlayedForEveryOneWithoutADelay) {
    settings.NewUserSound = arrival;
    for (const std::int16_t delay : {std::int16_t{0}, std::int16_t{-7}}) {
        settings.NewUserSoundDelay = delay;
        ArriveAfter(0);
        ArriveAfter(0);
    }
    EXPECT_EQ(port.heard, Heard(4, arrival));
}

TEST_F(GameSounds, OfNewUsersThatOnlyBeepDoNotStartTheDelay) {
    settings.NewUserSoundDelay = 5;
    ArriveAfter(0);
    settings.NewUserSound = arrival;
    ArriveAfter(1);
    EXPECT_EQ(port.heard, (Heard{"beep", arrival}));
}

} // namespace
} // namespace tarveth
