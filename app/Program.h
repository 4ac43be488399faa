// All objects of the running program, in the order in which they depend on each other, joined to the windows.
#pragma once

#include "app/GameClipboard.h"
#include "app/Speaker.h"
#include "display/boardmouse.h"
#include "display/piecepictures.h"
#include "display/wx/GameFileDialogs.h"
#include "display/wx/Help.h"
#include "display/wx/frmMain.h"
#include "display/wx/frmMainMenu.h"
#include "display/zonedisplay.h"
#include "engine/modMAIN.h"
#include "net/wx/frmClient.h"
#include "play/Adviser.h"
#include "play/ComputerOpponent.h"
#include "storage/gamefiles.h"
#include "storage/gamekeeper.h"
#include "storage/gamerecord.h"
#include "storage/modINI.h"
#include "storage/recentgames.h"
#include "storage/settingsfile.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <wx/weakref.h>

namespace tarveth {

// What the command line asks for.
struct StartRequest {
    std::string gameFile = {}; // the absolute path of a saved game; empty for a new game
    bool newest = false;       // instead, the newest of the recent games that is still there
};

class Program {
public:
    Program();

    // Reads the settings and the pictures, shows the main window and begins a new game or loads the one that
    // is asked for.
    void Start(const StartRequest& request);

private:
    void LoadEverything();
    void BeginGame(const std::string& gameFile);
    void Tell(const std::string& text);
    std::string LoadPictures();
    void ShowOptions();
    void ShowBoardColours();
    void ApplyOptions();
    std::vector<std::string> Folders() const;
    void ShowWindow();
    void ShowClient();
    void SaveClient(const WindowPosition& position);
    void SaveEverything(const WindowPosition& position);
    void CloseOtherWindows();
    MainWindowParts Parts();
    GameKeeperParts KeeperParts();
    std::map<int, std::function<void()>> Commands();
    std::string WhatIsSaid() const;
    void ChooseBoard(std::int16_t variant, const std::string& name);
    void Switch(const ViewSwitch& view);
    BoardMarks Marks(bool boardHasFocus) const;
    void PlayAgainstComputer();
    void CallDraw();
    void ChangeLevel();
    void SetLevel();

    std::string programFolder_;  // of the executable, with what ships beside it
    std::string writableFolder_; // of settings and logs: the same one where it can be written

    frmMain* window_;             // owned by the toolkit, which destroys it when it has closed
    wxWeakRef<frmClient> client_; // null while the client window is closed; owned by the toolkit
    Game game_;
    NetGame net_;
    Settings settings_;
    modINI ini_;
    Speaker speaker_;
    Sounds sounds_;
    PiecePictures pictures_;
    BoardDisplay board_;
    ZoneDisplay zones_;
    GameRecord record_;
    modClient network_;
    modMAIN main_;
    BoardMouse mouse_;
    ComputerOpponent computer_;
    Adviser adviser_;
    Help help_{window_, {writableFolder_, programFolder_}};
    GameFileDialogs fileDialogs_;
    GameFiles files_;
    GameClipboard clipboard_{game_, net_, files_, *window_};
    RecentGames recent_;
    GameKeeper keeper_;
};

} // namespace tarveth
