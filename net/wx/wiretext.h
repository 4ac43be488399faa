// Texts of the wire as the toolkit's, and back; and the fonts that the user has chosen for them.
#pragma once

#include <string>
#include <string_view>

#include <wx/font.h>
#include <wx/string.h>

namespace tarveth {

wxString WxFromWire(std::string_view bytes);
std::string WireFromWx(const wxString& text);

// Where there is no such font, the system takes its nearest. The size is kept within what can be read and
// leaves room for the rest of the window.
wxFont UserFont(const std::string& name, int points);

} // namespace tarveth
