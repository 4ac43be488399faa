#include "net/wx/frmWait.h"

#include "display/wx/NameControl.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

namespace tarveth {

frmWait::frmWait(wxWindow* parent)
    : wxDialog(parent, wxID_ANY, "Tarveth", wxDefaultPosition, wxDefaultSize, wxCAPTION) {
    auto* lblWait = new wxStaticText(this, wxID_ANY, "Please wait while I determine the IP address....");
    NameControl(lblWait, "lblWait", "Message");
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(lblWait, wxSizerFlags().Centre().Border(wxALL, FromDIP(24)));
    SetSizerAndFit(row);
    SetEscapeId(wxID_NONE);
    CentreOnParent();
}

} // namespace tarveth
