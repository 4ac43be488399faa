// The process' memory, for a server that must outlive those who fill it.
#pragma once

#include <cstddef>

namespace tarveth::platform {

// Sets memory aside. When an allocation fails, the reserve is given up and the allocation tried again (see
// std::set_new_handler), so that the program can end what it is doing and then free memory in an orderly way.
class MemoryReserve {
public:
    explicit MemoryReserve(std::size_t bytes);
    ~MemoryReserve();
    MemoryReserve(const MemoryReserve&) = delete;
    MemoryReserve& operator=(const MemoryReserve&) = delete;

    bool IsUsed() const;
    // Sets the memory aside again; false if there still is too little.
    bool Refill();

private:
    std::size_t bytes_;
};

// Gives memory that the program has freed back to the system, where the C library keeps it otherwise.
void ReturnFreeMemory();

} // namespace tarveth::platform
