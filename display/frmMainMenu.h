// The menu bar of the main window.
#pragma once

#include <wx/defs.h>

class wxMenu;
class wxMenuBar;

namespace tarveth {

// The menu items, named by their menu path.
enum MainMenuItem : int {
    mnuFileNew = wxID_HIGHEST + 1,
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
};

struct MainMenu {
    wxMenuBar* bar = nullptr; // owned by whoever takes it
    wxMenu* mnuOptions = nullptr;
};

MainMenu CreateMainMenu();

} // namespace tarveth
