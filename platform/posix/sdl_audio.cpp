#include "platform/posix/sdl_audio.h"

#include <dlfcn.h>

namespace tarveth::platform {

namespace {

constexpr const char* kLibrary = "libSDL2-2.0.so.0";

// An error handler for ALSA, which otherwise writes to standard error about every device that it does not
// find.
void SayNothing(const char*, int, const char*, int, const char*, ...) {} // NOLINT(cert-dcl50-cpp): its type

void Silence(void* library) {
    using Handler = decltype(&SayNothing);
    using SetHandler = int (*)(Handler);
    if (void* const found = dlsym(library, "snd_lib_error_set_handler"))
        reinterpret_cast<SetHandler>(found)(&SayNothing);
}

template <typename Function>
bool Take(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

} // namespace

bool SdlAudio::Load() {
    // The library is never unloaded, since it leaves threads and handlers of other libraries behind.
    void* const library = dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        return false;
    Silence(library);
    return Take(library, "SDL_SetHint", SetHint) && Take(library, "SDL_InitSubSystem", InitSubSystem) &&
           Take(library, "SDL_QuitSubSystem", QuitSubSystem) && Take(library, "SDL_TLSCleanup", TLSCleanup) &&
           Take(library, "SDL_RWFromFile", RWFromFile) && Take(library, "SDL_LoadWAV_RW", LoadWAV_RW) &&
           Take(library, "SDL_FreeWAV", FreeWAV) && Take(library, "SDL_OpenAudioDevice", OpenAudioDevice) &&
           Take(library, "SDL_CloseAudioDevice", CloseAudioDevice) &&
           Take(library, "SDL_PauseAudioDevice", PauseAudioDevice) &&
           Take(library, "SDL_QueueAudio", QueueAudio) &&
           Take(library, "SDL_GetQueuedAudioSize", GetQueuedAudioSize);
}

} // namespace tarveth::platform
