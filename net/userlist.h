// The users in the lobby, as the client window lists them. Text is bytes in the wire's code page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarveth {

inline constexpr char kStatusSign = '\xAE'; // behind the nickname of a user whose status is 1

// The nickname in an entry.
std::string_view NickOf(std::string_view entry);

class UserList {
public:
    static constexpr int kNobody = -1;

    // No more and no longer ones are taken: a server may send anything.
    static constexpr std::size_t kMostEntries = 100'000;
    static constexpr std::size_t kLongestNick = 255;

    // Counted from 0, in the order of their arrival.
    const std::vector<std::string>& Entries() const;
    // The index of the selected entry, or kNobody.
    int Selected() const;
    void Select(int index);
    // The nickname that was selected by the last Select, followed through its renames. The selected entry may
    // be another one by now (see Change).
    const std::string& PickedNick() const { return picked_; }
    // The selected user's nickname; empty if there is none.
    std::string_view SelectedNick() const;

    void Clear();
    // False if there is no room for this user.
    bool Add(std::string_view nick, int status);
    // The entry goes to the end of the list, the selection stays on the same place in it. False if nobody has
    // the old nickname, or the new one is too long.
    bool Change(std::string_view oldNick, std::string_view newNick, int status);
    // The selection stays with the user that it is on. False if nobody has that nickname.
    bool Remove(std::string_view nick);

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    // Servers name many users, and many of them come and go at once. So a removed entry leaves a gap, which
    // is closed when somebody looks at the rows; and an entry is found by its nickname and number.
    struct Rows {
        std::vector<std::string> entries;
        std::vector<std::uint64_t> numbers; // of the entries, in their order; they rise
        std::vector<bool> gaps;
        std::size_t gapCount = 0;
        std::size_t selected = kNone;

        void CloseGaps();
        void SelectNext();
    };

    std::size_t Find(std::string_view nick) const;
    void Append(std::string entry);
    void TakeOut(std::size_t place);

    mutable Rows rows_; // gaps are no part of what can be seen
    std::set<std::pair<std::string, std::uint64_t>> byNick_;
    std::uint64_t nextNumber_ = 1;
    std::string picked_;
};

} // namespace tarveth
