#include "computer/TranspositionTable.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

using computer::Bound;
using computer::SearchTurn;
using computer::TableEntry;
using computer::TranspositionTable;

} // namespace

TEST(TranspositionTable, GivesBackWhatWasStored) {
    TranspositionTable table(1);
    const SearchTurn turn = SearchTurn(63, 62, true, true).WithReturn(Officer, 63);
    table.Store(12345, {turn, -29'999, 96, Bound::Upper});
    const TableEntry entry = table.Find(12345);
    EXPECT_EQ(entry.turn, turn);
    EXPECT_EQ(entry.value, -29'999);
    EXPECT_EQ(entry.depth, 96);
    EXPECT_EQ(entry.bound, Bound::Upper);
}

TEST(TranspositionTable, KnowsNothingOfOtherKeys) {
    TranspositionTable table(1);
    EXPECT_EQ(table.Find(0).bound, Bound::None);
    table.Store(1, {SearchTurn(1, 2, true, false), 5, 3, Bound::Exact});
    EXPECT_EQ(table.Find(2).bound, Bound::None);
    table.Clear();
    EXPECT_EQ(table.Find(1).bound, Bound::None);
}

TEST(TranspositionTable, KeepsTheTurnWhereALaterValueHasNone) {
    TranspositionTable table(1);
    const SearchTurn turn(1, 2, true, false);
    table.Store(7, {turn, 5, 3, Bound::Exact});
    table.Store(7, {SearchTurn(), -5, 4, Bound::Upper});
    EXPECT_EQ(table.Find(7).turn, turn);
    EXPECT_EQ(table.Find(7).value, -5);
}

TEST(TranspositionTable, ShallowAndOldEntriesGiveWayFirst) {
    TranspositionTable table(1);
    for (std::uint64_t key = 0; key < 4; ++key) // all in one bucket
        table.Store(key, {SearchTurn(1, 2, true, false), 0, key == 2 ? 1 : 9, Bound::Exact});
    table.Store(4, {SearchTurn(1, 2, true, false), 0, 5, Bound::Exact});
    EXPECT_EQ(table.Find(2).bound, Bound::None);
    for (const std::uint64_t key : {0U, 1U, 3U, 4U})
        EXPECT_EQ(table.Find(key).bound, Bound::Exact) << key;
}

} // namespace tarveth::test
