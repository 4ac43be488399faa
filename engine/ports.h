// What the game asks of the world outside it. The windows implement these; tests write down what was asked.
// Nothing here blocks except where it says so.
#pragma once

#include "engine/rules/modPieces.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarveth {

// The labels and the list of the main window.
struct MainWindowPort {
    virtual ~MainWindowPort() = default;
    virtual void ShowMessage(std::string_view text) = 0;                      // lblMessage
    virtual void ShowPrompt(std::string_view text) = 0;                       // lblMoveStatus
    virtual void ShowPlayer(std::string_view text, std::uint32_t colour) = 0; // lblCurPlayer
    // Label1(1): in the colour of the side that is played at this screen; in the window's own for NoSide.
    virtual void ShowLocalSide(std::int16_t side) = 0;
    virtual void ShowCaption(std::string_view text) = 0; // the window's title
    virtual void ShowMarker(bool visible) = 0;           // Shape1
    virtual void ShowHistory() = 0; // lstHistory has changed; the newest line is to be selected
};

// The playing surface.
struct BoardPort {
    virtual ~BoardPort() = default;
    virtual void RedrawBoard() = 0;
    // Glides a piece towards a square and comes back when it has arrived; events are handled meanwhile.
    virtual void AnimateMove(int index, Square to) = 0;
    // Lets a running animation reach its end at once.
    virtual void FinishAnimation() = 0;
};

// The person at the screen.
struct PersonPort {
    virtual ~PersonPort() = default;
    virtual void Beep() = 0;
    // A message box with an OK button. Blocks until it is closed; events are handled meanwhile.
    virtual void ShowMessageBox(std::string_view text) = 0;
    virtual void GameEndSound(bool localPlayerWon) = 0;
    // Which piece comes back to `side`, an Officer or a Pawn. Blocks until chosen; events are handled
    // meanwhile.
    virtual PieceKind ChooseReturn(std::int16_t side) = 0;
};

// The record of the game: its lines, in the game's history, and the files that keep them.
struct RecordPort {
    virtual ~RecordPort() = default;
    // Each adds one line. For a piece that has just moved; for the piece it took; for the piece that Return
    // names and that has come back to a square.
    virtual void RecordMove(int index) = 0;
    virtual void RecordCapture(int mover, int captured) = 0;
    virtual void RecordReturn(Square square) = 0;
    // Writes the log of the game so far, if the settings ask for it, and forgets the game's file name.
    virtual void BeginNewRecord() = 0;
    // The same for a board from the opponent. A game without a move leaves no log: it may have begun just for
    // this board, and the log of the one before is written already.
    virtual void BeginReceivedRecord() = 0;
};

// The opponent's program.
struct NetworkPort {
    virtual ~NetworkPort() = default;
    virtual void SendGameMessage(std::string_view inner) = 0;
    virtual void SendBoard() = 0;
    virtual void AnnounceVictory(bool blueWon) = 0;         // tells the lobby
    virtual void ShowNotice(std::string_view text) = 0;     // a line in the transcript
    virtual std::string OpponentNick() const { return {}; } // empty while there is no opponent
};

struct Ports {
    MainWindowPort& window;
    BoardPort& board;
    PersonPort& person;
    RecordPort& record;
    NetworkPort& network;
};

} // namespace tarveth
