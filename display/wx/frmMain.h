// The main window: menus, board, jail, history and labels. Each of its event handlers makes one call to the
// core.
#pragma once

#include "display/board.h"
#include "display/boardmarks.h"
#include "display/boardmouse.h"
#include "display/layout.h"
#include "display/wx/PlacedFrame.h"
#include "display/wx/RecentMenu.h"
#include "engine/modMAIN.h"
#include "storage/gamebar.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <wx/timer.h>

class wxMenu;
class wxStaticLine;
class wxStaticText;

namespace tarveth {

class BoardView;
class GameBar;
class HistoryList;
class PictureView;

// The objects that the window works with. All of them outlive it.
struct MainWindowParts {
    Game& game;
    Settings& settings;
    PiecePictures& pictures;
    modMAIN& main;
    BoardDisplay& board;
    BoardMouse& mouse;
    std::map<int, std::function<void()>> commands; // by MainMenuItem; an item without one is disabled
    std::function<void(const WindowPosition&)> saveSettings;
    std::function<void()> closeOthers; // closes the other windows; called when the loop has been ended
    std::function<void(bool localPlayerWon)> gameEndSound;
    std::function<PieceKind(std::int16_t side)> chooseReturn; // Officer or Pawn; blocks until chosen
    std::function<BoardMarks(bool boardHasFocus)> marks;      // of the board as it is now
    std::function<std::vector<std::string>()> recentGames;    // full paths, the newest first
    std::function<void(const std::string& path)> openGame;    // tells of a failure itself
    std::function<void(BarChoice)> chooseInBar;               // a button of the bar has been pressed
    std::function<void()> afterPasses;                        // what follows the game does its part
    std::function<std::string()> asked;                       // what is asked now; empty: as it was
};

class frmMain : public PlacedFrame,
                public MainWindowPort,
                public PersonPort,
                public DisplayPort,
                public GameBarPort {
public:
    frmMain();
    ~frmMain() override;

    // Joins the window to the game. To be called once, before any other call but ShowMessageBox.
    void Connect(const MainWindowParts& parts);

    // Loads the window's icons from pics/ in the folder (with its trailing separator), if they exist.
    void TakeIcons(const std::string& folder);

    // Applies the settings for grid labels, history and marks, and lays out the window.
    void ApplyDisplaySettings();
    void ShowGridLabels();
    // Lists the recent games in the View menu as they are now.
    void ShowRecentGames();

    void ShowMessage(std::string_view text) override;
    void ShowPrompt(std::string_view text) override;
    void ShowPlayer(std::string_view text, std::uint32_t colour) override;
    void ShowLocalSide(std::int16_t side) override;
    void ShowCaption(std::string_view text) override;
    void ShowMarker(bool visible) override;
    void ShowHistory() override;

    void Beep() override;
    // What is to be told before the window is on the screen waits for TellWhatWaits, and blocks nobody.
    void ShowMessageBox(std::string_view text) override;
    // Tells it in one message box, if there is any.
    void TellWhatWaits();
    void GameEndSound(bool localPlayerWon) override;
    PieceKind ChooseReturn(std::int16_t side) override;

    void ShowBar(const BarLine& line) override;

    void RefreshDisplay() override;
    void SetTimerInterval(int milliseconds) override;
    void Yield() override;

private:
    void CreateMenus();
    void CreateControls();
    void CreateGridLabels();
    void CreateHistory();
    void NameControls();
    wxStaticText* NewLabel(const wxString& text = {});
    LayoutMetrics Metrics() const;
    void LayOut();
    void TakeThemeColours();
    void MarkPictures();
    void CheckBoardVariant();
    void OpenGame(const std::string& path);
    void CheckViewSwitches();
    void UpdatePlayer();
    void UpdateAsked();
    void ForgetTold();

    void OnSize(wxSizeEvent& event);
    void OnClose(wxCloseEvent& event);
    void OnIdle(wxIdleEvent& event);

    std::unique_ptr<MainWindowParts> parts_; // null until Connect is called
    std::int16_t localSide_ = NoSide;        // the side that was shown last
    wxString player_;                        // what lblCurPlayer is to show
    std::uint32_t playerColour_ = 0;
    bool playerChanged_ = false;
    std::string untold_; // the sentences for TellWhatWaits, with an empty line between two

    wxMenu* mnuOptions = nullptr;
    wxMenu* mnuView = nullptr;
    RecentMenu recent_;
    wxWindow* surface = nullptr; // holds all the controls
    BoardView* picDisplay = nullptr;
    PictureView* picDisplayJail = nullptr;
    GameBar* bar = nullptr;                  // null until first shown
    HistoryList* lstHistory = nullptr;       // null until first shown
    std::array<wxStaticText*, 16> lblGrid{}; // null until first shown
    std::array<wxStaticText*, 2> Label1{};
    wxStaticText* lblCurPlayer = nullptr;
    wxStaticText* lblMoveStatus = nullptr;
    wxStaticText* lblMessage = nullptr;
    wxStaticText* lblAsked = nullptr; // what is asked, near the board
    wxStaticText* lblTold = nullptr;  // what lblMessage has said since the last click, below that
    wxStaticLine* linLeft = nullptr;
    wxStaticLine* linRight = nullptr;
    wxStaticLine* linTop = nullptr;
    wxStaticLine* linBottom = nullptr;
    wxStaticLine* Line1 = nullptr;
    wxTimer Timer1;
};

} // namespace tarveth
