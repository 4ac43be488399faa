#include "tests/window/GameFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

namespace tarveth::harness {

namespace {

std::filesystem::path NewFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tarveth-game-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), name);
    }
    return name;
}

} // namespace

GameFolder::GameFolder() : path_(NewFolder()) {
    std::error_code otherDisk;
    std::filesystem::create_hard_link(PROGRAM_UNDER_TEST, Program(), otherDisk);
    if (otherDisk) {
        std::filesystem::copy_file(PROGRAM_UNDER_TEST, Program());
    }
}

GameFolder::GameFolder(std::string_view ini) : GameFolder() {
    Write("tarveth.ini", ini);
}

GameFolder::~GameFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
}

std::string GameFolder::Read(const std::string& file) const {
    std::ifstream bytes(path_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(bytes), {}};
}

void GameFolder::Write(const std::string& file, std::string_view bytes) const {
    std::ofstream(path_ / file, std::ios::binary) << bytes;
}

} // namespace tarveth::harness
