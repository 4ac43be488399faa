// The sentence that says what an advised turn is good for.
#include "computer/GameRecord.h"
#include "computer/Player.h"
#include "computer/positionline.h"
#include "engine/rules/positiontext.h"
#include "play/hint.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

// What a search of so many nodes finds.
std::string HintFor(const std::string& position) {
    constexpr std::uint64_t kNodes = 30'000;
    Game game;
    SetPosition(game, position);
    const computer::GameRecord record(game);
    computer::SearchPosition passed = record.Position();
    passed.Pass();
    computer::Player player(6);
    HintFindings found;
    found.best = player.Choose(record.Position(), {}, {.time = {}, .nodes = kNodes});
    found.threat = player.Choose(passed, {}, {.time = {}, .nodes = kNodes});
    return HintSentence(record.Position(), found);
}

// What a search is said to have found.
struct Finding {
    std::vector<std::string_view> line = {}; // the advised turn first
    int value = 0;
    std::string_view threat = {}; // what the opponent would play if it were their turn; empty for nothing
    int threatValue = 0;
};

std::string SentenceFor(const std::string& position, const Finding& finding) {
    Game game;
    SetPosition(game, position);
    const computer::GameRecord record(game);
    HintFindings found;
    computer::SearchPosition at = record.Position();
    for (const std::string_view text : finding.line) {
        const computer::SearchTurn turn = computer::FindTurn(at.Rules(), text);
        if (turn.IsNone())
            return std::string(text) + " is not legal";
        found.best.line.push_back(turn);
        at.Play(turn);
    }
    found.best.turn = found.best.line.front();
    found.best.value = finding.value;
    computer::SearchPosition passed = record.Position();
    passed.Pass();
    found.threat.turn = computer::FindTurn(passed.Rules(), finding.threat);
    found.threat.value = finding.threatValue;
    return HintSentence(record.Position(), found);
}

constexpr const char* kEnding = "turn B|BM 1A|BO 4D|BP 8H|RM 8A|RO 4E|RP 1H|jail BM RM";

TEST(Hint, TellsOfAWin) {
    EXPECT_EQ(HintFor("turn R|BM 4D|BO 1A|RM 4E|RO 8A|RP 4F|jail BM BM"),
              "Move your Master 4E-4D: it wins the game.");
}

TEST(Hint, TellsOfACapture) {
    EXPECT_EQ(SentenceFor(kEnding, {.line = {"4D-4E"}, .value = 100}),
              "Move your Officer 4D-4E: it takes an Officer.");
}

TEST(Hint, TellsWhatComesBack) {
    EXPECT_EQ(SentenceFor("turn B|BM 1A|BO 4D|RM 8H|RO 4E|jail BP", {.line = {"4D-4E+P3C"}, .value = 100}),
              "Move your Officer 4D-4E: it takes an Officer, and your Pawn comes back on 3C.");
}

TEST(Hint, TellsOfAPieceUnderControl) {
    EXPECT_EQ(SentenceFor("turn B|BM 4D|BO 1A|BP 1H|RM 8H|RO 8A|RP 5E", {.line = {"5E-5D"}}),
              "Move Red's Pawn 5E-5D, which stands in your zone: no other turn looks better.");
}

TEST(Hint, TellsOfAPieceThatCouldBeTaken) {
    EXPECT_EQ(SentenceFor(kEnding, {.line = {"4D-4C"}, .threat = "4E-4D", .threatValue = 100}),
              "Move your Officer 4D-4C: your Officer on 4D could be taken.");
}

TEST(Hint, TellsNoThreatThatStays) {
    EXPECT_EQ(SentenceFor(kEnding,
                          {.line = {"1A-1B", "4E-4D"}, .value = -90, .threat = "4E-4D", .threatValue = 110}),
              "Move your Master 1A-1B: no other turn looks better.");
}

TEST(Hint, TellsWhatItGoesFor) {
    EXPECT_EQ(SentenceFor(kEnding, {.line = {"8H-7H", "8A-8B", "4D-4E"}, .value = 50}),
              "Move your Pawn 8H-7H: it goes for an Officer on 4E.");
}

TEST(Hint, TellsOfALostGame) {
    EXPECT_EQ(SentenceFor(kEnding, {.line = {"4D-4C"}, .value = 4 - computer::kWin}),
              "Move your Officer 4D-4C: every turn loses, and this one holds out longest.");
}

} // namespace
} // namespace tarveth::test
