#include "platform/file_exists.h"

#include <filesystem>
#include <system_error>

namespace tarveth::platform {

bool FileExists(const std::string& name) {
    std::error_code error;
    return std::filesystem::is_regular_file(name, error);
}

} // namespace tarveth::platform
