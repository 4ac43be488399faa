// Access to INI files: a section and a file are registered first, and every later get and put uses them.
#pragma once

#include "platform/private_profile.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tarveth {

class modINI {
public:
    // Is called when a get or a put comes before the first IniRegister; shows a message box with a
    // critical-stop icon.
    using ErrorReporter = std::function<void(const std::string& text, const std::string& title)>;

    explicit modINI(ErrorReporter reportError);

    // Makes every later call use this section and file. Blanks around the two names are cut off.
    void IniRegister(const std::string& section, const std::string& fileName);

    // Gives the number that the value of the key begins with, 0 if it begins with none; defaultValue if there
    // is no such key.
    std::int32_t IniGetInt(const std::string& key, std::int32_t defaultValue);

    // Gives the value of the key, cut to 254 characters and not trimmed; defaultText if there is no such key.
    std::string IniGetString(const std::string& key, const std::string& defaultText);

    // Set the value of the key. The result is the platform's answer: 0 when the value cannot be written.
    std::int32_t IniPutNumber(const std::string& key, std::int32_t value);
    std::int32_t IniPutString(const std::string& key, const std::string& value);

    // Writes all values that were put to the disk, each file atomically. False when that fails; the old file
    // is then unchanged, and the values that were put are dropped.
    bool IniFlush();

    // Why the last put or flush that failed did so: the rest of the sentence "FILE: …".
    const std::string& IniFailure() const;

private:
    bool IsRegistered() const;

    ErrorReporter reportError_;
    platform::PrivateProfile profile_;
    std::string section_;
    std::string file_;
    bool registered_ = false;
};

} // namespace tarveth
