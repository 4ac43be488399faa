// Chooses the sounds that the settings name: at the end of a game, and when a user arrives in the lobby.
#pragma once

#include "storage/settings.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace tarveth {

// The sound output. No call blocks or fails.
struct SoundPort {
    virtual ~SoundPort() = default;
    virtual void Beep() = 0;
    // Begins to play a WAV file; while another one plays, nothing happens.
    virtual void PlayWav(const std::string& path) = 0;
};

class Sounds {
public:
    using Time = std::chrono::steady_clock::time_point;
    using Clock = std::function<Time()>;

    // The settings and the port outlive the object. A sound with a relative name is looked for in `folders`
    // (with trailing separators), in this order.
    Sounds(const Settings& settings, SoundPort& port, std::vector<std::string> folders,
           Clock clock = std::chrono::steady_clock::now);

    // Plays the winner's or the loser's sound, or beeps when there is no such file.
    void GameEndSound(bool localPlayerWon);
    // Plays the sound for a new user, at most once in "NewUserSoundDelay" seconds. When there is no such
    // file, it beeps each time.
    void NewUserSound();

private:
    std::string Find(const std::string& name) const;

    const Settings& settings_;
    SoundPort& port_;
    std::vector<std::string> folders_;
    Clock clock_;
    Time nextNewUserSound_ = Time::min();
};

} // namespace tarveth
