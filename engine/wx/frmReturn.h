// The dialog that asks which piece returns, when both an Officer and a Pawn may. Only a choice closes it.
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

    int PicSize = 64; // edge of the pictures, in pixels of the screen

    // The pictures of the side that the piece returns to.
    void SetPictures(const PixelBuffer& officer, const PixelBuffer& pawn);
    // Lays out the dialog for PicSize.
    void SetSize();
    using wxDialog::SetSize;

    // Gives the choice, Officer or Pawn, after the dialog has closed.
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

// Shows the dialog with the side's pictures and gives the user's choice: Officer or Pawn.
PieceKind AskReturn(wxWindow* parent, const PiecePictures& pictures, std::int16_t side);

} // namespace tarveth
