// The manual in a window of the program. On Linux it is a module that is loaded when it is first opened,
// since the toolkit's page viewer would cost time and memory at each start, and most games are played without
// the manual.
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

    // Shows the manual's first page, in the open window if there is one. False when the book cannot be read.
    virtual bool Show() = 0;
    // Closes the window if it is open; it can be shown again.
    virtual void Close() = 0;
};

// The only function that the module exports. It makes a HelpWindow, not shown yet, for a book, the path of a
// .htb file in UTF-8. The window must be closed before `parent` is destroyed.
inline constexpr char kNewHelpWindow[] = "TarvethNewHelpWindow";
using NewHelpWindow = HelpWindow* (*)(wxWindow* parent, const char* book);

// Loads the module from `folder` (with its trailing separator) and calls that function. When the module
// cannot be loaded, gives null, and a sentence in `problem`.
std::unique_ptr<HelpWindow> LoadHelpWindow(wxWindow* parent, const std::string& folder,
                                           const std::string& book, std::string& problem);

} // namespace tarveth
