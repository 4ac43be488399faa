// The one door to the settings file: a section and a file are registered first, and every later get and put
// means them.
#pragma once

#include "platform/private_profile.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tarveth {

class modINI {
public:
    // Shows a message box with a critical-stop icon; called when a get or put comes before any IniRegister.
    using ErrorReporter = std::function<void(const std::string& text, const std::string& title)>;

    explicit modINI(ErrorReporter reportError);

    // Makes section and fileName, without the blanks around them, what every later call means.
    void IniRegister(const std::string& section, const std::string& fileName);

    // The number that the value of key begins with, 0 if it begins with none; defaultValue without such a
    // key.
    std::int32_t IniGetInt(const std::string& key, std::int32_t defaultValue);

    // The value of key, cut to 254 characters; defaultText without such a key. Not trimmed here.
    std::string IniGetString(const std::string& key, const std::string& defaultText);

    // Give the platform's answer: 0 when the value cannot be written.
    std::int32_t IniPutNumber(const std::string& key, std::int32_t value);
    std::int32_t IniPutString(const std::string& key, const std::string& value);

    // Brings everything that was put onto the disk, each file in one piece. False when that failed; the old
    // file is then whole and what was put is forgotten.
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
