// "Enter Server IP Address": an address typed in, or chosen from servers.txt.
#pragma once

#include "net/serverlist.h"

#include <string>
#include <vector>

#include <wx/dialog.h>

class wxChoice;
class wxSizer;
class wxStaticText;
class wxTextCtrl;

namespace tarveth {

class frmEnterIP : public wxDialog {
public:
    // servers.txt is looked for in the folders, in their order; their names end in a separator. One that
    // can't be read is told of in a message box.
    frmEnterIP(wxWindow* parent, const std::vector<std::string>& folders);

    // After the dialog has closed with wxID_OK: what stands in txtIP, without blanks around it.
    std::string Address() const;

private:
    void CreateControls();
    void NameControls();
    void LayOut();
    void LoadServers(const std::vector<std::string>& folders);

    std::vector<Server> servers_;
    wxStaticText* lblIP_ = nullptr;
    wxTextCtrl* txtIP = nullptr;
    wxChoice* cmbServers = nullptr;
    wxStaticText* lblNote_ = nullptr;
};

} // namespace tarveth
