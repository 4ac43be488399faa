#include "storage/modINI.h"

#include "platform/file_text.h"
#include "text/trim.h"

#include <array>
#include <utility>

namespace tarveth {

modINI::modINI(ErrorReporter reportError) : reportError_(std::move(reportError)) {}

void modINI::IniRegister(const std::string& section, const std::string& fileName) {
    section_ = Trim(section);
    file_ = Trim(fileName);
    registered_ = true;
}

bool modINI::IsRegistered() const {
    if (!registered_)
        reportError_("[Section] and FileName Not Registered in Private.Ini!", "IniFile Logic Error");
    return registered_;
}

std::int32_t modINI::IniGetInt(const std::string& key, std::int32_t defaultValue) {
    return IsRegistered() ? profile_.GetPrivateProfileIntA(section_, key, defaultValue, file_) : 0;
}

std::string modINI::IniGetString(const std::string& key, const std::string& defaultText) {
    if (!IsRegistered())
        return {};
    std::array<char, 255> buffer = {};
    const auto count =
        profile_.GetPrivateProfileStringA(section_, key, platform::TextForFile(defaultText), buffer, file_);
    return platform::TextFromFile({buffer.data(), count});
}

std::int32_t modINI::IniPutNumber(const std::string& key, std::int32_t value) {
    return IniPutString(key, std::to_string(value));
}

std::int32_t modINI::IniPutString(const std::string& key, const std::string& value) {
    const std::string bytes = platform::TextForFile(value);
    return IsRegistered() && profile_.WritePrivateProfileStringA(section_, key, bytes, file_) ? 1 : 0;
}

bool modINI::IniFlush() {
    return profile_.Flush();
}

const std::string& modINI::IniFailure() const {
    return profile_.FailureCause();
}

} // namespace tarveth
