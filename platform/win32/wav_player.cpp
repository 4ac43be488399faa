// Windows plays sounds asynchronously itself, so the player has no state.
#include "platform/wav_player.h"

#include "platform/win32/wide_text.h"

#include <windows.h>

#include <mmsystem.h>

namespace tarveth::platform {

namespace {

// SND_ASYNC, SND_NOWAIT and SND_APPLICATION: returns at once, and drops the sound while the driver is busy.
constexpr UINT kFlags = SND_ASYNC | SND_APPLICATION | SND_NOWAIT;
static_assert(kFlags == 8321);

} // namespace

struct WavPlayer::Work {};

WavPlayer::WavPlayer() = default;

WavPlayer::~WavPlayer() {
    sndPlaySoundA(nullptr, 0);
}

bool WavPlayer::Play(const std::string& path) {
    const auto file = AnsiPath(path);
    return file && sndPlaySoundA(file->c_str(), kFlags) != FALSE;
}

} // namespace tarveth::platform
