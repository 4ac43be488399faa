// The picker gives every turn of the rules, and gives none twice.
#include "computer/TurnPicker.h"

#include "tests/computer/Positions.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

using computer::GameRecord;
using computer::History;
using computer::ListTurns;
using computer::ScoredTurn;
using computer::SearchTurn;
using computer::TurnPicker;

std::vector<SearchTurn> PickAll(const GameRecord& record, SearchTurn first, TurnPicker::Scope scope) {
    const History history;
    std::vector<ScoredTurn> store;
    TurnPicker picker(record.Position(), first, history, 0, store, scope);
    std::vector<SearchTurn> turns;
    for (SearchTurn turn = picker.Next(); !turn.IsNone(); turn = picker.Next())
        turns.push_back(turn);
    return turns;
}

std::vector<std::uint32_t> Sorted(const std::vector<SearchTurn>& turns) {
    std::vector<std::uint32_t> bits;
    bits.reserve(turns.size());
    for (const SearchTurn turn : turns)
        bits.push_back(turn.Bits());
    std::sort(bits.begin(), bits.end());
    return bits;
}

} // namespace

TEST(TurnPicker, GivesEveryTurnOnceWhateverComesFirst) {
    Dice dice(51);
    for (int i = 0; i < 1000; ++i) {
        const GameRecord record(RandomPosition(dice));
        const auto expected = Sorted(ListTurns(record.Rules()));
        const SearchTurn first = OneOfItsTurns(record, dice);
        ASSERT_EQ(Sorted(PickAll(record, {}, TurnPicker::Scope::All)), expected) << "position " << i;
        const auto picked = PickAll(record, first, TurnPicker::Scope::All);
        ASSERT_EQ(Sorted(picked), expected) << "position " << i;
        if (!first.IsNone()) {
            ASSERT_EQ(picked.front(), first);
        }
    }
}

TEST(TurnPicker, ATurnOfAnotherPositionIsNotGiven) {
    Dice dice(52);
    for (int i = 0; i < 1000; ++i) {
        const GameRecord record(RandomPosition(dice));
        const SearchTurn foreign = OneOfItsTurns(GameRecord(RandomPosition(dice)), dice);
        ASSERT_EQ(Sorted(PickAll(record, foreign, TurnPicker::Scope::All)),
                  Sorted(ListTurns(record.Rules())));
    }
}

TEST(TurnPicker, CapturesAloneAreLegalAndTakeOpposingPieces) {
    Dice dice(53);
    for (int i = 0; i < 1000; ++i) {
        const GameRecord record(RandomPosition(dice));
        const auto all = Sorted(ListTurns(record.Rules()));
        for (const SearchTurn turn : PickAll(record, {}, TurnPicker::Scope::Captures)) {
            ASSERT_TRUE(std::binary_search(all.begin(), all.end(), turn.Bits()));
            ASSERT_NE(record.Rules().Standing(Opponent(record.Rules().Turn())) & SetOf(turn.To()), 0U);
        }
    }
}

TEST(TurnPicker, ACaptureThatWinsComesFirst) {
    const auto record = RecordOf("turn B | BM 1A | BO 4D | RO 4E | RM 2A | jail RM RM BP");
    EXPECT_EQ(computer::WriteTurn(PickAll(record, {}, TurnPicker::Scope::All).front()), "1A-2A");
}

} // namespace tarveth::test
