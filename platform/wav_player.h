// Plays WAV files asynchronously.
#pragma once

#include <memory>
#include <string>

namespace tarveth::platform {

class WavPlayer {
public:
    // Opens no audio device; that is done for the first sound.
    WavPlayer();
    // Stops a sound that is playing.
    ~WavPlayer();
    WavPlayer(const WavPlayer&) = delete;
    WavPlayer& operator=(const WavPlayer&) = delete;

    // Starts playing the file and returns at once. False when another sound is playing: this one is then
    // dropped. Nothing is heard of a file that is no WAV, and on a system without sound.
    bool Play(const std::string& path);

private:
    struct Work;
    std::shared_ptr<Work> work_;
};

} // namespace tarveth::platform
