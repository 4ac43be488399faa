// Which nicknames users may have beside each other. Text is windows-1252, as on the wire.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

// Gives what a reader may take the nickname for: its letters without case and accents, with letters, digits
// and signs that look alike made one, and without blanks, full stops and similar signs. Two users must not
// have the same skeleton. Nothing but such signs is its own skeleton.
std::string NicknameSkeleton(std::string_view nickname);

// Gives the nickname that the lobby would give a user who asks for this one: as CleanNickname does, and
// without colons, since a colon ends the nickname at the start of a chat line.
std::string LobbyNickname(std::string_view wanted);

// Gives the nickname with the number appended ("Ann" and 2 give "Ann2"), shortened to the greatest length of
// a nickname.
std::string NicknameVariant(std::string_view nickname, int number);

// Nicknames that nobody may have, because their owner would seem to speak for the lobby.
class ReservedNames {
public:
    // Holds these names, and those that are always reserved: Server, Admin, Lobby, Tarveth.
    explicit ReservedNames(const std::vector<std::string>& names = {});

    // Whether the text looks like a reserved name as a whole.
    bool Holds(std::string_view text) const { return skeletons_.contains(NicknameSkeleton(text)); }
    // Whether the nickname, or one of its words, looks like a reserved name, with or without digits behind
    // it.
    bool Forbids(std::string_view nickname) const;

private:
    std::set<std::string> skeletons_;
};

} // namespace tarveth
