#include "platform/file_text.h"

namespace tarveth::platform {

std::string TextFromFile(std::string_view bytes) {
    return std::string(bytes);
}

std::string TextForFile(std::string_view text) {
    return std::string(text);
}

} // namespace tarveth::platform
