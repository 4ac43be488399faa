// Plays the game's sounds with the toolkit's bell and the platform's WAV player.
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
