#include "net/userlist.h"

#include "text/trim.h"

#include <algorithm>
#include <utility>

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

void UserList::Rows::CloseGaps() {
    if (gapCount == 0)
        return;
    std::size_t to = 0;
    for (std::size_t from = 0; from < entries.size(); ++from) {
        if (gaps[from])
            continue;
        if (from == selected)
            selected = to;
        if (from != to) {
            entries[to] = std::move(entries[from]);
            numbers[to] = numbers[from];
        }
        ++to;
    }
    entries.resize(to);
    numbers.resize(to);
    gaps.assign(to, false);
    gapCount = 0;
}

// The selection stays on its row when an entry in front of it is taken out and put at the end.
void UserList::Rows::SelectNext() {
    do
        ++selected;
    while (gaps[selected]);
}

const std::vector<std::string>& UserList::Entries() const {
    rows_.CloseGaps();
    return rows_.entries;
}

int UserList::Selected() const {
    rows_.CloseGaps();
    return rows_.selected == kNone ? kNobody : static_cast<int>(rows_.selected);
}

void UserList::Select(int index) {
    rows_.CloseGaps();
    const bool listed = index >= 0 && static_cast<std::size_t>(index) < rows_.entries.size();
    rows_.selected = listed ? static_cast<std::size_t>(index) : kNone;
    picked_ = SelectedNick();
}

std::string_view UserList::SelectedNick() const {
    return rows_.selected == kNone ? std::string_view() : NickOf(rows_.entries[rows_.selected]);
}

void UserList::Clear() {
    rows_ = Rows();
    byNick_.clear();
    picked_.clear();
}

bool UserList::Add(std::string_view nick, int status) {
    if (byNick_.size() == kMostEntries || nick.size() > kLongestNick)
        return false;
    Append(EntryOf(nick, status));
    return true;
}

bool UserList::Change(std::string_view oldNick, std::string_view newNick, int status) {
    const std::size_t place = Find(oldNick);
    if (place == kNone || newNick.size() > kLongestNick)
        return false;
    const bool moveSelection = rows_.selected != kNone && place <= rows_.selected;
    TakeOut(place);
    Append(EntryOf(newNick, status));
    if (moveSelection)
        rows_.SelectNext();
    if (oldNick == picked_)
        picked_ = NickOf(rows_.entries.back());
    if (rows_.gapCount > byNick_.size())
        rows_.CloseGaps();
    return true;
}

bool UserList::Remove(std::string_view nick) {
    const std::size_t place = Find(nick);
    if (place == kNone)
        return false;
    TakeOut(place);
    if (place == rows_.selected) {
        rows_.selected = kNone;
        picked_.clear();
    }
    return true;
}

// The first of those with that nickname.
std::size_t UserList::Find(std::string_view nick) const {
    const auto found = byNick_.lower_bound({std::string(nick), 0});
    if (found == byNick_.end() || found->first != nick)
        return kNone;
    return static_cast<std::size_t>(std::ranges::lower_bound(rows_.numbers, found->second) -
                                    rows_.numbers.begin());
}

void UserList::Append(std::string entry) {
    byNick_.emplace(NickOf(entry), nextNumber_);
    rows_.entries.push_back(std::move(entry));
    rows_.numbers.push_back(nextNumber_++);
    rows_.gaps.push_back(false);
}

void UserList::TakeOut(std::size_t place) {
    byNick_.erase({std::string(NickOf(rows_.entries[place])), rows_.numbers[place]});
    rows_.gaps[place] = true;
    ++rows_.gapCount;
}

} // namespace tarveth
