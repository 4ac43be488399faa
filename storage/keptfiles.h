// The folder of the games that are kept aside: one file for each, and beside it a lock that the program holds
// which the game belongs to. A game whose lock nobody holds was left behind by a program that has ended.
#pragma once

#include "platform/file_lock.h"

#include <string>
#include <vector>

namespace tarveth {

struct KeptFile {
    std::string path;
    platform::FileLock lock;
};

// Gives a name in the folder, which is created if need be, for a game of this program. There is no file of
// that name yet. Throws platform::FileError.
KeptFile NewKeptFile(const std::string& folder);

// Takes the files that no running program holds. Those that cannot be locked are left alone.
std::vector<KeptFile> TakeAbandonedFiles(const std::string& folder);

// Renames a file that cannot be read, so that it is not looked at again; gives its new name. The file keeps
// its name where it cannot be renamed.
std::string PutAwayDamagedFile(const std::string& path);

// Gives the name of the file beside a game that holds what was said while it was played.
std::string TranscriptOf(const std::string& path);
// Moves that file of one game to another; does nothing when there is none.
void MoveTranscript(const std::string& from, const std::string& to);

// Removes a game and its transcript, either of which may be missing.
void RemoveKeptFile(const std::string& path);

} // namespace tarveth
