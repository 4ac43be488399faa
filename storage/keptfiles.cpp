#include "storage/keptfiles.h"

#include "platform/file_error.h"
#include "platform/leftovers.h"
#include "platform/text_path.h"

#include <filesystem>
#include <system_error>

namespace tarveth {

namespace fs = std::filesystem;

namespace {

constexpr char kEnding[] = ".tsg";
constexpr char kLockEnding[] = ".lock";
constexpr int kMostNames = 10'000;

bool Exists(const std::string& path) {
    std::error_code unknown;
    return fs::exists(platform::PathFromText(path), unknown);
}

// Nothing where the lock is held, or cannot be taken.
platform::FileLock LockIfFree(const std::string& lock) {
    try {
        return platform::TakeFileLock(lock);
    } catch (const platform::FileError&) {
        return nullptr;
    }
}

std::string LockOf(const std::string& path) {
    return path + kLockEnding;
}

std::vector<std::string> NamesWith(const char* ending, const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(platform::PathFromText(folder), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error))
        if (entry->path().extension() == ending)
            names.push_back(entry->path().string());
    return names;
}

// A killed program may have left a lock without a game.
void RemoveLocksWithoutGame(const std::string& folder) {
    for (const std::string& lock : NamesWith(kLockEnding, folder))
        if (!Exists(lock.substr(0, lock.size() - std::string(kLockEnding).size())))
            LockIfFree(lock); // which removes it, as it is given up at once
}

} // namespace

KeptFile NewKeptFile(const std::string& folder) {
    std::error_code error;
    fs::create_directories(platform::PathFromText(folder), error);
    const std::string beginning = folder + std::to_string(platform::OwnProcess()) + '-';
    for (int number = 0; number < kMostNames; ++number) {
        const std::string path = beginning + std::to_string(number) + kEnding;
        if (Exists(path))
            continue;
        platform::FileLock lock = platform::TakeFileLock(LockOf(path));
        if (lock && !Exists(path))
            return {path, lock};
    }
    throw platform::FileError(folder, "holds too many games");
}

std::vector<KeptFile> TakeAbandonedFiles(const std::string& folder) {
    RemoveLocksWithoutGame(folder);
    platform::RemoveLeftovers(platform::PathFromText(folder));
    std::vector<KeptFile> files;
    for (const std::string& path : NamesWith(kEnding, folder)) {
        platform::FileLock lock = LockIfFree(LockOf(path));
        if (lock && Exists(path)) // whoever held it may just have removed the game
            files.push_back({path, lock});
    }
    return files;
}

std::string PutAwayDamagedFile(const std::string& path) {
    const std::string name = path + ".damaged";
    std::error_code error;
    fs::rename(platform::PathFromText(path), platform::PathFromText(name), error);
    return error ? path : name;
}

std::string TranscriptOf(const std::string& path) {
    return path + ".txt";
}

void MoveTranscript(const std::string& from, const std::string& to) {
    std::error_code missing;
    fs::rename(platform::PathFromText(TranscriptOf(from)), platform::PathFromText(TranscriptOf(to)), missing);
}

void RemoveKeptFile(const std::string& path) {
    std::error_code error;
    for (const std::string& file : {path, TranscriptOf(path)})
        fs::remove(platform::PathFromText(file), error);
}

} // namespace tarveth
