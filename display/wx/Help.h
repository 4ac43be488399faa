// "Help on Tarveth": opens the manual in the system's help viewer or, where there is none, in a window of the
// program.
#pragma once

#include "display/wx/HelpWindow.h"

#include <memory>
#include <string>
#include <vector>

namespace tarveth {

class Help {
public:
    // The manual is looked up in each of the folders (with their trailing separators) in turn; the last is
    // the program's folder. `parent` exists whenever Show is called.
    Help(wxWindow* parent, std::vector<std::string> folders);
    ~Help();

    // Opens the manual, or says in a message box why it cannot be opened.
    void Show();
    // Closes the manual's window. To be called before `parent` is destroyed: otherwise the toolkit would
    // delete the window while it iterates over the list of its windows.
    void Close();

private:
    bool ShowInSystemViewer() const;
    std::string ShowInWindow();
    std::string Find(const std::string& name) const;

    wxWindow* parent_;
    std::vector<std::string> folders_;
    std::unique_ptr<HelpWindow> window_; // null until it is first needed
};

} // namespace tarveth
