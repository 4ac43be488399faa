#include "platform/file_text.h"

namespace tarveth::platform {

std::string TextFromFile(std::string bytes) {
    return bytes;
}

std::string TextForFile(std::string_view text) {
    return std::string(text);
}

} // namespace tarveth::platform
