#include "net/wx/frmClientMenu.h"

#include <wx/menu.h>

namespace tarveth {

ClientMenu CreateClientMenu() {
    auto* mnuFile = new wxMenu;
    mnuFile->Append(mnuClientFileExit, "E&xit");

    auto* mnuActions = new wxMenu;
    mnuActions->Append(mnuActionsInvite, "&Invite Player");
    mnuActions->Append(mnuActionsBreak, "&Break Invite");
    mnuActions->Append(mnuActionsNickname, "Change &Nickname");
    mnuActions->AppendSeparator();
    mnuActions->Append(mnuActionsSwap, "&Swap Blue && Red");
    mnuActions->AppendSeparator();
    mnuActions->Append(mnuActionsClearTranscript, "Clear Transcript");
    mnuActions->Append(mnuActionsClearPrivateTranscript, "Clear Private Transcript");

    auto* mnuView = new wxMenu;
    mnuView->AppendCheckItem(mnuViewTranscript, "Transcript (&General)");
    mnuView->AppendCheckItem(mnuViewTranscriptPrivate, "Transcript (&Private)");

    auto* bar = new wxMenuBar;
    bar->Append(mnuFile, "&File");
    bar->Append(mnuActions, "&Actions");
    bar->Append(mnuView, "&View");
    return {bar, mnuActions, mnuView};
}

} // namespace tarveth
