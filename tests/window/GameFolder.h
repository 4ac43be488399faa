// A temporary folder with the program, and with the files that a test puts beside it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarveth::harness {

class GameFolder {
public:
    // Makes a folder with only the program in it. Throws std::system_error when it cannot be made.
    GameFolder();
    // Makes a folder with the program and a tarveth.ini of these bytes.
    explicit GameFolder(std::string_view ini);
    // Removes the folder and all that is in it.
    ~GameFolder();
    GameFolder(const GameFolder&) = delete;
    GameFolder& operator=(const GameFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
    [[nodiscard]] std::filesystem::path Program() const { return path_ / "tarveth"; }
    [[nodiscard]] bool Has(const std::string& file) const { return std::filesystem::exists(path_ / file); }
    // Gives the bytes of a file; empty when there is none.
    [[nodiscard]] std::string Read(const std::string& file) const;
    void Write(const std::string& file, std::string_view bytes) const;

private:
    std::filesystem::path path_;
};

} // namespace tarveth::harness
