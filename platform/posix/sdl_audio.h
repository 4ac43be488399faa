// SDL's audio functions, loaded with dlopen for the first sound. Linked to the program, SDL and the fifty
// libraries that it needs would take a good part of the start-up time.
#pragma once

#include <SDL2/SDL.h>

namespace tarveth::platform {

struct SdlAudio {
    decltype(&SDL_SetHint) SetHint = nullptr;
    decltype(&SDL_InitSubSystem) InitSubSystem = nullptr;
    decltype(&SDL_QuitSubSystem) QuitSubSystem = nullptr;
    decltype(&SDL_TLSCleanup) TLSCleanup = nullptr;
    decltype(&SDL_RWFromFile) RWFromFile = nullptr;
    decltype(&SDL_LoadWAV_RW) LoadWAV_RW = nullptr;
    decltype(&SDL_FreeWAV) FreeWAV = nullptr;
    decltype(&SDL_OpenAudioDevice) OpenAudioDevice = nullptr;
    decltype(&SDL_CloseAudioDevice) CloseAudioDevice = nullptr;
    decltype(&SDL_PauseAudioDevice) PauseAudioDevice = nullptr;
    decltype(&SDL_QueueAudio) QueueAudio = nullptr;
    decltype(&SDL_GetQueuedAudioSize) GetQueuedAudioSize = nullptr;

    // Loads the library, which may take a while. False when the library or one of its functions is missing.
    bool Load();
};

} // namespace tarveth::platform
