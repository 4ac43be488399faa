// The interfaces through which the game calls windows, files and the network. The windows implement them; in
// tests a recorder does. Calls do not block unless the comment says so.
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

// The picture of the board.
struct BoardPort {
    virtual ~BoardPort() = default;
    virtual void RedrawBoard() = 0;
    // Moves a piece to a square step by step. Blocks until it has arrived; events are handled meanwhile.
    virtual void AnimateMove(int index, Square to) = 0;
    // Finishes a running animation at once.
    virtual void FinishAnimation() = 0;
};

// What the user sees, hears and answers outside the labels and the board.
struct PersonPort {
    virtual ~PersonPort() = default;
    virtual void Beep() = 0;
    // Shows a message box with an OK button. Blocks until it is closed; events are handled meanwhile.
    virtual void ShowMessageBox(std::string_view text) = 0;
    virtual void GameEndSound(bool localPlayerWon) = 0;
    // Asks the user which piece returns to `side`: Officer or Pawn. Blocks until they choose; events are
    // handled meanwhile.
    virtual PieceKind ChooseReturn(std::int16_t side) = 0;
};

// The record of the game: the lines of its history, and the files that keep them.
struct RecordPort {
    virtual ~RecordPort() = default;
    // Each adds one line to the history: for a piece that has just moved, for a capture, and for the piece in
    // Return that has come back to a square.
    virtual void RecordMove(int index) = 0;
    virtual void RecordCapture(int mover, int captured) = 0;
    virtual void RecordReturn(Square square) = 0;
    // Writes the log of the game so far, if the settings ask for it, and forgets the game's file name.
    virtual void BeginNewRecord() = 0;
    // Does the same before a board from the opponent, but writes no log of a game without moves: such a game
    // may have begun just for this board, and the log of the game before it has been written already.
    virtual void BeginReceivedRecord() = 0;
    // Is called before a game from a file takes the place of the one on the board.
    virtual void BeginLoadedRecord() {}
    // Are called when a turn is over and the other side is to move, and when the game has been won.
    virtual void TurnEnded() {}
    virtual void GameEnded() {}
};

// The connection to the opponent's program.
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
