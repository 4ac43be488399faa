#include "storage/wx/frmSplash.h"

#include "display/preview.h"
#include "display/wx/NameControl.h"
#include "display/wx/PictureView.h"
#include "version.h"

#include <cmath>

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

namespace tarveth {

namespace {

constexpr int kSquare = 64;
constexpr char kCredits[] = "A board game of zones and control.\n\n"
                            "Made by the Tarveth authors, who also drew\n"
                            "the pieces and tuned the chimes.\n\n"
                            "Free software under the MIT licence.";

} // namespace

frmSplash::frmSplash(wxWindow* parent, const PiecePictures& pictures)
    : wxDialog(parent, wxID_ANY, "About Tarveth") {
    // Where this font is missing, the system takes the most similar one.
    const wxFont font(wxFontInfo(GetFont().GetPointSize()).FaceName("MS Sans Serif"));
    SetFont(font); // the controls inherit it

    const double scale = GetContentScaleFactor();
    const int edge = static_cast<int>(std::lround(FromDIP(kSquare) * scale));
    const PixelBuffer board = PieceBoard(pictures.picDefaultBlue, pictures.picDefaultRed, edge);
    auto* Picture1 = new wxStaticBitmap(this, wxID_ANY, ToBitmap(board, scale));
    auto* lblVersion = new wxStaticText(this, wxID_ANY, wxString("Tarveth ") + kVersion);
    lblVersion->SetFont(font.Scaled(1.4F).Bold());
    auto* Label1 = new wxStaticText(this, wxID_ANY, kCredits, wxDefaultPosition, wxDefaultSize,
                                    wxALIGN_CENTRE_HORIZONTAL);
    auto* btnOkay = new wxButton(this, wxID_OK, "&OK");
    NameControl(Picture1, "Picture1", "The six pieces");
    NameControl(lblVersion, "lblVersion", "Version");
    NameControl(Label1, "Label1", "Credits");
    NameControl(btnOkay, "btnOkay", "OK");
    SetEscapeId(wxID_OK);

    const int gap = FromDIP(16);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(Picture1, wxSizerFlags().Center().Border(wxALL, gap));
    rows->Add(lblVersion, wxSizerFlags().Center());
    rows->Add(Label1, wxSizerFlags().Center().Border(wxALL, gap));
    rows->Add(btnOkay, wxSizerFlags().Center().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizerAndFit(rows);
    CentreOnScreen();
    btnOkay->SetDefault();
    btnOkay->SetFocus();
}

} // namespace tarveth
