// The commands that bring a game to the clipboard and into pictures, and a position back from the clipboard.
#pragma once

#include "engine/NetGame.h"
#include "engine/rules/Game.h"

namespace tarveth {

class GameFiles;
class frmMain;

class GameClipboard {
public:
    // All references outlive the object; `window` does so until the last command.
    GameClipboard(const Game& game, const NetGame& net, GameFiles& files, frmMain& window)
        : game_(game), net_(net), files_(files), window_(window) {}

    void CopyPosition();
    void CopyGame();
    // The game on the board gives way to the position, and is kept aside as for a new game.
    void PastePosition();

private:
    void Copy(const std::string& text, const std::string& told);

    const Game& game_;
    const NetGame& net_;
    GameFiles& files_;
    frmMain& window_;
};

} // namespace tarveth
