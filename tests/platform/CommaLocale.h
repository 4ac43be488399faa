// Sets a locale with a decimal comma during a test.
#pragma once

#include <clocale>
#include <string>

#ifndef _WIN32
#include "tests/platform/posix/Variable.h"
#endif
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace tarveth {

#ifdef _WIN32
inline constexpr const char* kCommaLocales[] = {"German", "French"};
#else
inline constexpr const char* kCommaLocales[] = {"de_DE.UTF-8", "fr_FR.UTF-8"}; // made for the tests
#endif

// Sets the locale for numbers as long as the object exists.
class CommaLocale {
public:
    explicit CommaLocale(const char* name) : before_(std::setlocale(LC_NUMERIC, nullptr)) {
#ifdef __SANITIZE_ADDRESS__
        const __lsan::ScopedDisabler glibcs; // it does not give its list of LOCPATH's folders back
#endif
        std::setlocale(LC_NUMERIC, name);
    }
    ~CommaLocale() {
        std::setlocale(LC_NUMERIC, before_.c_str());
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
#ifndef _WIN32
    Variable folder_{"LOCPATH", TEST_LOCALES};
#endif
    std::string before_;
};

} // namespace tarveth
