#include "engine/wx/frmReturn.h"

#include "display/wx/NameControl.h"
#include "display/wx/PictureView.h"

#include <wx/bmpbuttn.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace tarveth {

namespace {

// Gives the picture with the button's background in place of its key colour.
wxBitmap WithoutKey(const PixelBuffer& picture, double contentScale) {
    wxBitmap bitmap = ToBitmap(picture, contentScale);
    bitmap.SetMask(new wxMask(bitmap, wxColour(kKeyGreen)));
    return bitmap;
}

} // namespace

PieceKind AskReturn(wxWindow* parent, const PiecePictures& pictures, std::int16_t side) {
    frmReturn dialog(parent);
    dialog.PicSize = pictures.SquareSize;
    dialog.SetPictures(*pictures.Of(side, Officer), *pictures.Of(side, Pawn));
    dialog.SetSize();
    dialog.ShowModal();
    return dialog.Choice();
}

frmReturn::frmReturn(wxWindow* parent)
    : wxDialog(parent, wxID_ANY, "Return a piece", wxDefaultPosition, wxDefaultSize, wxCAPTION) {
    lblQuestion_ = new wxStaticText(this, wxID_ANY, "Which piece comes back to the board?");
    picReturnOfficer = new wxBitmapButton(this, wxID_ANY, wxBitmap(1, 1));
    picReturnPawn = new wxBitmapButton(this, wxID_ANY, wxBitmap(1, 1));
    lblReturnOfficer_ = new wxStaticText(this, wxID_ANY, "Officer");
    lblReturnPawn_ = new wxStaticText(this, wxID_ANY, "Pawn");
    NameControl(picReturnOfficer, "picReturnOfficer", "Return an Officer");
    NameControl(picReturnPawn, "picReturnPawn", "Return a Pawn");
    picReturnOfficer->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Choose(Officer); });
    picReturnPawn->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Choose(Pawn); });
    SetEscapeId(wxID_NONE);
    Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent& event) { event.Veto(); });
}

void frmReturn::SetPictures(const PixelBuffer& officer, const PixelBuffer& pawn) {
    picReturnOfficer->SetBitmap(WithoutKey(officer, GetContentScaleFactor()));
    picReturnPawn->SetBitmap(WithoutKey(pawn, GetContentScaleFactor()));
}

void frmReturn::SetSize() {
    const int gap = FromDIP(12);
    const int button = static_cast<int>(PicSize / GetContentScaleFactor()) + FromDIP(24);
    auto* choices = new wxFlexGridSizer(2, gap / 2, gap * 2);
    for (wxBitmapButton* picture : {picReturnOfficer, picReturnPawn}) {
        picture->SetMinSize({button, button});
        choices->Add(picture, wxSizerFlags().Center());
    }
    for (wxStaticText* caption : {lblReturnOfficer_, lblReturnPawn_})
        choices->Add(caption, wxSizerFlags().Center());
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(lblQuestion_, wxSizerFlags().Center().Border(wxALL, gap));
    rows->Add(choices, wxSizerFlags().Center().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizerAndFit(rows);
    CentreOnParent();
    picReturnOfficer->SetFocus();
}

void frmReturn::Choose(PieceKind choice) {
    choice_ = choice;
    EndModal(wxID_OK);
}

} // namespace tarveth
