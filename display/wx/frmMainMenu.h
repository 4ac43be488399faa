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
    wxMenuBar* bar = nullptr; // owned by whoever takes it
    wxMenu* mnuOptions = nullptr;
};

// All items are disabled but "Exit": whoever answers one enables it.
MainMenu CreateMainMenu();

} // namespace tarveth
