// What network play asks of the client window and of the person in front of it. Texts are bytes in the wire's
// code page, windows-1252.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarveth {

// Whose line it is in the transcripts; it has that colour.
enum class LineKind : std::int16_t { Others = 0, Mine = 1, Opponent = 2, Notice = 3 };

// What the window shows. Nothing here blocks.
struct ClientWindowPort {
    virtual ~ClientWindowPort() = default;
    virtual void ShowCaption(std::string_view text) = 0;
    // At the end of the general transcript and, unless it is another user's, of the private one.
    virtual void ShowLine(std::string_view text, LineKind kind) = 0;
    virtual void ShowUsers() = 0;                       // lstUsers: entries or selection have changed
    virtual void ShowInGame(bool inGame) = 0;           // btnInvite and btnBreak: one enabled, one not
    virtual void ShowInviting(bool inviting) = 0;       // without a game: btnBreak withdraws an invitation
    virtual void ShowPrivateMode(bool privateMode) = 0; // which transcript, lblRX, lblTX
    virtual void ShowWaiting(bool waiting) = 0;         // frmWait
    virtual void FocusInput() = 0;                      // txtTX
    // The question whether to join a game, with No by default; the answer is given to
    // modClient::AnswerInvitation. While it is open, another text takes the place of its own. An empty text
    // closes it without an answer.
    virtual void ShowJoinQuestion(std::string_view text) = 0;
    // Calls modClient::ShowKeptText once after that time, and not at the end of an earlier one.
    virtual void StartChatTimer(std::chrono::milliseconds time) = 0;
    virtual void Unload() = 0; // closes the window as soon as the event being handled is over
};

enum class BoxIcon { None, Critical };

// What the person is asked or told. All block until answered; events are handled meanwhile.
struct ClientPersonPort {
    virtual ~ClientPersonPort() = default;
    // A message box with an OK button; an empty title is the program's own.
    virtual void ShowMessageBox(std::string_view text, std::string_view title, BoxIcon icon) = 0;
    virtual bool AskYesNo(std::string_view text, std::string_view title) = 0; // No by default
    // frmEnterIP: the trimmed address, empty when it was cancelled.
    virtual std::string AskServer() = 0;
    // An input box; nothing when it was cancelled.
    virtual std::optional<std::string> AskText(std::string_view prompt, std::string_view title,
                                               std::string_view proposal) = 0;
};

} // namespace tarveth
