#include "display/frmMain.h"

#include "display/frmMainMenu.h"
#include "display/wx/BoardView.h"
#include "display/wx/text.h"
#include "engine/frmReturn.h"
#include "platform/accessible.h"
#include "platform/window_place.h"

#include <algorithm>
#include <cmath>

#include <wx/evtloop.h>
#include <wx/filefn.h>
#include <wx/iconbndl.h>
#include <wx/image.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/statline.h>
#include <wx/stattext.h>
#include <wx/utils.h>

namespace tarveth {

namespace {

constexpr int kFirstBoardEdge = 512; // the built-in pictures at their own size
constexpr int kSmallestWidth = 640;
constexpr int kSmallestHeight = 480;
constexpr int kFrameLine = 1;

void NameControl(wxWindow* control, const std::string& given, const std::string& spoken) {
    platform::SetAccessible(control->GetHandle(), given, spoken);
}

void Place(wxWindow* window, const LayoutBox& box) {
    window->SetSize(box.x, box.y, box.width, box.height);
}

// A label in the middle of its box.
void CentreLabel(wxStaticText* label, const LayoutBox& box) {
    const wxSize text = label->GetTextExtent(label->GetLabel());
    label->SetSize(box.x + (box.width - text.x) / 2, box.y + (box.height - text.y) / 2, text.x, text.y);
}

// A label over the whole width of its box, in the middle of its height.
void PlaceLine(wxStaticText* label, const LayoutBox& box) {
    const int height = label->GetTextExtent("M").y;
    label->SetSize(box.x, box.y + (box.height - height) / 2, box.width, height);
}

} // namespace

frmMain::frmMain() : wxFrame(nullptr, wxID_ANY, "Tarveth"), Timer1(this) {
    CreateMenus();
    CreateControls();
    const LayoutBox inside = SizeForBoard(FromDIP(kFirstBoardEdge), Metrics());
    SetMinSize(FromDIP(wxSize(kSmallestWidth, kSmallestHeight)));
    SetClientSize(inside.width, inside.height);
    surface->Bind(wxEVT_SIZE, &frmMain::OnSize, this);
    Bind(wxEVT_MOVE, &frmMain::OnMove, this);
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
    SetMenuBar(menu.bar);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, mnuFileExit);
    Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
        parts_->mouse.ReleaseCursorZone(); // from here on the menu hears when the key is let go
        if (event.GetMenu() == mnuOptions)
            CheckBoardVariant();
        event.Skip();
    });
}

wxStaticText* frmMain::NewLabel(const wxString& text) {
    return new wxStaticText(surface, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE);
}

void frmMain::CreateControls() {
    surface = new wxPanel(this);
    picDisplay = new BoardView(surface);
    picDisplayJail = new PictureView(surface);
    Label1[0] = NewLabel("Turn:");
    Label1[1] = NewLabel("Next:");
    lblCurPlayer = NewLabel();
    lblCurPlayer->SetFont(GetFont().Scaled(1.5F).Bold());
    lblMoveStatus = NewLabel();
    lblMoveStatus->SetFont(GetFont().Bold());
    lblMessage = NewLabel();
    const auto line = [this](long style) {
        return new wxStaticLine(surface, wxID_ANY, wxDefaultPosition, wxDefaultSize, style);
    };
    linLeft = line(wxLI_VERTICAL);
    linRight = line(wxLI_VERTICAL);
    linTop = line(wxLI_HORIZONTAL);
    linBottom = line(wxLI_HORIZONTAL);
    Line1 = line(wxLI_HORIZONTAL);
}

// Sixteen labels and a list cost a tenth of the start, so they are made when they are first shown.
void frmMain::CreateGridLabels() {
    for (std::size_t i = 0; i < 8; ++i) {
        lblGrid[i] = NewLabel(wxString(static_cast<char>('A' + i)));
        lblGrid[i + 8] = NewLabel(wxString(static_cast<char>('1' + i)));
    }
    for (std::size_t i = 0; i < lblGrid.size(); ++i)
        NameControl(lblGrid[i], "lblGrid(" + std::to_string(i) + ')', i < 8 ? "Row" : "Column");
}

void frmMain::CreateHistory() {
    lstHistory = new wxListBox(surface, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                               wxLB_SINGLE | wxLB_NEEDED_SB);
    NameControl(lstHistory, "lstHistory", "Move history");
    ShowHistory();
}

void frmMain::NameControls() {
    NameControl(picDisplay, "picDisplay", "Board");
    NameControl(picDisplayJail, "picDisplayJail", "Jail");
    NameControl(lblCurPlayer, "lblCurPlayer", "Player to move");
    NameControl(lblMoveStatus, "lblMoveStatus", "What to do next");
    NameControl(lblMessage, "lblMessage", "Message");
    NameControl(Label1[0], "Label1(0)", "Caption");
    NameControl(Label1[1], "Label1(1)", "Caption");
}

void frmMain::Connect(const MainWindowParts& parts) {
    parts_ = std::make_unique<MainWindowParts>(parts);
    picDisplay->Connect(parts.board, parts.mouse);
    for (const auto& [item, command] : parts_->commands) {
        GetMenuBar()->Enable(item, true);
        Bind(
            wxEVT_MENU, [this, run = command](wxCommandEvent&) { parts_->main.RunCommand(run); }, item);
    }
    TakeThemeColours();
    ApplyDisplaySettings();
    picDisplay->SetFocus();
    CallAfter([this] { NameControls(); }); // nobody reads them before the window is there
}

// In a dark theme the side's pure colour would be lost on its ground, so the player's name keeps a light one.
void frmMain::TakeThemeColours() {
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    lblCurPlayer->SetBackgroundColour(ground.GetLuminance() < 0.5 ? *wxWHITE : wxColour());
    if (!parts_)
        return;
    parts_->board.picJail.BackColor = Rgb(ground.Red(), ground.Green(), ground.Blue());
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

LayoutMetrics frmMain::Metrics() const {
    const wxSize letter = lblMessage->GetTextExtent("M");
    LayoutMetrics metrics;
    metrics.margin = FromDIP(metrics.margin);
    metrics.gap = FromDIP(metrics.gap);
    if (parts_ && parts_->settings.GridLabels != 0) {
        metrics.gridWidth = letter.x + FromDIP(8);
        metrics.gridHeight = letter.y + FromDIP(2);
    }
    metrics.rowHeight = letter.y + FromDIP(4);
    metrics.playerHeight = lblCurPlayer->GetTextExtent("M").y + FromDIP(4);
    metrics.captionWidth = std::max(lblMessage->GetTextExtent(Label1[0]->GetLabel()).x,
                                    lblMessage->GetTextExtent(Label1[1]->GetLabel()).x) +
                           FromDIP(10);
    metrics.sideWidth = std::max(FromDIP(metrics.sideWidth), lblMessage->GetCharWidth() * 22);
    // Room for the longest message; broken between words, it takes about a sixth more than its length.
    metrics.messageLines = lblMessage->GetTextExtent(ToWx(kToBeginPlay)).x * 7 / 6 / metrics.sideWidth + 1;
    return metrics;
}

void frmMain::LayOut() {
    const wxSize inside = surface->GetClientSize();
    const MainLayout layout = LayOutMainWindow(inside.x, inside.y, Metrics());
    Place(picDisplay, layout.display);
    Place(picDisplayJail, layout.displayJail);
    for (std::size_t i = 0; i < lblGrid.size() && lblGrid[i] != nullptr; ++i)
        CentreLabel(lblGrid[i], layout.grid[i]);
    PlaceLine(Label1[0], layout.playerCaption);
    PlaceLine(lblCurPlayer, layout.player);
    // No wider than its text, so that a ground of its own stays a small patch.
    lblCurPlayer->SetSize(lblCurPlayer->GetTextExtent("Blue ").x, wxDefaultCoord);
    PlaceLine(Label1[1], layout.statusCaption);
    PlaceLine(lblMoveStatus, layout.status);
    Place(lblMessage, layout.message);
    Place(Line1, layout.separator);
    if (lstHistory != nullptr)
        Place(lstHistory, layout.history);
    const LayoutBox& board = layout.display;
    Place(linLeft, {board.x - kFrameLine, board.y, kFrameLine, board.height});
    Place(linRight, {board.Right(), board.y, kFrameLine, board.height});
    Place(linTop, {board.x, board.y - kFrameLine, board.width, kFrameLine});
    Place(linBottom, {board.x, board.Bottom(), board.width, kFrameLine});
    const double scale = GetContentScaleFactor();
    parts_->board.SetDisplaySize(static_cast<int>(std::lround(board.width * scale)),
                                 static_cast<int>(std::lround(layout.displayJail.height * scale)));
}

void frmMain::ApplyDisplaySettings() {
    ShowGridLabels();
    const bool history = parts_->settings.History != 0;
    if (history && lstHistory == nullptr)
        CreateHistory();
    if (lstHistory != nullptr)
        lstHistory->Show(history);
    Line1->Show(history);
    LayOut();
}

void frmMain::ShowGridLabels() {
    const bool visible = parts_->settings.GridLabels != 0;
    if (visible && lblGrid[0] == nullptr)
        CreateGridLabels();
    if (lblGrid[0] != nullptr)
        for (wxStaticText* label : lblGrid)
            label->Show(visible);
}

void frmMain::CheckBoardVariant() {
    mnuOptions->Check(parts_->settings.BoardVariant == kImperialBoard ? mnuOptionsImperial : mnuOptionsDraume,
                      true);
}

void frmMain::ShowMessage(std::string_view text) {
    lblMessage->SetLabelText(ToWx(text));
}

void frmMain::ShowPrompt(std::string_view text) {
    lblMoveStatus->SetLabelText(ToWx(text));
}

void frmMain::ShowPlayer(std::string_view text, std::uint32_t colour) {
    lblCurPlayer->SetForegroundColour(wxColour(colour));
    lblCurPlayer->SetLabelText(ToWx(text));
}

void frmMain::ShowCaption(std::string_view text) {
    SetTitle(ToWx(text));
}

void frmMain::ShowMarker(bool visible) {
    parts_->board.ShowMarker(visible);
}

void frmMain::ShowHistory() {
    if (lstHistory == nullptr)
        return;
    const std::vector<std::string>& lines = parts_->game.lstHistory;
    if (lines.size() == lstHistory->GetCount() + 1) { // one more line than a moment ago
        lstHistory->Append(ToWx(lines.back()));
    } else {
        wxArrayString all;
        for (const std::string& line : lines)
            all.Add(ToWx(line));
        lstHistory->Set(all);
    }
    if (!lines.empty()) {
        lstHistory->SetSelection(static_cast<int>(lines.size()) - 1);
        lstHistory->EnsureVisible(static_cast<int>(lines.size()) - 1);
    }
}

void frmMain::Beep() {
    wxBell();
}

void frmMain::ShowMessageBox(std::string_view text) {
    wxMessageBox(ToWx(text), "Tarveth", wxOK, this);
}

void frmMain::GameEndSound(bool localPlayerWon) {
    parts_->gameEndSound(localPlayerWon);
}

int frmMain::ChooseReturn(std::int16_t side) {
    frmReturn dialog(this);
    dialog.PicSize = parts_->pictures.SquareSize;
    dialog.SetPictures(*parts_->pictures.Of(side, Officer), *parts_->pictures.Of(side, Pawn));
    dialog.SetSize();
    dialog.ShowModal();
    return dialog.Choice();
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
    wxEventLoopBase::GetActive()->Dispatch();
}

WindowPosition frmMain::Position() const {
    const wxRect place = normalPlace_.IsEmpty() ? GetRect() : normalPlace_;
    const wxPoint corner = ToDIP(place.GetPosition());
    const wxSize size = ToDIP(place.GetSize());
    const auto twips = [](int pixels) { return static_cast<float>(pixels * kTwipsPerPixelX); };
    return {twips(corner.x), twips(corner.y), twips(size.x), twips(size.y)};
}

void frmMain::SetPosition(const WindowPosition& position) {
    const auto pixels = [](float twips) { return static_cast<int>(std::lround(twips / kTwipsPerPixelX)); };
    const wxPoint corner = FromDIP(wxPoint(pixels(position.Left), pixels(position.Top)));
    SetSize(wxRect(corner, FromDIP(wxSize(pixels(position.Width), pixels(position.Height)))));
}

void frmMain::ShowAt(const WindowPosition& position) {
    SetPosition(position);
    const wxPoint corner = GetPosition();
    Show();
    platform::PlaceAtFirstShow(GetHandle(), corner.x, corner.y);
}

void frmMain::RememberPosition() {
    if (IsShown() && !IsMaximized() && !IsIconized() && !IsFullScreen())
        normalPlace_ = GetRect();
}

void frmMain::OnSize(wxSizeEvent& event) {
    if (parts_)
        LayOut();
    RememberPosition();
    event.Skip();
}

void frmMain::OnMove(wxMoveEvent& event) {
    RememberPosition();
    event.Skip();
}

void frmMain::OnIdle(wxIdleEvent& event) {
    if (parts_)
        parts_->main.RunPasses(); // after every event, so that what a command did is judged as well
    event.Skip();
}

void frmMain::OnClose(wxCloseEvent& event) {
    if (parts_->main.Busy() && event.CanVeto()) { // a piece is on its way: it arrives first
        event.Veto();
        parts_->main.RunCommand([this] { Close(true); }); // the command itself keeps it busy
        return;
    }
    RememberPosition();
    parts_->saveSettings(Position());
    Timer1.Stop();
    parts_->main.SetGameState(kReset);
    event.Skip(); // destroys the window, and with the last one the program ends
}

} // namespace tarveth
