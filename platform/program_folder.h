// Where the program lives, and where it may write. Folder names end in the system's separator, so that a
// file's path is the folder followed by the name.
#pragma once

#include <string>

namespace tarveth::platform {

// The separator of the system's paths.
char PathSeparator();

// The folder with one separator behind it.
std::string WithSeparator(std::string folder);

// The folder of the running executable, with a trailing separator.
std::string ProgramFolder();

// The user's own data folder of this program, with a trailing separator. It may not be there yet. Empty where
// the system names none.
std::string UserDataFolder();

// Whether a file can be created in the folder.
bool CanCreateFileIn(const std::string& folder);

// Whether the program may keep its user's files in its own folder: a file can be created there, and it is
// none of the system's folders, where root could do so, but only programs belong.
bool MayKeepFilesIn(const std::string& programFolder);

// programFolder itself if files may be kept in it; else the user's own data folder of this program,
// created if need be; programFolder again if neither can be written. With a trailing separator.
std::string WritableFolder(const std::string& programFolder);

} // namespace tarveth::platform
