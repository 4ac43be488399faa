// A window with one control of each kind that the harness must be able to read and use.

#include "platform/accessible.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace {

class SampleFrame : public wxFrame {
public:
    SampleFrame() : wxFrame(nullptr, wxID_ANY, "Sample window", wxDefaultPosition, wxSize(640, 480)) {
        MakeMenus();
        MakeControls();
    }

private:
    void MakeMenus() {
        auto* file = new wxMenu;
        file->Append(wxID_NEW, "&New Game");
        file->Append(wxID_ABOUT, "&About");
        file->Append(wxID_EXIT, "E&xit");
        auto* bar = new wxMenuBar;
        bar->Append(file, "&File");
        SetMenuBar(bar);
        Bind(
            wxEVT_MENU, [this](wxCommandEvent&) { label_->SetLabel("new game"); }, wxID_NEW);
        Bind(
            wxEVT_MENU, [this](wxCommandEvent&) { wxMessageBox("What this is", "About", wxOK, this); },
            wxID_ABOUT);
        Bind(
            wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
    }

    void MakeControls() {
        auto* panel = new wxPanel(this);
        label_ = new wxStaticText(panel, wxID_ANY, "at rest");
        auto* board = new wxWindow(panel, wxID_ANY, wxDefaultPosition, wxSize(200, 200), wxWANTS_CHARS);
        auto* list = new wxListBox(panel, wxID_ANY);
        auto* button = new wxButton(panel, wxID_ANY, "&Press");
        auto* entry = new wxTextCtrl(panel, wxID_ANY);
        list->Append("first line");
        list->Append("second line");
        board->SetBackgroundColour(*wxBLUE);
        board->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) { ShowPoint("left", event.GetPosition()); });
        board->Bind(wxEVT_RIGHT_DOWN,
                    [this](wxMouseEvent& event) { ShowPoint("right", event.GetPosition()); });
        button->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { label_->SetLabel("pressed"); });
        tarveth::platform::SetAccessible(label_->GetHandle(), "lblMessage", "Message");
        tarveth::platform::SetAccessible(board->GetHandle(), "picDisplay", "Board");
        tarveth::platform::SetAccessible(list->GetHandle(), "lstHistory", "Moves");
        tarveth::platform::SetAccessible(entry->GetHandle(), "txtEntry", "Entry");
        auto* column = new wxBoxSizer(wxVERTICAL);
        for (wxWindow* control : {static_cast<wxWindow*>(label_), board, static_cast<wxWindow*>(list),
                                  static_cast<wxWindow*>(button), static_cast<wxWindow*>(entry)}) {
            column->Add(control, wxSizerFlags().Border());
        }
        panel->SetSizer(column);
        entry->SetFocus();
    }

    void ShowPoint(const char* button, wxPoint at) {
        label_->SetLabel(wxString::Format("%s %d,%d", button, at.x, at.y));
    }

    wxStaticText* label_ = nullptr;
};

} // namespace

class SampleApp : public wxApp {
public:
    bool OnInit() override { return (new SampleFrame)->Show(); }
};

wxIMPLEMENT_APP(SampleApp);
