// The system plays by itself; nothing has to be kept.
#include "platform/wav_player.h"

#include "platform/win32/wide_text.h"

#include <windows.h>

#include <mmsystem.h>

namespace tarveth::platform {

namespace {

// Asynchronous, for this application, dropped while the driver is busy.
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
