#include "display/wx/GameBar.h"

#include "display/wx/NameControl.h"
#include "display/wx/text.h"

#include <algorithm>
#include <utility>

#include <wx/button.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace tarveth {

namespace {

// In device-independent pixels.
constexpr int kMargin = 12; // at both ends, as beside the board
constexpr int kSpace = 8;   // above and below, and between text and buttons

} // namespace

GameBar::GameBar(wxWindow* parent, std::function<void(BarChoice)> choose)
    : wxPanel(parent), choose_(std::move(choose)) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    lblBar = new wxStaticText(this, wxID_ANY, "");
    row->AddSpacer(FromDIP(kMargin));
    row->Add(lblBar, 1, wxALIGN_CENTRE_VERTICAL | wxTOP | wxBOTTOM, FromDIP(kSpace));
    buttons_ = new wxBoxSizer(wxHORIZONTAL);
    row->Add(buttons_, 0, wxALIGN_CENTRE_VERTICAL | wxTOP | wxBOTTOM, FromDIP(kSpace) / 2);
    row->AddSpacer(FromDIP(kMargin));
    SetSizer(row);
    NameControl(lblBar, "lblBar", "Games that are kept");
    TakeThemeColours();
}

void GameBar::ShowLine(const BarLine& line) {
    text_ = ToWx(line.text);
    CreateButtons(line.choices);
    Show(!line.text.empty());
}

void GameBar::CreateButtons(const std::vector<BarChoice>& choices) {
    buttons_->Clear(true);
    for (const BarChoice choice : choices) {
        auto* button = new wxButton(this, wxID_ANY, ToWx(CaptionOf(choice)));
        // The choice may change the line, and so destroy the button.
        button->Bind(wxEVT_BUTTON,
                     [this, choice](wxCommandEvent&) { CallAfter([this, choice] { choose_(choice); }); });
        buttons_->Add(button, 0, wxLEFT, FromDIP(kSpace));
    }
}

int GameBar::HeightAt(int width) {
    lblBar->SetLabelText(text_);
    const int forText = width - buttons_->CalcMin().x - 2 * FromDIP(kMargin);
    lblBar->Wrap(std::max(forText, FromDIP(80)));
    return GetSizer()->CalcMin().y;
}

// A ground of the selection's colour, thin, is seen in light and dark themes and needs no other letters.
void GameBar::TakeThemeColours() {
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    const wxColour accent = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
    const auto mix = [](unsigned char a, unsigned char b) { return wxColour::AlphaBlend(a, b, 0.22); };
    SetBackgroundColour(wxColour(mix(accent.Red(), ground.Red()), mix(accent.Green(), ground.Green()),
                                 mix(accent.Blue(), ground.Blue())));
}

} // namespace tarveth
