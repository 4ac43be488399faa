// A folder of its own for the game to start in, as a player's would be: the program and what a test puts
// beside it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarveth::harness {

class GameFolder {
public:
    // Only the program is in it. Throws std::system_error when it cannot be made.
    GameFolder();
    // With a tarveth.ini of these bytes.
    explicit GameFolder(std::string_view ini);
    // Removes it with all that has come into it.
    ~GameFolder();
    GameFolder(const GameFolder&) = delete;
    GameFolder& operator=(const GameFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
    [[nodiscard]] std::filesystem::path Program() const { return path_ / "tarveth"; }
    [[nodiscard]] bool Has(const std::string& file) const { return std::filesystem::exists(path_ / file); }
    // The bytes of a file, none when it is not there.
    [[nodiscard]] std::string Read(const std::string& file) const;
    void Write(const std::string& file, std::string_view bytes) const;

private:
    std::filesystem::path path_;
};

} // namespace tarveth::harness
