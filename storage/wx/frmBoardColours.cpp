#include "storage/wx/frmBoardColours.h"

#include "display/board.h"
#include "display/preview.h"
#include "display/wx/NameControl.h"
#include "display/wx/PictureView.h"
#include "storage/boardthemes.h"

#include <algorithm>
#include <cmath>

#include <wx/button.h>
#include <wx/clrpicker.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace tarveth {

namespace {

constexpr int kGap = 12;
constexpr int kSquare = 72;

wxColour ToWxColour(const BoardColor& colour) {
    return wxColour(ColourOf(colour));
}

BoardColor FromWxColour(const wxColour& colour) {
    return {colour.Red(), colour.Green(), colour.Blue()};
}

} // namespace

frmBoardColours::frmBoardColours(wxWindow* parent, const PiecePictures& pictures, const BoardColor& black,
                                 const BoardColor& white)
    : wxDialog(parent, wxID_ANY, "Board Colours"), Black(black), White(white), pictures_(pictures) {
    const int gap = FromDIP(kGap);
    auto* columns = new wxBoxSizer(wxHORIZONTAL);
    columns->Add(NewThemes(), wxSizerFlags().Expand());
    columns->Add(NewChoice(), wxSizerFlags(1).Expand().Border(wxLEFT, gap));
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, gap));
    rows->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL),
              wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    NameControl(FindWindow(wxID_OK), "btnOkay", "OK");
    NameControl(FindWindow(wxID_CANCEL), "btnCancel", "Cancel");
    ShowColours();
    SetSizerAndFit(rows);
    CentreOnParent();
    lstThemes->SetFocus();
}

wxSizer* frmBoardColours::NewThemes() {
    lstThemes = new wxListBox(this, wxID_ANY);
    for (const BoardTheme& theme : kBoardThemes)
        lstThemes->Append(theme.name);
    lstThemes->Bind(wxEVT_LISTBOX, [this](wxCommandEvent& event) {
        ChooseTheme(static_cast<std::size_t>(event.GetSelection()));
    });
    NameControl(lstThemes, "lstThemes", "Themes");
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new wxStaticText(this, wxID_ANY, "Themes"), wxSizerFlags().Border(wxBOTTOM, FromDIP(kGap / 3)));
    rows->Add(lstThemes, wxSizerFlags(1).Expand());
    return rows;
}

wxSizer* frmBoardColours::NewChoice() {
    const int gap = FromDIP(kGap);
    picBoardColours = new PictureView(this);
    picBoardColours->SetMinSize(FromDIP(wxSize(kSquare * 3, kSquare * 2)));
    NameControl(picBoardColours, "picBoardColours", "The pieces on these squares");
    auto* colours = new wxFlexGridSizer(2, gap / 2, gap);
    btnBlack = AddColour(*colours, "\"Black\" squares", "btnBlack", Black);
    btnWhite = AddColour(*colours, "\"White\" squares", "btnWhite", White);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(picBoardColours);
    rows->Add(colours, wxSizerFlags().Border(wxTOP, gap));
    return rows;
}

wxColourPickerCtrl* frmBoardColours::AddColour(wxSizer& row, const wxString& caption, const char* given,
                                               BoardColor& colour) {
    row.Add(new wxStaticText(this, wxID_ANY, caption), wxSizerFlags().CenterVertical());
    auto* button = new wxColourPickerCtrl(this, wxID_ANY);
    button->Bind(wxEVT_COLOURPICKER_CHANGED, [this, &colour](wxColourPickerEvent& event) {
        colour = FromWxColour(event.GetColour());
        ShowColours();
    });
    NameControl(button, given, caption);
    row.Add(button);
    return button;
}

void frmBoardColours::ChooseTheme(std::size_t theme) {
    Black = kBoardThemes.at(theme).black;
    White = kBoardThemes.at(theme).white;
    ShowColours();
}

// Shows the colours, and selects their theme if they are one's.
void frmBoardColours::ShowColours() {
    const auto* theme = std::ranges::find_if(
        kBoardThemes, [this](const BoardTheme& row) { return row.black == Black && row.white == White; });
    lstThemes->SetSelection(theme == kBoardThemes.end() ? wxNOT_FOUND
                                                        : static_cast<int>(theme - kBoardThemes.begin()));
    btnBlack->SetColour(ToWxColour(Black));
    btnWhite->SetColour(ToWxColour(White));
    const int edge = static_cast<int>(std::lround(FromDIP(kSquare) * GetContentScaleFactor()));
    picture_ = PieceBoard(pictures_.picBlue, pictures_.picRed, edge, ColourOf(Black), ColourOf(White));
    picBoardColours->ShowPixels(picture_);
}

} // namespace tarveth
