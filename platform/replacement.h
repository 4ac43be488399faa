// What it takes on every system to put a new file in an old one's place.
#pragma once

#include <filesystem>

namespace tarveth::platform {

// Removes the file of that name when it goes, unless told to keep it.
class Removal {
public:
    explicit Removal(const std::filesystem::path& path) : path_(path) {}
    ~Removal();
    Removal(const Removal&) = delete;
    Removal& operator=(const Removal&) = delete;
    void Keep() { kept_ = true; }

private:
    const std::filesystem::path& path_;
    bool kept_ = false;
};

// The file that a write to this name would reach: a rename onto a link would replace the link itself.
std::filesystem::path FollowLinks(std::filesystem::path file);

} // namespace tarveth::platform
