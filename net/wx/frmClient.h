// The client window of network play: who is there, what is said, and the line to say something. What its
// controls do is modClient's; it owns the socket to the server.
#pragma once

#include "display/wx/PlacedFrame.h"
#include "net/modClient.h"
#include "storage/settings.h"

#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <wx/timer.h>

class wxButton;
class wxMenu;
class wxStaticLine;
class wxStaticText;
class wxTextCtrl;
class wxToggleButton;

namespace tarveth {

class JoinQuestion;
class frmWait;
class Transcript;
class UserListView;

// What the window works on; all of it outlives the window.
struct ClientWindowParts {
    modClient& network;
    modMAIN& main;
    const Settings& settings;
    std::vector<std::string> folders;                        // where servers.txt is looked up
    std::function<void(WindowPosition&)> loadPosition;       // as far as it is known
    std::function<void(const WindowPosition&)> savePosition; // at the close
};

class frmClient : public PlacedFrame, public ClientWindowPort, public ClientPersonPort {
public:
    explicit frmClient(const ClientWindowParts& parts);
    ~frmClient() override;

    // Shows the window and connects; comes back when the person has chosen a server.
    void Load();
    // Fonts and colours of the settings, also of what is shown already.
    void ApplySettings();
    // Gives the lines of the general transcript, in the wire's code page.
    std::string TranscriptText() const;

    void ShowCaption(std::string_view text) override;
    void ShowLine(std::string_view text, LineKind kind) override;
    void ShowUsers() override { usersChanged_ = true; }
    void ShowInGame(bool inGame) override;
    void ShowInviting(bool inviting) override;
    void ShowPrivateMode(bool privateMode) override;
    void ShowWaiting(bool waiting) override;
    void FocusInput() override;
    void ShowJoinQuestion(std::string_view text) override;
    void StartChatTimer(std::chrono::milliseconds time) override;
    void Unload() override;

    void ShowMessageBox(std::string_view text, std::string_view title, BoxIcon icon) override;
    bool AskYesNo(std::string_view text, std::string_view title) override;
    std::string AskServer() override;
    std::optional<std::string> AskText(std::string_view prompt, std::string_view title,
                                       std::string_view proposal) override;

private:
    void CreateMenus();
    void CreateControls();
    void CreateTranscripts();
    void CreateUsers();
    void CreateInput();
    void NameControls();
    wxButton* NewButton(const wxString& caption, const wxString& tip, int item);
    wxSizer* NewTranscriptColumn();
    wxSizer* NewUsersColumn();
    wxSizer* NewInputRows();
    void LayOut();
    void LimitSize();

    void EnableLinkButtons();
    void Press(int item);
    void BindAction(int item, std::function<void()> action);
    void EnterLine();
    void OnMenuOpen(wxMenuEvent& event);
    void OnIdle(wxIdleEvent& event);
    void OnClose(wxCloseEvent& event);

    ClientWindowParts parts_;
    std::unique_ptr<AsyncSocket> AsyncSocket1;
    std::unique_ptr<frmWait> wait_;
    JoinQuestion* joinQuestion_ = nullptr; // while it is open
    wxTimer chatTimer_;
    bool usersChanged_ = false;
    bool inGame_ = false;
    bool inviting_ = false;

    wxMenu* mnuActions = nullptr;
    wxMenu* mnuView = nullptr;
    wxWindow* surface = nullptr;        // holds all the controls
    std::array<Transcript*, 2> txtRX{}; // general and private, in the same place
    UserListView* lstUsers = nullptr;
    wxTextCtrl* txtTX = nullptr;
    wxButton* btnInvite = nullptr;
    wxButton* btnBreak = nullptr;
    wxButton* btnNickname = nullptr;
    wxButton* btnExit = nullptr;
    wxToggleButton* btnP = nullptr;
    wxStaticText* lblRX = nullptr;
    wxStaticText* lblUsers = nullptr;
    wxStaticText* lblTX = nullptr;
    wxStaticLine* linHoriz = nullptr;
    wxStaticLine* linVert = nullptr;
};

} // namespace tarveth
