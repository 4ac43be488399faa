// An environment variable that a test sets.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace tarveth {

// Sets the variable, and puts it back as it was.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* before = std::getenv(name))
            before_ = before;
        setenv(name, value, 1);
    }
    ~Variable() {
        if (before_)
            setenv(name_, before_->c_str(), 1);
        else
            unsetenv(name_);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::optional<std::string> before_;
};

} // namespace tarveth
