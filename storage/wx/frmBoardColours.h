// "Board Colours": the colours of the squares, from a list of themes or chosen freely, with a picture of
// them.
#pragma once

#include "display/piecepictures.h"
#include "display/pixels.h"
#include "storage/settings.h"

#include <wx/dialog.h>

class wxColourPickerCtrl;
class wxListBox;
class wxSizer;

namespace tarveth {

class PictureView;

class frmBoardColours : public wxDialog {
public:
    // The pictures outlive the dialog.
    frmBoardColours(wxWindow* parent, const PiecePictures& pictures, const BoardColor& black,
                    const BoardColor& white);

    // The colours as they are chosen; to be read by the caller when the dialog has closed with wxID_OK.
    BoardColor Black, White;

private:
    wxSizer* NewThemes();
    wxSizer* NewChoice();
    wxColourPickerCtrl* AddColour(wxSizer& row, const wxString& caption, const char* given,
                                  BoardColor& colour);
    void ChooseTheme(std::size_t theme);
    void ShowColours();

    const PiecePictures& pictures_;
    PixelBuffer picture_;
    wxListBox* lstThemes = nullptr;
    wxColourPickerCtrl* btnBlack = nullptr;
    wxColourPickerCtrl* btnWhite = nullptr;
    PictureView* picBoardColours = nullptr;
};

} // namespace tarveth
