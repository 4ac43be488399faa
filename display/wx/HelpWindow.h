// The manual in a window of the program. It lives in a module of its own: the toolkit's page viewer would
// cost every start time and memory, and most games are played without the manual.
#pragma once

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
};

// The module's one door: makes the window's owner for a book, a path to a .htb file in UTF-8. The window
// closes with `parent`. Nothing is shown yet.
inline constexpr char kNewHelpWindow[] = "TarvethNewHelpWindow";
using NewHelpWindow = HelpWindow* (*)(wxWindow* parent, const char* book);

} // namespace tarveth
