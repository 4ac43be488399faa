#include "storage/sounds.h"

#include "platform/file_exists.h"

#include <utility>

namespace tarveth {

Sounds::Sounds(const Settings& settings, SoundPort& port, Clock clock)
    : settings_(settings), port_(port), clock_(std::move(clock)) {}

void Sounds::GameEndSound(bool localPlayerWon) {
    const std::string& path = localPlayerWon ? settings_.SoundVictor : settings_.SoundLoser;
    if (platform::FileExists(path))
        port_.PlayWav(path);
    else
        port_.Beep();
}

void Sounds::NewUserSound() {
    if (!settings_.PlaysNewUserSound())
        return;
    if (!platform::FileExists(settings_.NewUserSound)) {
        port_.Beep();
        return;
    }
    const Time now = clock_();
    if (now < nextNewUserSound_)
        return;
    nextNewUserSound_ = now + std::chrono::seconds(settings_.NewUserSoundDelay);
    port_.PlayWav(settings_.NewUserSound);
}

} // namespace tarveth
