// The question whether to join a game. It does not stop what else goes on: chat can be read meanwhile, and
// the invitation may be withdrawn.
#pragma once

#include <chrono>
#include <functional>

#include <wx/dialog.h>

class wxStaticText;

namespace tarveth {

class JoinQuestion : public wxDialog {
public:
    // answer is called once, with true for Yes, when the dialog has gone from the screen.
    JoinQuestion(wxWindow* parent, std::function<void(bool)> answer);

    // Shows the dialog with this text, or the text in the place of the one before.
    void Ask(const wxString& text);

private:
    void Answer(bool yes);
    void OnKey(wxKeyEvent& event);

    std::function<void(bool)> answer_;
    std::chrono::steady_clock::time_point shown_;
    wxStaticText* lblQuestion_ = nullptr;
};

} // namespace tarveth
