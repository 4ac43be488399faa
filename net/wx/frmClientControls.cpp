// The controls of the client window, and where they stand.
#include "net/wx/frmClient.h"

#include "display/wx/NameControl.h"
#include "net/wx/Transcript.h"
#include "net/wx/UserListView.h"
#include "net/wx/frmClientMenu.h"

#include <wx/button.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statline.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>

namespace tarveth {

namespace {

constexpr int kGap = 8;
const wxSize kFirstSize = {760, 520};
const wxSize kLeastTranscript = {280, 100};
const wxSize kLeastUsers = {190, 60};

} // namespace

// In the order in which Tab reaches them.
void frmClient::CreateControls() {
    surface = new wxPanel(this);
    CreateTranscripts();
    CreateUsers();
    CreateInput();
    NameControls();
    auto* upper = new wxBoxSizer(wxHORIZONTAL);
    upper->Add(NewTranscriptColumn(), wxSizerFlags(1).Expand());
    upper->Add(linVert, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(kGap)));
    upper->Add(NewUsersColumn(), wxSizerFlags().Expand());
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(upper, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(kGap)));
    rows->Add(linHoriz, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(kGap)));
    rows->Add(NewInputRows(), wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
    surface->SetSizer(rows);
    SetClientSize(FromDIP(kFirstSize));
}

void frmClient::CreateTranscripts() {
    lblRX = new wxStaticText(surface, wxID_ANY, "Transcript:");
    for (Transcript*& transcript : txtRX) {
        transcript = new Transcript(surface);
        transcript->SetMinSize(FromDIP(kLeastTranscript));
    }
    linVert = new wxStaticLine(surface, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLI_VERTICAL);
}

void frmClient::CreateUsers() {
    lblUsers = new wxStaticText(surface, wxID_ANY, "Users:");
    lstUsers = new UserListView(surface);
    lstUsers->SetMinSize(FromDIP(kLeastUsers));
    lstUsers->OnSelect = [this](int row) { parts_.network.SelectUser(row); };
    lstUsers->OnChoose = [this] { Press(mnuActionsInvite); };
    btnInvite = NewButton("&Invite", "Invite the selected user to play a game", mnuActionsInvite);
    btnBreak = NewButton("&Break", "Break the current game connection", mnuActionsBreak);
    btnNickname = NewButton("&Nickname", "Change your nickname", mnuActionsNickname);
    btnExit = NewButton("E&xit", "Close this window", mnuClientFileExit);
}

void frmClient::CreateInput() {
    linHoriz = new wxStaticLine(surface);
    lblTX = new wxStaticText(surface, wxID_ANY, "");
    txtTX = new wxTextCtrl(surface, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
    txtTX->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { EnterLine(); });
    btnP = new wxToggleButton(surface, wxID_ANY, "&Private");
    btnP->SetToolTip("Show and write what only your opponent sees");
    btnP->Bind(wxEVT_TOGGLEBUTTON, [this](wxCommandEvent&) {
        parts_.network.SetPrivateMode(!parts_.network.PrivateMode());
        FocusInput();
    });
}

wxButton* frmClient::NewButton(const wxString& caption, const wxString& tip, int item) {
    auto* button = new wxButton(surface, wxID_ANY, caption);
    button->SetToolTip(tip);
    button->Bind(wxEVT_BUTTON, [this, item](wxCommandEvent&) { Press(item); });
    return button;
}

// As if the menu item had been chosen.
void frmClient::Press(int item) {
    wxCommandEvent event(wxEVT_MENU, item);
    ProcessWindowEvent(event);
}

void frmClient::NameControls() {
    NameControl(lblRX, "lblRX", "Transcript that is shown");
    NameControl(txtRX[0], "txtRX(0)", "Transcript");
    NameControl(txtRX[1], "txtRX(1)", "Private transcript");
    NameControl(lblUsers, "lblUsers", "Caption");
    NameControl(lstUsers, "lstUsers", "Users");
    NameControl(btnInvite, "btnInvite", btnInvite->GetLabelText());
    NameControl(btnBreak, "btnBreak", btnBreak->GetLabelText());
    NameControl(btnNickname, "btnNickname", btnNickname->GetLabelText());
    NameControl(btnExit, "btnExit", btnExit->GetLabelText());
    NameControl(lblTX, "lblTX", "What happens to a message");
    NameControl(txtTX, "txtTX", "Message");
    NameControl(btnP, "btnP", btnP->GetLabelText());
    linHoriz->SetName("linHoriz");
    linVert->SetName("linVert");
}

wxSizer* frmClient::NewTranscriptColumn() {
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(lblRX, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(kGap / 2)));
    for (Transcript* transcript : txtRX)
        column->Add(transcript, wxSizerFlags(1).Expand());
    return column;
}

wxSizer* frmClient::NewUsersColumn() {
    auto* buttons = new wxGridSizer(2, FromDIP(kGap / 2), FromDIP(kGap / 2));
    for (wxButton* button : {btnInvite, btnBreak, btnNickname, btnExit})
        buttons->Add(button, wxSizerFlags().Expand());
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(lblUsers, wxSizerFlags().Border(wxBOTTOM, FromDIP(kGap / 2)));
    column->Add(lstUsers, wxSizerFlags(1).Expand());
    column->Add(buttons, wxSizerFlags().Expand().Border(wxTOP, FromDIP(kGap)));
    return column;
}

wxSizer* frmClient::NewInputRows() {
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    line->Add(txtTX, wxSizerFlags(1).Expand());
    line->Add(btnP, wxSizerFlags().Expand().Border(wxLEFT, FromDIP(kGap)));
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(lblTX, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(kGap / 2)));
    rows->Add(line, wxSizerFlags().Expand());
    return rows;
}

// After a change of fonts.
void frmClient::LayOut() {
    // The toolkit thinks of a box that is not on the screen yet as lower than it will be.
    txtTX->SetMinSize({-1, txtTX->GetCharHeight() + FromDIP(16)});
    LimitSize();
    surface->Layout();
}

// Everything in it has room. How much the window's border takes is known when it has come up.
void frmClient::LimitSize() {
    SetMinClientSize(surface->GetSizer()->ComputeFittingClientSize(this));
}

} // namespace tarveth
