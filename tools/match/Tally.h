// Wins, losses and draws, and what they say about strength.
#pragma once

#include <cmath>

namespace tarveth::match {

struct Tally {
    int wins = 0, losses = 0, draws = 0;

    int Games() const { return wins + losses + draws; }
    double Score() const { return Games() == 0 ? 0.5 : (wins + draws / 2.0) / Games(); }

    // Half the width of the interval that holds the true score in 95 of 100 such matches.
    double ScoreError() const {
        if (Games() < 2)
            return 0.5;
        const double score = Score();
        const double variance = (wins * (1 - score) * (1 - score) + losses * score * score +
                                 draws * (0.5 - score) * (0.5 - score)) /
                                Games();
        return 1.96 * std::sqrt(variance / Games());
    }

    // The difference in Elo points at which such a score is expected.
    static double EloOf(double score) {
        constexpr double least = 1e-3;
        score = std::fmin(std::fmax(score, least), 1 - least);
        return -400 * std::log10(1 / score - 1);
    }
};

} // namespace tarveth::match
