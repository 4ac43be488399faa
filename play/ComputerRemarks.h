// What there is to say about the games against the computer, beside what is asked: that one leads nowhere,
// and that another level might suit the player better.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarveth {

struct Game;

class ComputerRemarks {
public:
    // So many turns of both sides without a capture are worth a word, and so are as many more.
    static constexpr std::size_t kTurnsWithoutCapture = 60;
    // So many games won or lost in a row are worth another level.
    static constexpr int kGamesInARow = 3;

    // To be called whenever the game may have changed. `playerSide` is played by the user against the
    // computer, on this level; NoSide where no side is.
    void Watch(const Game& game, std::int16_t playerSide, int level, std::size_t turnsSinceCapture);

    // Gives the sentence; empty when there is nothing to say.
    const std::string& Text() const { return text_; }

private:
    void CountGame(std::int16_t winner, std::int16_t playerSide);
    std::string SuggestLevel(int level);

    int wonInARow_ = 0; // by the player; negative where the computer has won them
    bool overSeen_ = false;
    std::string text_;
};

} // namespace tarveth
