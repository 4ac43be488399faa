// Creates the controls of the main window and places them.
#include "display/wx/frmMain.h"

#include "display/wx/BoardView.h"
#include "display/wx/GameBar.h"
#include "display/wx/HistoryList.h"
#include "display/wx/NameControl.h"
#include "display/wx/text.h"

#include <algorithm>
#include <cmath>

#include <wx/panel.h>
#include <wx/statline.h>
#include <wx/stattext.h>

namespace tarveth {

namespace {

constexpr int kFrameLine = 1;

void Place(wxWindow* window, const LayoutBox& box) {
    window->SetSize(box.x, box.y, box.width, box.height);
}

// Places a label in the middle of its box.
void CentreLabel(wxStaticText* label, const LayoutBox& box) {
    const wxSize text = label->GetTextExtent(label->GetLabel());
    label->SetSize(box.x + (box.width - text.x) / 2, box.y + (box.height - text.y) / 2, text.x, text.y);
}

// Places a label in the middle of its box's height, as wide as the box.
void PlaceLine(wxStaticText* label, const LayoutBox& box) {
    const int height = label->GetTextExtent("M").y;
    label->SetSize(box.x, box.y + (box.height - height) / 2, box.width, height);
}

} // namespace

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
    lblAsked = NewLabel();
    lblAsked->SetFont(GetFont().Scaled(1.15F).Bold());
    lblTold = NewLabel();
    lblTold->SetWindowStyle(lblTold->GetWindowStyle() | wxST_ELLIPSIZE_END);
    const auto line = [this](long style) {
        return new wxStaticLine(surface, wxID_ANY, wxDefaultPosition, wxDefaultSize, style);
    };
    linLeft = line(wxLI_VERTICAL);
    linRight = line(wxLI_VERTICAL);
    linTop = line(wxLI_HORIZONTAL);
    linBottom = line(wxLI_HORIZONTAL);
    Line1 = line(wxLI_HORIZONTAL);
}

// The grid labels and the history list are created when they are first shown, since creating them takes a
// tenth of the start-up time.
void frmMain::CreateGridLabels() {
    for (std::size_t i = 0; i < 8; ++i) {
        lblGrid[i] = NewLabel(wxString(static_cast<char>('A' + i)));
        lblGrid[i + 8] = NewLabel(wxString(static_cast<char>('1' + i)));
    }
    for (std::size_t i = 0; i < lblGrid.size(); ++i)
        NameControl(lblGrid[i], "lblGrid(" + std::to_string(i) + ')', i < 8 ? "Row" : "Column");
}

void frmMain::CreateHistory() {
    lstHistory = new HistoryList(surface);
    NameControl(lstHistory, "lstHistory", "Move history");
    ShowHistory();
}

void frmMain::ShowBar(const BarLine& line) {
    if (line.text.empty() && bar == nullptr)
        return;
    if (bar == nullptr)
        bar = new GameBar(surface, [this](BarChoice choice) {
            picDisplay->SetFocus(); // the keys go to the board again
            parts_->main.RunCommand([this, choice] { parts_->chooseInBar(choice); });
        });
    bar->ShowLine(line);
    LayOut();
}

void frmMain::NameControls() {
    NameControl(picDisplay, "picDisplay", "Board");
    NameControl(picDisplayJail, "picDisplayJail", "Jail");
    NameControl(lblCurPlayer, "lblCurPlayer", "Player to move");
    NameControl(lblMoveStatus, "lblMoveStatus", "What to do next");
    NameControl(lblMessage, "lblMessage", "Message");
    NameControl(lblAsked, "lblAsked", "What is asked");
    NameControl(lblTold, "lblTold", "Message");
    NameControl(Label1[0], "Label1(0)", "Caption");
    NameControl(Label1[1], "Label1(1)", "Caption");
}

LayoutMetrics frmMain::Metrics() const {
    const wxSize letter = lblMessage->GetTextExtent("M");
    LayoutMetrics metrics;
    metrics.margin = FromDIP(metrics.margin);
    metrics.gap = FromDIP(metrics.gap);
    if (parts_ && parts_->settings.ShowsGridLabels()) {
        metrics.gridWidth = letter.x + FromDIP(8);
        metrics.gridHeight = letter.y + FromDIP(2);
    }
    metrics.rowHeight = letter.y + FromDIP(4);
    metrics.askedHeight = lblAsked->GetTextExtent("M").y + FromDIP(2);
    metrics.historyWidth = std::max(FromDIP(metrics.historyWidth), lblMessage->GetCharWidth() * 28);
    metrics.playerHeight = lblCurPlayer->GetTextExtent("M").y + FromDIP(4);
    metrics.captionWidth = std::max(lblMessage->GetTextExtent(Label1[0]->GetLabel()).x,
                                    lblMessage->GetTextExtent(Label1[1]->GetLabel()).x) +
                           FromDIP(10);
    metrics.sideWidth = std::max(FromDIP(metrics.sideWidth), lblMessage->GetCharWidth() * 22);
    // The longest message must fit; breaking it between words takes about a sixth more than its length.
    metrics.messageLines = lblMessage->GetTextExtent(ToWx(kToBeginPlay)).x * 7 / 6 / metrics.sideWidth + 1;
    return metrics;
}

void frmMain::LayOut() {
    const wxSize inside = surface->GetClientSize();
    LayoutMetrics metrics = Metrics();
    if (bar != nullptr && bar->IsShown())
        metrics.barHeight = bar->HeightAt(inside.x);
    const MainLayout layout = LayOutMainWindow(inside.x, inside.y, metrics);
    if (bar != nullptr)
        Place(bar, layout.bar);
    Place(picDisplay, layout.display);
    Place(picDisplayJail, layout.displayJail);
    for (std::size_t i = 0; i < lblGrid.size() && lblGrid[i] != nullptr; ++i)
        CentreLabel(lblGrid[i], layout.grid[i]);
    PlaceLine(Label1[0], layout.playerCaption);
    PlaceLine(lblCurPlayer, layout.player);
    // As wide as its text, since in a dark theme it has a light background.
    lblCurPlayer->SetSize(lblCurPlayer->GetTextExtent("Blue ").x, wxDefaultCoord);
    PlaceLine(Label1[1], layout.statusCaption);
    PlaceLine(lblMoveStatus, layout.status);
    Place(lblMessage, layout.message);
    Place(lblAsked, layout.asked);
    lblTold->Show(layout.jailBelow);
    Place(lblTold, layout.told);
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
                                 static_cast<int>(std::lround(layout.displayJail.height * scale)),
                                 static_cast<int>(std::lround(layout.displayJail.width * scale)));
}

void frmMain::ApplyDisplaySettings() {
    CheckViewSwitches();
    ShowGridLabels();
    const bool history = parts_->settings.ShowsHistory();
    if (history && lstHistory == nullptr)
        CreateHistory();
    if (lstHistory != nullptr)
        lstHistory->Show(history);
    Line1->Show(history);
    LayOut();
    RefreshDisplay();
}

void frmMain::ShowGridLabels() {
    const bool visible = parts_->settings.ShowsGridLabels();
    if (visible && lblGrid[0] == nullptr)
        CreateGridLabels();
    if (lblGrid[0] != nullptr)
        for (wxStaticText* label : lblGrid)
            label->Show(visible);
}

} // namespace tarveth
