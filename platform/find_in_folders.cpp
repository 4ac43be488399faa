#include "platform/file_exists.h"

namespace tarveth::platform {

std::string FindInFolders(const std::string& name, const std::vector<std::string>& folders) {
    for (const std::string& folder : folders)
        if (std::string path = folder + name; FileExists(path))
            return path;
    return {};
}

} // namespace tarveth::platform
