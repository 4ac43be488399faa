// The core's texts and paths as the toolkit's, and back.
#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

namespace tarveth {

// A text of the core is UTF-8. One that is not, as out of an old file, is read letter by letter.
wxString ToWx(std::string_view text);

// Paths are in the system's own narrow text, which is UTF-8 on Windows too.
wxString PathToWx(const std::string& path);
std::string PathFromWx(const wxString& path);

} // namespace tarveth
