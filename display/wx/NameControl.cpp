#include "display/wx/NameControl.h"

#include "platform/accessible.h"

#include <wx/window.h>

namespace tarveth {

void NameControl(const wxWindow* control, const std::string& given, const wxString& spoken) {
    platform::SetAccessible(control->GetHandle(), given, spoken.utf8_string());
}

} // namespace tarveth
