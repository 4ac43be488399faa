// Converts texts and paths between the core and the toolkit.
#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

namespace tarveth {

// Converts a text of the core, which is UTF-8. A text that is no valid UTF-8, as from an old file, is taken
// for ISO 8859-1.
wxString ToWx(std::string_view text);

// Convert paths, which the core keeps in the system's narrow encoding; on Windows that is UTF-8 as well.
wxString PathToWx(const std::string& path);
std::string PathFromWx(const wxString& path);

} // namespace tarveth
