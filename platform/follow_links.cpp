#include "platform/follow_links.h"

#include <system_error>

namespace tarveth::platform {

namespace fs = std::filesystem;

fs::path FollowLinks(fs::path file) {
    std::error_code error;
    for (int links = 0; links < 40 && fs::is_symlink(fs::symlink_status(file, error)); ++links)
        file = file.parent_path() / fs::read_symlink(file, error);
    return file;
}

} // namespace tarveth::platform
