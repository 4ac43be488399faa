#include "platform/replacement.h"

#include <system_error>

namespace tarveth::platform {

namespace fs = std::filesystem;

Removal::~Removal() {
    std::error_code ignored;
    if (!kept_)
        fs::remove(path_, ignored);
}

fs::path FollowLinks(fs::path file) {
    std::error_code error;
    for (int links = 0; links < 40 && fs::is_symlink(fs::symlink_status(file, error)); ++links)
        file = file.parent_path() / fs::read_symlink(file, error);
    return file;
}

} // namespace tarveth::platform
