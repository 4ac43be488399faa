// The menu bar of the client window.
#pragma once

#include <wx/defs.h>

class wxMenu;
class wxMenuBar;

namespace tarveth {

// The menu items, named by their menu path. They begin behind those of the main window.
enum ClientMenuItem : int {
    mnuClientFileExit = wxID_HIGHEST + 101,
    mnuActionsInvite,
    mnuActionsBreak,
    mnuActionsNickname,
    mnuActionsSwap,
    mnuActionsClearTranscript,
    mnuActionsClearPrivateTranscript,
    mnuViewTranscript,
    mnuViewTranscriptPrivate,
};

struct ClientMenu {
    wxMenuBar* bar = nullptr; // owned by whoever takes it
    wxMenu* mnuActions = nullptr;
    wxMenu* mnuView = nullptr;
};

ClientMenu CreateClientMenu();

} // namespace tarveth
