// The game's sounds on this system.
#pragma once

#include "platform/wav_player.h"
#include "storage/sounds.h"

#include <wx/utils.h>

namespace tarveth {

class Speaker : public SoundPort {
public:
    void Beep() override { wxBell(); }
    void PlayWav(const std::string& path) override { player_.Play(path); }

private:
    platform::WavPlayer player_;
};

} // namespace tarveth
