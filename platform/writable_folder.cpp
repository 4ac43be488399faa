#include "platform/program_folder.h"

#include "platform/text_path.h"

#include <filesystem>
#include <system_error>

namespace tarveth::platform {

std::string WithSeparator(std::string folder) {
    if (folder.empty() || folder.back() != PathSeparator())
        folder += PathSeparator();
    return folder;
}

std::string WritableFolder(const std::string& programFolder) {
    if (MayKeepFilesIn(programFolder))
        return WithSeparator(programFolder);
    const std::string userFolder = UserDataFolder();
    std::error_code error;
    if (!userFolder.empty())
        std::filesystem::create_directories(PathFromText(userFolder), error);
    return !userFolder.empty() && CanCreateFileIn(userFolder) ? userFolder : WithSeparator(programFolder);
}

} // namespace tarveth::platform
