// A thread loads and plays the files; the caller only passes it a file's name. Opening an audio device may
// take seconds if a sound server does not answer, and the caller must not wait for that.
#include "platform/wav_player.h"

#include "platform/posix/sdl_audio.h"

#include <bit>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>

namespace tarveth::platform {

namespace {

using namespace std::chrono_literals;

constexpr std::uintmax_t kLargestFile = 32 << 20;
constexpr auto kPatience = 2s; // the wait for a device that does not answer

// The samples of a WAV file.
class Samples {
public:
    Samples(const SdlAudio& sdl, const std::string& path) : sdl_(sdl) {
        std::error_code error;
        if (std::filesystem::file_size(path, error) > kLargestFile || error)
            return;
        SDL_RWops* const file = sdl.RWFromFile(path.c_str(), "rb");
        if (file == nullptr || sdl.LoadWAV_RW(file, 1, &format, &bytes, &count) == nullptr)
            bytes = nullptr;
    }
    ~Samples() {
        if (bytes != nullptr)
            sdl_.FreeWAV(bytes);
    }
    Samples(const Samples&) = delete;
    Samples& operator=(const Samples&) = delete;

    // Whether the file has samples in a format that an audio device can be opened with.
    bool Playable() const {
        return bytes != nullptr && count > 0 && format.freq >= 1000 && format.freq <= 384'000 &&
               format.channels >= 1 && format.channels <= 8;
    }
    std::chrono::duration<double> Length() const {
        return std::chrono::duration<double>(count) / (SDL_AUDIO_BITSIZE(format.format) / 8.0) /
               format.channels / format.freq;
    }

    SDL_AudioSpec format{};
    Uint8* bytes = nullptr;
    Uint32 count = 0; // the number of bytes

private:
    const SdlAudio& sdl_;
};

// Gives the format to open the device with: the file's own, with a buffer of a twentieth of a second. The
// buffer is small, since closing a device waits until its buffer has been played.
SDL_AudioSpec WantedFrom(const SDL_AudioSpec& file) {
    SDL_AudioSpec wanted = file;
    wanted.samples = static_cast<Uint16>(std::bit_floor(static_cast<unsigned>(file.freq) / 20));
    return wanted;
}

// Plays one file. Returns at its end, or as soon as `stopsWithin`, which waits for a time, gives true.
template <typename StopsWithin>
void PlayFile(const SdlAudio& sdl, const std::string& path, StopsWithin stopsWithin) {
    const Samples samples(sdl, path);
    if (!samples.Playable())
        return;
    const SDL_AudioSpec wanted = WantedFrom(samples.format);
    const SDL_AudioDeviceID device = sdl.OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device == 0)
        return;
    if (sdl.QueueAudio(device, samples.bytes, samples.count) == 0) {
        sdl.PauseAudioDevice(device, 0);
        const auto deadline = std::chrono::steady_clock::now() + samples.Length() + kPatience;
        while (sdl.GetQueuedAudioSize(device) > 0 && std::chrono::steady_clock::now() < deadline)
            if (stopsWithin(20ms))
                break;
    }
    sdl.CloseAudioDevice(device);
}

// Starts SDL's audio. False if this system has none.
bool Begin(SdlAudio& sdl) {
    if (!sdl.Load())
        return false;
    sdl.SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    sdl.SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tarveth");
    return sdl.InitSubSystem(SDL_INIT_AUDIO) == 0;
}

} // namespace

// The state that the caller's thread and the player's thread share. The player's thread keeps it alive while
// it runs.
struct WavPlayer::Work {
    std::mutex mutex;
    std::condition_variable changed;
    std::string path; // the file to play
    bool busy = false;
    bool stop = false;
    bool ended = false;
    std::thread thread; // started for the first sound

    void Run();
    void PlayNext(SdlAudio& sdl, bool& begun);
    void End();
    // Waits for this time, or until the thread is told to stop; true in the second case.
    bool StopsWithin(std::chrono::duration<double> time);
};

void WavPlayer::Work::Run() {
    SdlAudio sdl;
    bool begun = false;
    std::unique_lock lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return busy || stop; });
        if (stop)
            break;
        lock.unlock();
        PlayNext(sdl, begun);
        lock.lock();
        busy = false;
    }
    lock.unlock();
    if (begun)
        sdl.QuitSubSystem(SDL_INIT_AUDIO);
    if (sdl.TLSCleanup != nullptr)
        sdl.TLSCleanup(); // frees SDL's thread-local storage
    lock.lock();
    ended = true;
    changed.notify_all();
}

void WavPlayer::Work::PlayNext(SdlAudio& sdl, bool& begun) {
    if (!begun)
        begun = Begin(sdl);
    if (begun)
        PlayFile(sdl, path, [this](auto time) { return StopsWithin(time); });
}

void WavPlayer::Work::End() {
    std::unique_lock lock(mutex);
    stop = true;
    changed.notify_all();
    if (!thread.joinable())
        return;
    const bool answered = changed.wait_for(lock, kPatience, [this] { return ended; });
    lock.unlock();
    if (answered)
        thread.join();
    else
        thread.detach(); // it waits for a device that does not answer
}

bool WavPlayer::Work::StopsWithin(std::chrono::duration<double> time) {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, time, [this] { return stop; });
}

WavPlayer::WavPlayer() : work_(std::make_shared<Work>()) {}

WavPlayer::~WavPlayer() {
    work_->End();
}

bool WavPlayer::Play(const std::string& path) {
    const std::lock_guard lock(work_->mutex);
    if (work_->busy)
        return false;
    work_->path = path;
    work_->busy = true;
    if (!work_->thread.joinable())
        work_->thread = std::thread([work = work_] { work->Run(); });
    work_->changed.notify_all();
    return true;
}

} // namespace tarveth::platform
