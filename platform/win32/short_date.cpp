#include "platform/short_date.h"

#include "platform/win32/wide_text.h"

#include <array>

#include <windows.h>

namespace tarveth::platform {

std::string ShortDate() {
    std::array<wchar_t, 128> text{};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(),
                    static_cast<int>(text.size()), nullptr);
    return TextFromWide(text.data());
}

} // namespace tarveth::platform
