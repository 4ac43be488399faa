#include "app/GameClipboard.h"

#include "display/wx/Clipboard.h"
#include "display/wx/frmMain.h"
#include "engine/rules/writeposition.h"
#include "storage/copypaste.h"
#include "storage/gamefiles.h"

#include <utility>

namespace tarveth {

void GameClipboard::CopyPosition() {
    Copy(PositionText(game_), "The position is copied.");
}

void GameClipboard::CopyGame() {
    if (game_.lstHistory.empty())
        window_.ShowMessage("The game has no move yet that could be copied.");
    else
        Copy(HistoryText(game_), "The moves of the game are copied.");
}

void GameClipboard::Copy(const std::string& text, const std::string& told) {
    window_.ShowMessage(CopyText(text) ? told : "The clipboard cannot be used.");
}

void GameClipboard::PastePosition() {
    if (net_.GameInProgress()) {
        window_.ShowMessage("No position can be pasted into a game over the network.");
        return;
    }
    PastedPosition pasted = ReadPastedPosition(PastedText());
    if (!pasted.game) {
        window_.ShowMessageBox(pasted.refusal);
        return;
    }
    files_.TakeUp(std::move(*pasted.game), "");
    window_.ShowMessage("The position is pasted.");
}

} // namespace tarveth
