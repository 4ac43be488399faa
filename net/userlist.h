// The users in the lobby, as the client window lists them. Text is bytes in the wire's code page.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
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
    const std::vector<std::string>& Entries() const { return entries_; }
    // The index of the selected entry, or kNobody.
    int Selected() const { return selected_; }
    void Select(int index);
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
    std::vector<std::string>::iterator Find(std::string_view nick);

    std::vector<std::string> entries_;
    int selected_ = kNobody;
};

} // namespace tarveth
