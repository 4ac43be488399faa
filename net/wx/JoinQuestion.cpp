#include "net/wx/JoinQuestion.h"

#include "display/wx/NameControl.h"

#include <utility>

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace tarveth {

namespace {

// Somebody who is typing when the question comes up must not answer it by that.
constexpr std::chrono::milliseconds kKeysIgnored{500};

constexpr int kLineLetters = 70; // where the text is wrapped

} // namespace

JoinQuestion::JoinQuestion(wxWindow* parent, std::function<void(bool)> answer)
    : wxDialog(parent, wxID_ANY, "Join Game?"), answer_(std::move(answer)) {
    const int gap = FromDIP(16);
    lblQuestion_ = new wxStaticText(this, wxID_ANY, "");
    auto* yes = new wxButton(this, wxID_YES);
    auto* no = new wxButton(this, wxID_NO);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(yes, wxSizerFlags().Border(wxRIGHT, gap));
    buttons->Add(no);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(lblQuestion_, wxSizerFlags().Border(wxALL, gap));
    rows->Add(buttons, wxSizerFlags().Centre().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizer(rows);
    no->SetDefault();
    no->SetFocus();
    SetEscapeId(wxID_NO);
    NameControl(lblQuestion_, "lblQuestion", "Question");
    NameControl(yes, "cmdYes", "Yes");
    NameControl(no, "cmdNo", "No");
    yes->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Answer(true); });
    no->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Answer(false); });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Answer(false); });
    Bind(wxEVT_CHAR_HOOK, &JoinQuestion::OnKey, this);
}

void JoinQuestion::Ask(const wxString& text) {
    lblQuestion_->SetLabelText(text);
    lblQuestion_->Wrap(GetCharWidth() * kLineLetters);
    GetSizer()->SetSizeHints(this);
    if (IsShown())
        return;
    CentreOnParent();
    shown_ = std::chrono::steady_clock::now();
    Show();
}

void JoinQuestion::Answer(bool yes) {
    Hide();
    if (const auto answer = std::exchange(answer_, nullptr))
        answer(yes);
}

void JoinQuestion::OnKey(wxKeyEvent& event) {
    if (std::chrono::steady_clock::now() - shown_ >= kKeysIgnored)
        event.Skip();
}

} // namespace tarveth
