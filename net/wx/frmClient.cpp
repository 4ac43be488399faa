#include "net/wx/frmClient.h"

#include "net/AsyncSocket.h"
#include "net/wx/JoinQuestion.h"
#include "net/wx/Transcript.h"
#include "net/wx/UserListView.h"
#include "net/wx/frmClientMenu.h"
#include "net/wx/frmEnterIP.h"
#include "net/wx/frmWait.h"
#include "net/wx/wiretext.h"

#include <utility>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>
#include <wx/textdlg.h>
#include <wx/tglbtn.h>
#include <wx/weakref.h>

namespace tarveth {

namespace {

constexpr std::size_t kGeneral = 0;
constexpr std::size_t kPrivate = 1;

// On this thread, and the program wakes up for it. Some systems' toolkit then waits for the next message
// without being idle once, and what has come in would not be played until the mouse moves.
void PostToWindows(const std::function<void()>& call) {
    wxTheApp->CallAfter([call] {
        call();
        wxWakeUpIdle();
    });
}

} // namespace

frmClient::frmClient(const ClientWindowParts& parts)
    : PlacedFrame("Tarveth TCP/IP Client"), parts_(parts), AsyncSocket1(CreateAsyncSocket(PostToWindows)) {
    CreateMenus();
    CreateControls();
    ApplySettings();
    ShowInGame(false);
    ShowPrivateMode(false);
    Bind(wxEVT_MENU_OPEN, &frmClient::OnMenuOpen, this);
    Bind(wxEVT_CLOSE_WINDOW, &frmClient::OnClose, this);
    Bind(wxEVT_IDLE, &frmClient::OnIdle, this);
    chatTimer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { parts_.network.ShowKeptText(); });
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        LimitSize();
        event.Skip();
    });
}

frmClient::~frmClient() = default;

void frmClient::CreateMenus() {
    const ClientMenu menu = CreateClientMenu();
    mnuActions = menu.mnuActions;
    mnuView = menu.mnuView;
    SetMenuBar(menu.bar);
    BindAction(mnuClientFileExit, [this] { Close(); });
    BindAction(mnuActionsInvite, [this] { parts_.network.Invite(); });
    BindAction(mnuActionsBreak, [this] { parts_.network.Break(); });
    BindAction(mnuActionsNickname, [this] { parts_.network.ChangeNickname(); });
    BindAction(mnuActionsSwap, [this] { parts_.network.Swap(); });
    BindAction(mnuActionsClearTranscript, [this] { txtRX[kGeneral]->ClearLines(); });
    BindAction(mnuActionsClearPrivateTranscript, [this] { txtRX[kPrivate]->ClearLines(); });
    BindAction(mnuViewTranscript, [this] { parts_.network.SetPrivateMode(false); });
    BindAction(mnuViewTranscriptPrivate, [this] { parts_.network.SetPrivateMode(true); });
}

void frmClient::BindAction(int item, std::function<void()> action) {
    Bind(
        wxEVT_MENU, [run = std::move(action)](wxCommandEvent&) { run(); }, item);
}

void frmClient::Load() {
    ShowPlaced(parts_.loadPosition);
    FocusInput();
    parts_.network.Open(*this, *this, *AsyncSocket1);
}

void frmClient::ApplySettings() {
    for (Transcript* transcript : txtRX)
        transcript->ApplySettings(parts_.settings);
    lstUsers->SetFont(UserFont(parts_.settings.UserListFontName, parts_.settings.UserListFontSize));
    txtTX->SetFont(UserFont(parts_.settings.ChatTextFontName, parts_.settings.ChatTextFontSize));
    LayOut();
}

std::string frmClient::TranscriptText() const {
    return txtRX[kGeneral]->Text();
}

void frmClient::ShowCaption(std::string_view text) {
    SetTitle(WxFromWire(text));
}

void frmClient::ShowLine(std::string_view text, LineKind kind) {
    txtRX[kGeneral]->AddLine(text, kind);
    if (kind != LineKind::Others)
        txtRX[kPrivate]->AddLine(text, kind);
}

void frmClient::ShowInGame(bool inGame) {
    inGame_ = inGame;
    EnableLinkButtons();
}

void frmClient::ShowInviting(bool inviting) {
    inviting_ = inviting;
    EnableLinkButtons();
}

void frmClient::EnableLinkButtons() {
    const bool mayBreak = inGame_ || inviting_;
    if ((inGame_ && btnInvite->HasFocus()) || (!mayBreak && btnBreak->HasFocus()))
        FocusInput(); // or no key would reach the window any more
    btnInvite->Enable(!inGame_);
    btnBreak->Enable(mayBreak);
}

void frmClient::ShowJoinQuestion(std::string_view text) {
    if (text.empty()) {
        if (joinQuestion_ != nullptr)
            std::exchange(joinQuestion_, nullptr)->Destroy();
        return;
    }
    if (joinQuestion_ == nullptr)
        joinQuestion_ = new JoinQuestion(this, [this](bool yes) {
            std::exchange(joinQuestion_, nullptr)->Destroy();
            parts_.network.AnswerInvitation(yes);
        });
    joinQuestion_->Ask(WxFromWire(text));
}

void frmClient::StartChatTimer(std::chrono::milliseconds time) {
    chatTimer_.StartOnce(static_cast<int>(time.count()));
}

void frmClient::ShowPrivateMode(bool privateMode) {
    btnP->SetValue(privateMode);
    txtRX[kGeneral]->Show(!privateMode);
    txtRX[kPrivate]->Show(privateMode);
    lblRX->SetLabelText(privateMode ? "Transcript: (private mode)" : "Transcript:");
    lblTX->SetLabelText(privateMode ? "Messages you type will be seen only by your opponent!"
                                    : "Type a short message then press Enter to send it");
    surface->Layout();
}

void frmClient::ShowWaiting(bool waiting) {
    wait_ = waiting ? std::make_unique<frmWait>(this) : nullptr;
    if (wait_)
        wait_->Show();
}

void frmClient::FocusInput() {
    txtTX->SetFocus();
    txtTX->SetInsertionPointEnd(); // what is written already is not selected, where the next key would
                                   // replace it
}

void frmClient::Unload() {
    CallAfter([this] { Close(); });
}

void frmClient::ShowMessageBox(std::string_view text, std::string_view title, BoxIcon icon) {
    const long style = icon == BoxIcon::Critical ? wxOK | wxICON_ERROR : wxOK;
    wxMessageBox(WxFromWire(text), title.empty() ? "Tarveth" : WxFromWire(title), style, this);
}

bool frmClient::AskYesNo(std::string_view text, std::string_view title) {
    return wxMessageBox(WxFromWire(text), WxFromWire(title), wxYES_NO | wxNO_DEFAULT, this) == wxYES;
}

std::string frmClient::AskServer() {
    frmEnterIP dialog(this, parts_.folders);
    return dialog.ShowModal() == wxID_OK ? dialog.Address() : std::string();
}

std::optional<std::string> frmClient::AskText(std::string_view prompt, std::string_view title,
                                              std::string_view proposal) {
    wxTextEntryDialog dialog(this, WxFromWire(prompt), WxFromWire(title), WxFromWire(proposal));
    if (dialog.ShowModal() != wxID_OK)
        return std::nullopt;
    return WireFromWx(dialog.GetValue());
}

// Enter is used up even where there is nothing to send.
void frmClient::EnterLine() {
    const std::string line = WireFromWx(txtTX->GetValue());
    if (line.empty())
        return;
    parts_.network.EnterLine(line);
    txtTX->Clear();
}

void frmClient::OnMenuOpen(wxMenuEvent& event) {
    if (event.GetMenu() == mnuActions) {
        const bool busy = parts_.network.GameLinkState() != kLinkIdle;
        mnuActions->Enable(mnuActionsBreak, busy);
        mnuActions->Enable(mnuActionsSwap, busy);
    } else if (event.GetMenu() == mnuView) {
        mnuView->Check(mnuViewTranscript, !parts_.network.PrivateMode());
        mnuView->Check(mnuViewTranscriptPrivate, parts_.network.PrivateMode());
    }
    event.Skip();
}

// Whatever has come in meanwhile is shown at once.
void frmClient::OnIdle(wxIdleEvent& event) {
    for (Transcript* transcript : txtRX)
        transcript->ShowUpdate();
    if (std::exchange(usersChanged_, false))
        lstUsers->ShowUsers(parts_.network.Users());
    event.Skip();
}

void frmClient::OnClose(wxCloseEvent& event) {
    if (parts_.main.Busy() && event.CanVeto()) { // a piece is on its way: it arrives first
        event.Veto();
        parts_.main.RunCommand([window = wxWeakRef<frmClient>(this)] {
            if (window)
                window->Close(true);
        });
        return;
    }
    if (parts_.network.IsOpen()) {
        parts_.savePosition(Position());
        parts_.network.Close();
    }
    event.Skip(); // destroys the window
}

} // namespace tarveth
