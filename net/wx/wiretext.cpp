#include "net/wx/wiretext.h"

#include "display/wx/text.h"
#include "text/codepage.h"

#include <algorithm>

namespace tarveth {

namespace {

constexpr int kSmallestFont = 4;
constexpr int kLargestFont = 48;

} // namespace

wxString WxFromWire(std::string_view bytes) {
    return ToWx(FromWire(bytes));
}

std::string WireFromWx(const wxString& text) {
    return ToWire(text.utf8_string());
}

wxFont UserFont(const std::string& name, int points) {
    return wxFont(wxFontInfo(std::clamp(points, kSmallestFont, kLargestFont)).FaceName(ToWx(name)));
}

} // namespace tarveth
