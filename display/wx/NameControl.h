// The names of controls, for programs and for people who have the screen read out.
#pragma once

#include <string>

#include <wx/string.h>

class wxWindow;

namespace tarveth {

// given: its name for programs, such as "lblMessage". spoken: what a screen reader says; of a label, after
// its text. May be called again to change them.
void NameControl(const wxWindow* control, const std::string& given, const wxString& spoken);

} // namespace tarveth
