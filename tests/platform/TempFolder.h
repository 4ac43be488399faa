// A temporary folder for one test, removed at its end; and functions to read and write files as bytes.
#pragma once

#include "platform/text_path.h"

#include <cwctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

namespace tarveth {

class TempFolder {
public:
    TempFolder() {
        std::random_device random;
        do
            path_ = Root() / ("tarveth-test-" + std::to_string(random()));
        while (!std::filesystem::create_directory(path_));
    }
    ~TempFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    // Gives the folder's name with a trailing separator, as the program's folder has one.
    std::string Name() const { return (path_ / "").string(); }

    // Gives the full path of a file in the folder.
    std::string File(const std::string& name) const {
        return (path_ / platform::PathFromText(name)).string();
    }

    std::size_t FileCount() const {
        const std::filesystem::directory_iterator files(path_);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

private:
    // The name is in small letters where the system ignores case, since the program never finds a folder with
    // capitals in a path.
    static std::filesystem::path Root() {
        auto root = std::filesystem::temp_directory_path().native();
        if constexpr (std::filesystem::path::preferred_separator == '\\')
            for (auto& letter : root)
                letter = static_cast<std::filesystem::path::value_type>(
                    std::towlower(static_cast<wint_t>(letter)));
        return root;
    }

    std::filesystem::path path_;
};

inline void PutBytes(const std::string& file, std::string_view bytes) {
    std::ofstream out(platform::PathFromText(file), std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline std::string GetBytes(const std::string& file) {
    std::ifstream in(platform::PathFromText(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace tarveth
