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

    // Counted from 0, in the order of their arrival.
    const std::vector<std::string>& Entries() const { return entries_; }
    // The index of the selected entry, or kNobody.
    int Selected() const { return selected_; }
    void Select(int index);

    void Clear();
    void Add(std::string_view nick, int status);
    // The entry goes to the end of the list, the selection stays on the same place in it. False if nobody has
    // the old nickname.
    bool Change(std::string_view oldNick, std::string_view newNick, int status);
    bool Remove(std::string_view nick);

private:
    std::vector<std::string> entries_;
    int selected_ = kNobody;
};

} // namespace tarveth
