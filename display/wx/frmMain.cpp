#include "display/wx/frmMain.h"

#include "display/wx/BoardView.h"
#include "display/wx/GameBar.h"
#include "display/wx/GameDrop.h"
#include "display/wx/HistoryList.h"
#include "display/wx/frmMainMenu.h"
#include "display/wx/text.h"

#include <utility>

#include <wx/evtloop.h>
#include <wx/filefn.h>
#include <wx/iconbndl.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/settings.h>
#include <wx/stattext.h>
#include <wx/utils.h>

namespace tarveth {

namespace {

constexpr int kFirstBoardEdge = 512; // shows the built-in pictures, of 64 pixels, at their own size
constexpr int kSmallestWidth = 640;
constexpr int kSmallestHeight = 480;

} // namespace

frmMain::frmMain() : PlacedFrame("Tarveth"), Timer1(this) {
    CreateMenus();
    CreateControls();
    const LayoutBox inside = SizeForBoard(FromDIP(kFirstBoardEdge), Metrics());
    SetMinSize(FromDIP(wxSize(kSmallestWidth, kSmallestHeight)));
    SetClientSize(inside.width, inside.height);
    surface->Bind(wxEVT_SIZE, &frmMain::OnSize, this);
    Bind(wxEVT_CLOSE_WINDOW, &frmMain::OnClose, this);
    Bind(wxEVT_IDLE, &frmMain::OnIdle, this);
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { parts_->board.AnimationTick(); });
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        TakeThemeColours();
        event.Skip();
    });
}

frmMain::~frmMain() = default;

void frmMain::CreateMenus() {
    MainMenu menu = CreateMainMenu();
    mnuOptions = menu.mnuOptions;
    mnuView = menu.mnuView;
    SetMenuBar(menu.bar);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, mnuFileExit);
    Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
        parts_->mouse.ReleaseCursorZone(); // the menu, not the board, will get the key-up event
        if (event.GetMenu() == mnuOptions)
            CheckBoardVariant();
        else if (event.GetMenu() == mnuView)
            ShowRecentGames();
        event.Skip();
    });
    Bind(
        wxEVT_MENU, [this](wxCommandEvent& event) { OpenGame(recent_.PathOf(event.GetId())); },
        RecentMenu::kFirstItem, RecentMenu::kLastItem);
}

void frmMain::Connect(const MainWindowParts& parts) {
    parts_ = std::make_unique<MainWindowParts>(parts);
    picDisplay->Connect(
        parts.board, parts.mouse, [this] { ForgetTold(); }, [this] { parts_->main.RunPasses(); });
    MarkPictures();
    for (const auto& [item, command] : parts_->commands) {
        GetMenuBar()->Enable(item, true);
        Bind(
            wxEVT_MENU, [this, run = command](wxCommandEvent&) { parts_->main.RunCommand(run); }, item);
    }
    TakeThemeColours();
    ApplyDisplaySettings();
    picDisplay->SetFocus();
    CallAfter([this] {  // what is not needed before the window is shown
        NameControls(); // for screen readers
        ShowRecentGames();
        // Afterwards, since whoever drags waits for the end of the drop, and opening may show a message box.
        surface->SetDropTarget(
            new GameDrop([this](const std::string& path) { CallAfter([this, path] { OpenGame(path); }); }));
    });
}

// The marks are found when they are painted, so that they are always those of the game at that moment.
void frmMain::MarkPictures() {
    picDisplay->MarkWith([this](const PixelBuffer& board) {
        return MarkedBoard(board, parts_->marks(picDisplay->HasFocus()), parts_->settings);
    });
    picDisplayJail->MarkWith(
        [this](const PixelBuffer& jail) { return MarkedJail(jail, parts_->marks(false).jailSlot); });
}

// In a dark theme the sides' pure colours would be hard to read, so labels in such a colour get a light
// background.
void frmMain::TakeThemeColours() {
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    lblCurPlayer->SetBackgroundColour(ground.GetLuminance() < 0.5 ? *wxWHITE : wxColour());
    if (!parts_)
        return;
    ShowLocalSide(localSide_);
    if (bar != nullptr)
        bar->TakeThemeColours();
    const wxColour jail = ground.ChangeLightness(ground.GetLuminance() < 0.5 ? 108 : 95);
    parts_->board.picJail.BackColor = Rgb(jail.Red(), jail.Green(), jail.Blue());
    parts_->board.RedrawBoard();
}

void frmMain::TakeIcons(const std::string& folder) {
    wxImage::AddHandler(new wxPNGHandler);
    wxIconBundle icons;
    for (const int size : {16, 32, 48, 64, 128}) {
        const wxString file = ToWx(folder) + "pics/tarveth-" + std::to_string(size) + ".png";
        wxIcon icon;
        if (wxFileExists(file) && icon.LoadFile(file, wxBITMAP_TYPE_PNG))
            icons.AddIcon(icon);
    }
    if (!icons.IsEmpty())
        SetIcons(icons);
}

void frmMain::ShowRecentGames() {
    recent_.Show(mnuView, parts_->recentGames());
}

void frmMain::OpenGame(const std::string& path) {
    parts_->main.RunCommand([this, path] { parts_->openGame(path); });
}

void frmMain::CheckBoardVariant() {
    mnuOptions->Check(parts_->settings.UsesImperialBoard() ? mnuOptionsImperial : mnuOptionsDraume, true);
}

void frmMain::CheckViewSwitches() {
    for (const ViewSwitch& view : kViewSwitches)
        GetMenuBar()->Check(view.item, parts_->settings.*view.setting != 0);
}

// The lesson for a new game is too long for one line, and stays beside the board.
void frmMain::ShowMessage(std::string_view text) {
    lblMessage->SetLabelText(ToWx(text));
    lblTold->SetLabelText(text == kToBeginPlay ? wxString() : ToWx(text));
}

void frmMain::ShowPrompt(std::string_view text) {
    if (const wxString prompt = ToWx(text); prompt != lblMoveStatus->GetLabelText())
        lblMoveStatus->SetLabelText(prompt);
}

// An opponent's program may hand the turn over without end, and to change a label takes the toolkit long. So
// it is changed when events are over, and before others are handled.
void frmMain::ShowPlayer(std::string_view text, std::uint32_t colour) {
    player_ = ToWx(text);
    playerColour_ = colour;
    playerChanged_ = true;
}

void frmMain::UpdatePlayer() {
    if (!std::exchange(playerChanged_, false))
        return;
    lblCurPlayer->SetForegroundColour(wxColour(playerColour_));
    lblCurPlayer->SetLabelText(player_);
}

// After the end of a game a click does nothing, and who has won stays.
void frmMain::ForgetTold() {
    if (parts_->game.GameState != kGameOver)
        lblTold->SetLabelText({});
}

void frmMain::UpdateAsked() {
    if (!parts_)
        return;
    const wxString asked = ToWx(parts_->asked());
    if (!asked.empty() && asked != lblAsked->GetLabelText())
        lblAsked->SetLabelText(asked);
}

void frmMain::ShowLocalSide(std::int16_t side) {
    localSide_ = side;
    const wxColour none;
    Label1[1]->SetForegroundColour(side == NoSide ? none : side == Blue ? *wxBLUE : *wxRED);
    Label1[1]->SetBackgroundColour(side != NoSide && lblCurPlayer->UseBgCol() ? *wxWHITE : none);
    Label1[1]->Refresh();
}

void frmMain::ShowCaption(std::string_view text) {
    SetTitle(ToWx(text));
}

void frmMain::ShowMarker(bool visible) {
    parts_->board.ShowMarker(visible);
}

void frmMain::ShowHistory() {
    if (lstHistory != nullptr)
        lstHistory->ShowLines(parts_->game.lstHistory);
}

void frmMain::Beep() {
    wxBell();
}

void frmMain::ShowMessageBox(std::string_view text) {
    if (!IsShown()) {
        untold_ += (untold_.empty() ? "" : "\n\n") + std::string(text);
        return;
    }
    UpdatePlayer();
    wxMessageBox(ToWx(text), "Tarveth", wxOK, this);
}

void frmMain::TellWhatWaits() {
    if (const std::string text = std::exchange(untold_, {}); !text.empty())
        ShowMessageBox(text);
}

void frmMain::GameEndSound(bool localPlayerWon) {
    parts_->gameEndSound(localPlayerWon);
}

PieceKind frmMain::ChooseReturn(std::int16_t side) {
    UpdatePlayer();
    return parts_->chooseReturn(side);
}

void frmMain::RefreshDisplay() {
    picDisplay->ShowPixels(parts_->board.picDisplay.Pixels);
    picDisplayJail->ShowPixels(parts_->board.picDisplayJail.Pixels);
}

void frmMain::SetTimerInterval(int milliseconds) {
    if (milliseconds == 0)
        Timer1.Stop();
    else
        Timer1.Start(milliseconds);
}

void frmMain::Yield() {
    UpdatePlayer();
    wxEventLoopBase::GetActive()->Dispatch();
}

void frmMain::OnSize(wxSizeEvent& event) {
    if (parts_)
        LayOut();
    event.Skip();
}

void frmMain::OnIdle(wxIdleEvent& event) {
    // A pass after every event also handles what a command has done to the game.
    if (parts_ && parts_->main.RunPasses())
        event.RequestMore();
    if (parts_)
        parts_->afterPasses();
    UpdatePlayer();
    UpdateAsked();
    event.Skip();
}

void frmMain::OnClose(wxCloseEvent& event) {
    if (parts_->main.Busy() && event.CanVeto()) { // the animation or the question has to end first
        event.Veto();
        parts_->main.RunCommand([this] { Close(true); }); // forced, since the command keeps the machine busy
        return;
    }
    parts_->saveSettings(Position());
    Timer1.Stop();
    parts_->main.EndLoop();
    parts_->closeOthers();
    event.Skip(); // lets the toolkit destroy the window; the program ends with its last window
}

} // namespace tarveth
