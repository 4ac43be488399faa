// Tries a write that is expected to be refused.
#pragma once

#include "platform/atomic_file.h"
#include "platform/file_error.h"

#include <string>
#include <string_view>

namespace tarveth {

inline bool WriteFails(const std::string& file, std::string_view bytes) {
    try {
        platform::WriteFileAtomically(file, bytes);
        return false;
    } catch (const platform::FileError&) {
        return true;
    }
}

} // namespace tarveth
