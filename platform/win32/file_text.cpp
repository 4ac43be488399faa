#include "platform/file_text.h"

#include "platform/win32/wide_text.h"

namespace tarveth::platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

} // namespace

std::string TextFromFile(std::string bytes) {
    if (bytes.starts_with(kByteOrderMark))
        return TextFromWide(WideFromText(std::string_view(bytes).substr(kByteOrderMark.size())));
    return TextFromWide(WideFromAnsi(bytes));
}

std::string TextForFile(std::string_view text) {
    return AnsiFromWide(WideFromText(text)).value_or(std::string(kByteOrderMark).append(text));
}

} // namespace tarveth::platform
