// The question which piece comes back, when an Officer as well as a Pawn may. It closes only by a choice.
#pragma once

#include "display/piecepictures.h"
#include "display/pixels.h"
#include "engine/rules/modPieces.h"

#include <cstdint>

#include <wx/dialog.h>

class wxBitmapButton;
class wxStaticText;

namespace tarveth {

class frmReturn : public wxDialog {
public:
    explicit frmReturn(wxWindow* parent);

    int PicSize = 64; // pixels of the screen that a picture's square has

    // The returning side's pictures.
    void SetPictures(const PixelBuffer& officer, const PixelBuffer& pawn);
    // Lays the dialog out for PicSize.
    void SetSize();
    using wxDialog::SetSize;

    // After the dialog has closed: Officer or Pawn.
    PieceKind Choice() const { return choice_; }

private:
    void Choose(PieceKind choice);

    PieceKind choice_ = Pawn;
    wxStaticText* lblQuestion_ = nullptr;
    wxBitmapButton* picReturnOfficer = nullptr;
    wxBitmapButton* picReturnPawn = nullptr;
    wxStaticText* lblReturnOfficer_ = nullptr;
    wxStaticText* lblReturnPawn_ = nullptr;
};

// Shows the dialog with the side's pictures, and gives what is chosen: Officer or Pawn.
PieceKind AskReturn(wxWindow* parent, const PiecePictures& pictures, std::int16_t side);

} // namespace tarveth
