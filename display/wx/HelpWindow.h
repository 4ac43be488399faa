// The manual in a window of the program. It lives in a module of its own where programs are made of many
// files anyway: the toolkit's page viewer would cost every start time and memory, and most games are played
// without the manual.
#pragma once

#include <memory>
#include <string>

class wxWindow;

namespace tarveth {

class HelpWindow {
public:
    HelpWindow() = default;
    virtual ~HelpWindow() = default;
    HelpWindow(const HelpWindow&) = delete;
    HelpWindow& operator=(const HelpWindow&) = delete;

    // Shows the manual's first page, in the window that is open already if there is one. False when the book
    // cannot be read.
    virtual bool Show() = 0;
    // Closes the window if it is open; it can be shown again.
    virtual void Close() = 0;
};

// The module's one door: makes the window's owner for a book, a path to a .htb file in UTF-8. The window
// is to be closed before `parent` goes. Nothing is shown yet.
inline constexpr char kNewHelpWindow[] = "TarvethNewHelpWindow";
using NewHelpWindow = HelpWindow* (*)(wxWindow* parent, const char* book);

// Goes through that door. `folder` (with its trailing separator) holds the module. Null with a sentence in
// `problem` when it cannot be loaded.
std::unique_ptr<HelpWindow> LoadHelpWindow(wxWindow* parent, const std::string& folder,
                                           const std::string& book, std::string& problem);

} // namespace tarveth
