#include "display/wx/text.h"

#include <wx/strconv.h>

namespace tarveth {

wxString ToWx(std::string_view text) {
    wxString result = wxString::FromUTF8(text.data(), text.size());
    if (result.empty() && !text.empty())
        result = wxString(text.data(), wxConvISO8859_1, text.size());
    return result;
}

wxString PathToWx(const std::string& path) {
    return {path.c_str(), *wxConvFileName};
}

std::string PathFromWx(const wxString& path) {
    return std::string(path.mb_str(*wxConvFileName));
}

} // namespace tarveth
