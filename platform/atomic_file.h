// Whole files, read and written, by paths in UTF-8. A written file is the old one or the new one at every
// moment, never half of either, whatever happens to the disk, the program or the power.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarveth::platform {

// Makes bytes the content of the file, creating it if it is missing. The new content is complete on the disk
// before it takes the old one's name; the old file's permissions stay, and a symbolic link stays a link.
// Throws FileError when it cannot (write-protected file or folder, full disk); the old file is then untouched
// and nothing is left beside it.
void WriteFileAtomically(const std::string& file, std::string_view bytes);

// The file's content, byte for byte. Throws FileError when it is missing, unreadable, not a plain file, or
// longer than limit bytes.
std::string ReadWholeFile(const std::string& file, std::uintmax_t limit);

} // namespace tarveth::platform
