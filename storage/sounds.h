// Which sound is due: at the end of a game, and when somebody arrives in the lobby.
#pragma once

#include "storage/settings.h"

#include <chrono>
#include <functional>
#include <string>

namespace tarveth {

// What makes the noise. Nothing here blocks or fails.
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

    // The settings and the port outlive the object.
    Sounds(const Settings& settings, SoundPort& port, Clock clock = std::chrono::steady_clock::now);

    // The winner's or the loser's sound, or a beep when there is no such file.
    void GameEndSound(bool localPlayerWon);
    // A new user's sound, at most once in "NewUserSoundDelay" seconds; without such a file a beep, every
    // time.
    void NewUserSound();

private:
    const Settings& settings_;
    SoundPort& port_;
    Clock clock_;
    Time nextNewUserSound_ = Time::min();
};

} // namespace tarveth
