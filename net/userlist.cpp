#include "net/userlist.h"

#include "text/trim.h"

#include <algorithm>

namespace tarveth {

namespace {

std::string EntryOf(std::string_view nick, int status) {
    std::string entry(nick);
    if (status == 1)
        entry += kStatusSign;
    return entry;
}

} // namespace

std::string_view NickOf(std::string_view entry) {
    return TrimBlanks(entry.substr(0, entry.find(kStatusSign)));
}

void UserList::Select(int index) {
    const bool listed = index >= 0 && static_cast<std::size_t>(index) < entries_.size();
    selected_ = listed ? index : kNobody;
}

std::string_view UserList::SelectedNick() const {
    return selected_ == kNobody ? std::string_view() : NickOf(entries_[static_cast<std::size_t>(selected_)]);
}

void UserList::Clear() {
    entries_.clear();
    selected_ = kNobody;
}

bool UserList::Add(std::string_view nick, int status) {
    if (entries_.size() == kMostEntries || nick.size() > kLongestNick)
        return false;
    entries_.push_back(EntryOf(nick, status));
    return true;
}

bool UserList::Change(std::string_view oldNick, std::string_view newNick, int status) {
    const auto entry = Find(oldNick);
    if (entry == entries_.end() || newNick.size() > kLongestNick)
        return false;
    entries_.erase(entry);
    entries_.push_back(EntryOf(newNick, status));
    return true;
}

bool UserList::Remove(std::string_view nick) {
    const auto entry = Find(nick);
    if (entry == entries_.end())
        return false;
    const auto index = static_cast<int>(entry - entries_.begin());
    entries_.erase(entry);
    if (index == selected_)
        selected_ = kNobody;
    else if (index < selected_)
        --selected_;
    return true;
}

std::vector<std::string>::iterator UserList::Find(std::string_view nick) {
    return std::ranges::find(entries_, nick, [](const std::string& entry) { return NickOf(entry); });
}

} // namespace tarveth
