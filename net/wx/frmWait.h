// What is shown while a server is being looked for. It has no behaviour of its own.
#pragma once

#include <wx/dialog.h>

namespace tarveth {

class frmWait : public wxDialog {
public:
    explicit frmWait(wxWindow* parent);
};

} // namespace tarveth
