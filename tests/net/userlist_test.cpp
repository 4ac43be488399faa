#include "net/userlist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <random>

namespace tarveth {
namespace {

using Strings = std::vector<std::string>;

UserList ListOf(std::initializer_list<const char*> nicks) {
    UserList users;
    for (const char* nick : nicks)
        users.Add(nick, 0);
    return users;
}

TEST(UserList, AnEntryIsTheNicknameAndTheSignOfStatusOne) {
    UserList users;
    EXPECT_TRUE(users.Add("Ann", 0));
    EXPECT_TRUE(users.Add("Bob", 1));
    EXPECT_TRUE(users.Add("Cid", 2));
    EXPECT_EQ(users.Entries(), (Strings{"Ann", "Bob\256", "Cid"}));
}

TEST(UserList, TheNicknameInAnEntryStandsBeforeTheSign) {
    EXPECT_EQ(NickOf("Ann"), "Ann");
    EXPECT_EQ(NickOf("Ann\256"), "Ann");
    EXPECT_EQ(NickOf(" Ann of Green \256 x"), "Ann of Green");
    EXPECT_EQ(NickOf(""), "");
}

TEST(UserList, AChangedUserGoesToTheEnd) {
    UserList users = ListOf({"Ann", "Bob", "Cid"});
    EXPECT_TRUE(users.Change("Ann", "Anna", 1));
    EXPECT_EQ(users.Entries(), (Strings{"Bob", "Cid", "Anna\256"}));
    EXPECT_TRUE(users.Change("Anna", "Anna", 0));
    EXPECT_EQ(users.Entries(), (Strings{"Bob", "Cid", "Anna"}));
}

TEST(UserList, WhoIsNotListedCannotBeChangedOrRemoved) {
    UserList users = ListOf({"Ann"});
    EXPECT_FALSE(users.Change("ann", "Bob", 0));
    EXPECT_FALSE(users.Remove("Bob"));
    EXPECT_EQ(users.Entries(), Strings{"Ann"});
}

TEST(UserList, TheFirstOfTwoWithOneNicknameIsRemoved) {
    UserList users;
    users.Add("Ann", 1);
    users.Add("Bob", 0);
    users.Add("Ann", 0);
    EXPECT_TRUE(users.Remove("Ann"));
    EXPECT_EQ(users.Entries(), (Strings{"Bob", "Ann"}));
}

TEST(UserList, AChangeLeavesTheSelectionOnItsPlace) {
    UserList users = ListOf({"Ann", "Bob", "Cid"});
    users.Select(1);
    users.Change("Ann", "Anna", 0);
    EXPECT_EQ(users.Selected(), 1);
    EXPECT_EQ(users.SelectedNick(), "Cid");
}

TEST(UserList, ARemovalLeavesTheSelectionWithItsUser) {
    UserList users = ListOf({"Ann", "Bob", "Cid"});
    users.Select(1);
    users.Remove("Cid");
    EXPECT_EQ(users.SelectedNick(), "Bob");
    users.Remove("Ann");
    EXPECT_EQ(users.SelectedNick(), "Bob");
    users.Remove("Bob");
    EXPECT_EQ(users.Selected(), UserList::kNobody);
}

TEST(UserList, RemembersWhoWasPickedThroughRenames) {
    UserList users = ListOf({"Ann", "Bob", "Cid"});
    users.Select(0);
    users.Change("Ann", "Anna", 1);
    EXPECT_EQ(users.PickedNick(), "Anna");
    EXPECT_EQ(users.SelectedNick(), "Bob");
    users.Remove("Bob");
    EXPECT_EQ(users.PickedNick(), "");
    EXPECT_EQ(users.Selected(), UserList::kNobody);
}

TEST(UserList, StaysInOrderWhateverIsTakenOutOfIt) {
    UserList users;
    Strings plain; // the same list, kept in the plainest way
    int selected = UserList::kNobody;
    std::mt19937 random(15);
    const auto below = [&](std::size_t most) { return random() % most; };
    for (int step = 0; step < 20'000; ++step) {
        const std::string nick = "n" + std::to_string(below(60));
        const auto found = std::ranges::find(plain, nick);
        const auto row = static_cast<int>(found - plain.begin());
        switch (below(5)) {
        case 0:
        case 1:
            users.Add(nick, 0);
            plain.push_back(nick);
            break;
        case 2:
            EXPECT_EQ(users.Change(nick, "n99", 0), found != plain.end());
            if (found != plain.end()) {
                plain.erase(found);
                plain.emplace_back("n99");
            }
            break;
        case 3:
            EXPECT_EQ(users.Remove(nick), found != plain.end());
            if (found != plain.end()) {
                plain.erase(found);
                selected = row == selected ? UserList::kNobody : selected - (row < selected ? 1 : 0);
            }
            break;
        default:
            selected = plain.empty() ? UserList::kNobody : static_cast<int>(below(plain.size()));
            users.Select(selected);
        }
        if (below(4) == 0) {
            ASSERT_EQ(users.Selected(), selected) << step;
            ASSERT_EQ(users.Entries(), plain) << step;
        }
    }
}

// Looking each of them up from the front of the list takes a hundred times as long.
TEST(UserList, FindsTheLastOfAHundredThousandUsersInLittleTime) {
    UserList users;
    const auto nick = [](int number) { return "user" + std::to_string(number); };
    const std::clock_t start = std::clock();
    for (int i = 0; i < 100'000; ++i)
        users.Add(nick(i), 0);
    for (int i = 99'000; i < 100'000; ++i)
        EXPECT_TRUE(users.Change(nick(i), nick(i) + "x", 1));
    for (int i = 98'999; i >= 91'000; --i)
        EXPECT_TRUE(users.Remove(nick(i)));
    EXPECT_EQ(users.Entries().size(), 92'000U);
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 2.0);
}

TEST(UserList, OnlyAListedUserIsSelected) {
    UserList users = ListOf({"Ann"});
    users.Select(1);
    EXPECT_EQ(users.Selected(), UserList::kNobody);
    users.Select(-5);
    EXPECT_EQ(users.Selected(), UserList::kNobody);
    EXPECT_EQ(users.SelectedNick(), "");
    users.Select(0);
    EXPECT_EQ(users.SelectedNick(), "Ann");
    users.Clear();
    EXPECT_EQ(users.Selected(), UserList::kNobody);
}

TEST(UserList, HoldsNoMoreThanItsMost) {
    UserList users;
    for (std::size_t i = 0; i < UserList::kMostEntries; ++i)
        ASSERT_TRUE(users.Add("x", 0));
    EXPECT_FALSE(users.Add("Ann", 0));
    EXPECT_EQ(users.Entries().size(), UserList::kMostEntries);
    EXPECT_TRUE(users.Change("x", "Ann", 0));
    EXPECT_TRUE(users.Remove("x"));
    EXPECT_TRUE(users.Add("Bob", 0));
}

TEST(UserList, TakesNoNicknameThatIsTooLong) {
    const std::string longest(UserList::kLongestNick, 'x');
    UserList users = ListOf({"Ann"});
    EXPECT_TRUE(users.Add(longest, 0));
    EXPECT_FALSE(users.Add(longest + "x", 0));
    EXPECT_FALSE(users.Change("Ann", longest + "x", 0));
    EXPECT_EQ(users.Entries(), (Strings{"Ann", longest}));
}

} // namespace
} // namespace tarveth
