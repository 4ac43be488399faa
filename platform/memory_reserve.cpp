#include "platform/memory.h"

#include <new>
#include <utility>

namespace tarveth::platform {

namespace {

// A new-handler is a function without arguments, so that what it gives up must be found here.
void* reserve = nullptr; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): for that reason

void GiveUpReserve() {
    if (reserve == nullptr)
        throw std::bad_alloc();
    ::operator delete(std::exchange(reserve, nullptr));
}

} // namespace

MemoryReserve::MemoryReserve(std::size_t bytes) : bytes_(bytes) {
    reserve = ::operator new(bytes);
    std::set_new_handler(GiveUpReserve);
}

MemoryReserve::~MemoryReserve() {
    std::set_new_handler(nullptr);
    ::operator delete(std::exchange(reserve, nullptr));
}

bool MemoryReserve::IsUsed() const {
    return reserve == nullptr;
}

bool MemoryReserve::Refill() {
    if (reserve == nullptr) {
        std::set_new_handler(nullptr);
        reserve = ::operator new(bytes_, std::nothrow);
        std::set_new_handler(GiveUpReserve);
    }
    return reserve != nullptr;
}

} // namespace tarveth::platform
