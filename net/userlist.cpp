#include "net/userlist.h"

namespace tarveth {

std::string_view NickOf(std::string_view entry) {
    return entry;
}

void UserList::Select(int index) {
    selected_ = index;
}

void UserList::Clear() {
    entries_.clear();
    selected_ = kNobody;
}

void UserList::Add(std::string_view, int) {}

bool UserList::Change(std::string_view, std::string_view, int) {
    return false;
}

bool UserList::Remove(std::string_view) {
    return false;
}

} // namespace tarveth
