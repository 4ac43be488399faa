#include "net/wx/frmEnterIP.h"

#include "display/wx/NameControl.h"
#include "display/wx/text.h"
#include "platform/file_error.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace tarveth {

namespace {

constexpr char kThisComputer[] = "127.0.0.1";
constexpr char kNote[] =
    "The servers displayed in the drop down list come from the 'servers.txt' file in the "
    "directory that contains this program.";
constexpr int kLineLetters = 56; // the width of the dialog
constexpr int kAddressLetters = 24;
constexpr std::size_t kLongestItem = 200; // letters; the list is as wide as its longest item

wxString ItemOf(const Server& server) {
    wxString item = ToWx(server.description) + " (" + ToWx(server.address) + ')';
    if (item.length() > kLongestItem)
        item = item.Left(kLongestItem) + "...";
    return item;
}

} // namespace

frmEnterIP::frmEnterIP(wxWindow* parent, const std::vector<std::string>& folders)
    : wxDialog(parent, wxID_ANY, "Enter Server IP Address") {
    CreateControls();
    LoadServers(folders);
    LayOut();
    NameControls();
    CentreOnParent();
    txtIP->SetFocus();
    txtIP->SelectAll();
}

std::string frmEnterIP::Address() const {
    wxString address = txtIP->GetValue();
    return address.Trim().Trim(false).utf8_string();
}

void frmEnterIP::CreateControls() {
    lblIP_ = new wxStaticText(this, wxID_ANY, "Server IP Address:");
    txtIP = new wxTextCtrl(this, wxID_ANY, kThisComputer);
    cmbServers = new wxChoice(this, wxID_ANY);
    cmbServers->Bind(wxEVT_CHOICE, [this](const wxCommandEvent& event) {
        txtIP->ChangeValue(ToWx(servers_[static_cast<std::size_t>(event.GetSelection())].address));
    });
    lblNote_ = new wxStaticText(this, wxID_ANY, kNote);
}

void frmEnterIP::LoadServers(const std::vector<std::string>& folders) {
    try {
        servers_ = ReadServerList(folders);
    } catch (const platform::FileError& error) {
        wxMessageBox(ToWx(error.what()), wxMessageBoxCaptionStr, wxOK, this);
    }
    wxArrayString items;
    for (const Server& server : servers_)
        items.Add(ItemOf(server));
    cmbServers->Append(items);
    if (servers_.empty())
        return;
    cmbServers->SetSelection(0);
    txtIP->ChangeValue(ToWx(servers_.front().address));
}

void frmEnterIP::LayOut() {
    const int gap = FromDIP(12);
    const int width = GetCharWidth() * kLineLetters;
    // The toolkit thinks of a box that is not on the screen yet as lower than it will be.
    txtIP->SetMinSize({GetCharWidth() * kAddressLetters, txtIP->GetCharHeight() + FromDIP(16)});
    cmbServers->SetMinSize({width, wxDefaultCoord}); // however long a description is
    lblNote_->Wrap(width);

    auto* address = new wxBoxSizer(wxHORIZONTAL);
    address->Add(lblIP_, wxSizerFlags().CentreVertical().Border(wxRIGHT, gap));
    address->Add(txtIP, wxSizerFlags(1).CentreVertical());
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(address, wxSizerFlags().Expand().Border(wxALL, gap));
    rows->Add(cmbServers, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    rows->Add(lblNote_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    rows->Add(CreateSeparatedButtonSizer(wxOK | wxCANCEL),
              wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizerAndFit(rows);
}

void frmEnterIP::NameControls() {
    NameControl(lblIP_, "Label1", "Caption");
    NameControl(txtIP, "txtIP", "Server IP Address");
    NameControl(cmbServers, "cmbServers", "Servers");
    NameControl(lblNote_, "Label2", "Note");
    NameControl(FindWindow(wxID_OK), "cmdOK", "OK");
    NameControl(FindWindow(wxID_CANCEL), "cmdCancel", "Cancel");
}

} // namespace tarveth
