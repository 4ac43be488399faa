#include "storage/sounds.h"

#include "platform/file_exists.h"
#include "platform/text_path.h"

#include <utility>

namespace tarveth {

Sounds::Sounds(const Settings& settings, SoundPort& port, std::vector<std::string> folders, Clock clock)
    : settings_(settings), port_(port), folders_(std::move(folders)), clock_(std::move(clock)) {}

// Gives the path of the file that the name in the settings means; empty when there is none.
std::string Sounds::Find(const std::string& name) const {
    if (!platform::PathFromText(name).has_root_path())
        return platform::FindInFolders(name, folders_);
    return platform::FileExists(name) ? name : std::string{};
}

void Sounds::GameEndSound(bool localPlayerWon) {
    const std::string path = Find(localPlayerWon ? settings_.SoundVictor : settings_.SoundLoser);
    if (path.empty())
        port_.Beep();
    else
        port_.PlayWav(path);
}

void Sounds::NewUserSound() {
    if (!settings_.PlaysNewUserSound())
        return;
    const std::string path = Find(settings_.NewUserSound);
    if (path.empty()) {
        port_.Beep();
        return;
    }
    const Time now = clock_();
    if (now < nextNewUserSound_)
        return;
    nextNewUserSound_ = now + std::chrono::seconds(settings_.NewUserSoundDelay);
    port_.PlayWav(path);
}

} // namespace tarveth
