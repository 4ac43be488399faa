// Plays WAV files beside the running program: the system's asynchronous player.
#pragma once

#include <memory>
#include <string>

namespace tarveth::platform {

class WavPlayer {
public:
    // Touches no audio device; the first sound does.
    WavPlayer();
    // Ends a sound that is playing.
    ~WavPlayer();
    WavPlayer(const WavPlayer&) = delete;
    WavPlayer& operator=(const WavPlayer&) = delete;

    // Begins to play the file and returns at once. False when a sound is playing: this one is then dropped.
    // A file that is no WAV, and a system without sound, play nothing.
    bool Play(const std::string& path);

private:
    struct Work;
    std::shared_ptr<Work> work_;
};

} // namespace tarveth::platform
