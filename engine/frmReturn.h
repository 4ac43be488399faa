// The question which piece comes back, when an Officer as well as a Pawn may. It closes only by a choice.
#pragma once

#include "display/pixels.h"

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

    // After the dialog has closed: 1 Pawn, 2 Officer.
    int Choice() const { return choice_; }

private:
    void Choose(int choice);

    int choice_ = 0;
    wxStaticText* lblQuestion_ = nullptr;
    wxBitmapButton* picReturnOfficer = nullptr;
    wxBitmapButton* picReturnPawn = nullptr;
    wxStaticText* lblReturnOfficer_ = nullptr;
    wxStaticText* lblReturnPawn_ = nullptr;
};

} // namespace tarveth
