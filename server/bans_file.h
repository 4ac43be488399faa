// The file that keeps the operator's bans and mutes, in UTF-8: one a line, as
//   ban   2026-11-22T10:00:00Z  192.0.2.0/24  "Ann"  the reason
//   mute  forever               -             "Bob"
// A line that begins with "#" is a comment.
#pragma once

#include "server/Sanctions.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

// Reads the file; one that is missing has no bans. Throws platform::FileError, with the line that is at
// fault.
std::vector<Sanction> ReadBansFile(const std::string& path);
// Does the same, and begins the file where there is none, so that a path that cannot be written is noticed
// before the first ban.
std::vector<Sanction> OpenBansFile(const std::string& path);
// Replaces the file. Throws platform::FileError.
void WriteBansFile(const std::string& path, const std::vector<Sanction>& sanctions);

} // namespace tarveth
