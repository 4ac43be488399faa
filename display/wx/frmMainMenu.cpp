#include "display/wx/frmMainMenu.h"

#include <wx/menu.h>

namespace tarveth {

MainMenu CreateMainMenu() {
    auto* mnuFile = new wxMenu;
    mnuFile->Append(mnuFileNew, "&New Game\tCtrl+N");
    mnuFile->Append(mnuFileLoad, "&Load Game\tCtrl+O");
    mnuFile->Append(mnuFileSave, "&Save Game\tCtrl+S");
    mnuFile->Append(mnuFileSaveAs, "Save Game &As\tCtrl+Shift+S");
    mnuFile->AppendSeparator();
    mnuFile->Append(mnuFileInternet, "Connect to &Internet");
    mnuFile->AppendSeparator();
    mnuFile->Append(mnuFileExit, "E&xit");

    auto* mnuOptions = new wxMenu;
    mnuOptions->AppendRadioItem(mnuOptionsImperial, "&Imperial Board");
    mnuOptions->AppendRadioItem(mnuOptionsDraume, "&Draume Crown Board");
    mnuOptions->AppendSeparator();
    mnuOptions->Append(mnuSetColors, "&Options...");

    auto* mnuGame = new wxMenu;
    mnuGame->Append(mnuGamePlay, "&Play Against the Computer...");
    mnuGame->Append(mnuGameHint, "&Hint\tCtrl+H");
    mnuGame->Append(mnuGameMove, "&Let the Computer Move");
    mnuGame->AppendSeparator();
    mnuGame->Append(mnuGameLevel, "Change Le&vel...");
    mnuGame->Append(mnuGameDraw, "Call It a &Draw");
    mnuGame->Append(mnuGameStop, "&Stop the Computer");
    mnuGame->AppendSeparator();
    mnuGame->Append(mnuGameCopyPosition, "&Copy Position\tCtrl+C");
    mnuGame->Append(mnuGameCopyGame, "Copy &Game\tCtrl+Shift+C");
    mnuGame->Append(mnuGamePaste, "P&aste Position\tCtrl+V");
    mnuGame->Append(mnuGameSavePicture, "Save Pict&ure...");

    auto* mnuView = new wxMenu;
    for (const ViewSwitch& view : kViewSwitches)
        mnuView->AppendCheckItem(view.item, view.caption);
    mnuView->AppendSeparator();
    mnuView->Append(mnuViewBoardColours, "Board C&olours...");
    mnuView->AppendSeparator();
    mnuView->Append(mnuViewHowToPlay, "How to &Play");

    auto* mnuHelp = new wxMenu;
    mnuHelp->Append(mnuHelpHelp, "&Help on Tarveth");
    mnuHelp->AppendSeparator();
    mnuHelp->Append(mnuOptionsShowZOC, "&Show ZOC");
    mnuHelp->Append(mnuOptionsShowZOCAll, "Show &ZOC All");
    mnuHelp->AppendSeparator();
    mnuHelp->Append(mnuHelpAbout, "&About Tarveth");

    auto* bar = new wxMenuBar;
    bar->Append(mnuFile, "&File");
    bar->Append(mnuOptions, "&Options");
    bar->Append(mnuGame, "&Game");
    bar->Append(mnuView, "&View");
    bar->Append(mnuHelp, "&Help");
    for (int item = mnuFirst; item <= mnuLast; ++item)
        bar->Enable(item, item == mnuFileExit);
    return {bar, mnuOptions, mnuView};
}

} // namespace tarveth
