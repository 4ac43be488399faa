#include "display/wx/text.h"

#include <wx/strconv.h>

namespace tarveth {

wxString ToWx(std::string_view text) {
    wxString result = wxString::FromUTF8(text.data(), text.size());
    if (result.empty() && !text.empty())
        result = wxString(text.data(), wxConvISO8859_1, text.size());
    return result;
}

namespace {

// The encoding of the core's paths.
const wxMBConv& PathEncoding() {
#ifdef __WXMSW__
    return wxConvUTF8; // the toolkit's own is the code page
#else
    return *wxConvFileName;
#endif
}

} // namespace

wxString PathToWx(const std::string& path) {
    return {path.c_str(), PathEncoding()};
}

std::string PathFromWx(const wxString& path) {
    return std::string(path.mb_str(PathEncoding()));
}

} // namespace tarveth
