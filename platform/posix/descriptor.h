// An open file of the system, closed when its owner goes.
#pragma once

#include <unistd.h>

namespace tarveth::platform {

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (IsOpen())
            close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

private:
    int number_;
};

} // namespace tarveth::platform
