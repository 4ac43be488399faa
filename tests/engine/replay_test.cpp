// Whole games by seeded clicks, hashed into one number that is the same on every system. It changes only when
// the rules, the notation or the format of saved games change; a commit that changes it says why.
#include "storage/modFileIO.h"
#include "tests/engine/CheckedPlay.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

constexpr std::uint64_t kSignature = 10508056561660194386U;

// FNV-1a, 64 bits
class Fold {
public:
    void Add(std::string_view bytes) {
        for (const char byte : bytes)
            value_ = (value_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    std::uint64_t Value() const { return value_; }

private:
    std::uint64_t value_ = 0xCBF29CE484222325U;
};

} // namespace

TEST(Replay, SeededClicksThroughWholeGamesGiveTheSignature) {
    Fold fold;
    for (const std::int16_t variant : {kImperialBoard, kDraumeCrownBoard}) {
        CheckedPlay play(variant, 4711);
        for (int game = 0; game < 10; ++game) {
            play.ClickThroughGame(50'000);
            fold.Add(GameText(play.Board(), ""));
            fold.Add(play.Board().VictoryText);
        }
    }
    EXPECT_EQ(fold.Value(), kSignature);
}

} // namespace tarveth::test
