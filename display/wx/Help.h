// "Help on Tarveth": the system's help viewer, or a window of our own where there is none.
#pragma once

#include "display/wx/HelpWindow.h"

#include <memory>
#include <string>
#include <vector>

namespace tarveth {

class Help {
public:
    // `folders` (with their trailing separators) may hold the manual; the first that does is used. The
    // program's own is the last. `parent` is there whenever Show is called.
    Help(wxWindow* parent, std::vector<std::string> folders);
    ~Help();

    // Opens the manual, or says in a message box why it cannot be.
    void Show();
    // Closes the manual's window, which must not be open when `parent` goes: the toolkit would delete it
    // while it walks along the list of windows that it stands in.
    void Close();

private:
    bool ShowInSystemViewer() const;
    std::string ShowInWindow();
    std::string Find(const std::string& name) const;

    wxWindow* parent_;
    std::vector<std::string> folders_;
    std::unique_ptr<HelpWindow> window_; // none until it is needed
};

} // namespace tarveth
