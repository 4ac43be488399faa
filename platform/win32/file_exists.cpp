#include "platform/file_exists.h"

#include "platform/win32/wide_text.h"

#include <windows.h>

namespace tarveth::platform {

bool FileExists(const std::string& name) {
    const DWORD attributes = GetFileAttributesW(WideFromText(name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

} // namespace tarveth::platform
