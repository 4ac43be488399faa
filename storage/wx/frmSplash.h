// "About Tarveth": the version and who made it.
#pragma once

#include "display/piecepictures.h"

#include <wx/dialog.h>

namespace tarveth {

class frmSplash : public wxDialog {
public:
    // Shows the built-in pieces, whatever pictures are in use.
    frmSplash(wxWindow* parent, const PiecePictures& pictures);
};

} // namespace tarveth
