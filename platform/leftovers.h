// New files that lie beside the old ones whose place they are to take, and those of them that a program left
// behind when it was killed. They are called .tarveth-PID-N, after the process that makes them.
//
// A file of such a name is removed when
// - its process is no longer running, or the file has not been written to for a minute, which no save takes:
//   then the number belongs to another program by now;
// - and no program has it open. A program that saves holds its new file open and locked, so a save that is
//   still going on is left alone even where process numbers tell nothing: in another container, or on another
//   machine that shares the folder.
#pragma once

#include <filesystem>
#include <optional>

namespace tarveth::platform {

using ProcessId = unsigned long;

// The name of a new file: of this process, the number-th of those that lie in the same folder.
std::filesystem::path NewFileName(int number);

// The process that makes a file of this name; nothing for the name of any other file.
std::optional<ProcessId> MakerOf(const std::filesystem::path& name);

// Removes what killed programs left in the folder, by the rule above. What cannot be looked at stays.
void RemoveLeftovers(const std::filesystem::path& folder);

// The same, but only the first time that this process asks for this folder, because looking through a folder
// of many files takes longer than writing a file.
void RemoveLeftoversOnce(const std::filesystem::path& folder);

// The system's part of it.
ProcessId OwnProcess();
bool IsRunning(ProcessId process);
void RemoveUnlessOpen(const std::filesystem::path& file);

} // namespace tarveth::platform
