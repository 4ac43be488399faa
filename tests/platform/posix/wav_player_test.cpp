// The WAV player, with SDL's drivers that need no sound card; one of them writes the sound to a file.
#include "platform/wav_player.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <thread>

namespace tarveth::platform {
namespace {

std::string Little(std::uint32_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(number >> 8 * i & 0xFF);
    return text;
}

// A WAV file of one channel and 16 bits a sample.
std::string Wav(const std::string& samples, std::uint32_t rate) {
    const std::string format =
        Little(1, 2) + Little(1, 2) + Little(rate, 4) + Little(rate * 2, 4) + Little(2, 2) + Little(16, 2);
    const auto length = static_cast<std::uint32_t>(samples.size());
    return "RIFF" + Little(36 + length, 4) + "WAVEfmt " + Little(16, 4) + format + "data" +
           Little(length, 4) + samples;
}

std::string Ramp(std::uint32_t count) {
    std::string samples;
    for (std::uint32_t i = 1; i <= count; ++i)
        samples += Little(i * 7, 2);
    return samples;
}

class Player : public testing::Test {
protected:
    Player() {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", played.c_str(), 1);
        setenv("SDL_DISKAUDIODELAY", "1", 1);
        PutBytes(file, Wav(Ramp(3000), 22050));
    }

    // Waits until no sound is playing.
    void WaitUntilFree() {
        while (!player.Play(folder.File("missing.wav")))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    // Gives the samples that were played, without the silence that a device may play before them.
    std::string Heard() const { return WithoutSilence(GetBytes(played)); }

    static std::string WithoutSilence(const std::string& samples) {
        return samples.substr(std::min(samples.find_first_not_of('\0'), samples.size()));
    }

    const TempFolder folder;
    const std::string played = folder.File("played.raw");
    const std::string file = folder.File("sound.wav");
    WavPlayer player;
};

TEST_F(Player, PlaysEverySampleOfAFile) {
    EXPECT_TRUE(player.Play(file));
    WaitUntilFree();
    const std::string heard = Heard();
    const std::string samples = Ramp(3000);
    ASSERT_GE(heard.size(), samples.size());
    EXPECT_TRUE(heard.starts_with(samples));
    EXPECT_EQ(heard.find_first_not_of('\0', samples.size()), std::string::npos) << "silence follows";
}

TEST_F(Player, PlaysTheSoundsThatShip) {
    for (const std::string name : {"victory", "defeat", "arrival"}) {
        const std::string shipped = TARVETH_SOURCE_DIR "/sounds/" + name + ".wav";
        while (!player.Play(shipped)) {
        }
        WaitUntilFree();
        const std::string samples = WithoutSilence(GetBytes(shipped).substr(44));
        ASSERT_GT(samples.size(), 10'000U) << name;
        EXPECT_LT(samples.size(), 100'000U) << name;
        EXPECT_TRUE(Heard().starts_with(samples)) << name;
    }
}

TEST_F(Player, PlaysOneSoundAfterAnother) {
    EXPECT_TRUE(player.Play(file));
    WaitUntilFree();
    PutBytes(file, Wav(Ramp(500), 8000));
    while (!player.Play(file)) {
    }
    WaitUntilFree();
    EXPECT_TRUE(Heard().starts_with(Ramp(500) + std::string(20, '\0')));
}

TEST_F(Player, DropsASoundWhileAnotherPlays) {
    setenv("SDL_DISKAUDIODELAY", "50", 1);
    EXPECT_TRUE(player.Play(file));
    EXPECT_FALSE(player.Play(file));
    EXPECT_FALSE(player.Play(file));
    WaitUntilFree();
    EXPECT_EQ(Heard().find(Ramp(3000), 1), std::string::npos) << "heard once";
}

TEST_F(Player, TouchesNoDeviceBeforeTheFirstSound) {
    {
        const WavPlayer unused;
        EXPECT_FALSE(std::filesystem::exists(played));
    }
    EXPECT_FALSE(std::filesystem::exists(played));
}

TEST_F(Player, IsNotHarmedByAFileCutOffAnywhere) {
    const std::string whole = Wav(Ramp(40), 22050);
    for (std::size_t length = 0; length < whole.size(); length += 5) {
        PutBytes(file, whole.substr(0, length));
        WaitUntilFree();
        while (!player.Play(file)) {
        }
    }
    WaitUntilFree();
}

TEST_F(Player, IsNotHarmedByFilesThatAreNoSound) {
    const std::string zeroRate = Wav(Ramp(40), 0);
    const std::string negativeRate = Wav(Ramp(40), 0xFFFFFFFF);
    std::string manyChannels = Wav(Ramp(40), 22050);
    manyChannels[22] = '\x7f';
    std::string longData = Wav(Ramp(40), 22050);
    longData.replace(40, 4, "\xff\xff\xff\x7f");
    for (const std::string& bytes :
         {zeroRate, negativeRate, manyChannels, longData, std::string(5000, '\xff'), Wav("", 22050)}) {
        PutBytes(file, bytes);
        WaitUntilFree();
        while (!player.Play(file)) {
        }
    }
    WaitUntilFree();
    for (const std::string& path : {folder.Name(), std::string(), std::string("/dev/zero")}) {
        while (!player.Play(path)) {
        }
        WaitUntilFree();
    }
}

TEST_F(Player, IsSilentWhereThereIsNoSound) {
    setenv("SDL_AUDIODRIVER", "of no system", 1);
    EXPECT_TRUE(player.Play(file));
    WaitUntilFree();
    EXPECT_FALSE(std::filesystem::exists(played));
}

TEST_F(Player, PlaysOnceThereIsSoundAgain) {
    setenv("SDL_AUDIODRIVER", "of no system", 1);
    EXPECT_TRUE(player.Play(file));
    WaitUntilFree();
    setenv("SDL_AUDIODRIVER", "disk", 1);
    while (!player.Play(file)) {
    }
    WaitUntilFree();
    EXPECT_TRUE(Heard().starts_with(Ramp(3000)));
}

TEST_F(Player, StopsALongSoundWhenItIsDestroyed) {
    setenv("SDL_DISKAUDIODELAY", "200", 1);
    PutBytes(file, Wav(std::string(3'000'000, '\0'), 4000)); // longer than a test may take
    WavPlayer leaving;
    EXPECT_TRUE(leaving.Play(file));
    while (!std::filesystem::exists(played))
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

} // namespace
} // namespace tarveth::platform
