// The menu bar of the main window.
#pragma once

#include <wx/defs.h>

class wxMenu;
class wxMenuBar;

namespace tarveth {

// The menu items, named by their menu path.
enum MainMenuItem : int {
    mnuFirst = wxID_HIGHEST + 1,
    mnuFileNew = mnuFirst,
    mnuFileLoad,
    mnuFileSave,
    mnuFileSaveAs,
    mnuFileInternet,
    mnuFileExit,
    mnuOptionsImperial,
    mnuOptionsDraume,
    mnuSetColors,
    mnuHelpHelp,
    mnuOptionsShowZOC,
    mnuOptionsShowZOCAll,
    mnuHelpAbout,
    mnuLast = mnuHelpAbout,
};

struct MainMenu {
    wxMenuBar* bar = nullptr; // to be owned by the frame that it is given to
    wxMenu* mnuOptions = nullptr;
};

// Creates the menu. All items but "Exit" are disabled until the caller has bound a command to them.
MainMenu CreateMainMenu();

} // namespace tarveth
