// The exception of everything that reads or writes files: which file, where in it, and why. It is shown once,
// by the command that wanted the file.
#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>

namespace tarveth::platform {

// The cause where a file could be written only in place, which is never done.
inline constexpr char kFolderTakesNoFile[] =
    "cannot be written, since no file can be created in its folder; choose another folder";

class FileError : public std::runtime_error {
public:
    // cause: completes "FILE: …", without a full stop, as in "cannot be opened (No such file)".
    FileError(std::string path, std::string cause)
        : FileError(std::move(path), std::nullopt, std::move(cause)) {}

    // line: counted from 1; nothing when the failure is of the whole file.
    FileError(std::string path, std::optional<std::size_t> line, std::string cause)
        : std::runtime_error(Sentence(path, line, cause)),
          path_(std::move(path)),
          line_(line),
          cause_(std::move(cause)) {}

    const std::string& Path() const { return path_; }
    std::optional<std::size_t> Line() const { return line_; }
    const std::string& Cause() const { return cause_; }

private:
    static std::string Sentence(const std::string& path, std::optional<std::size_t> line,
                                const std::string& cause) {
        return path + (line ? ", line " + std::to_string(*line) : std::string()) + ": " + cause + ".";
    }

    std::string path_;
    std::optional<std::size_t> line_;
    std::string cause_;
};

} // namespace tarveth::platform
