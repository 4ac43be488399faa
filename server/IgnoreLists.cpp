#include "server/IgnoreLists.h"

#include "text/foldcase.h"

#include <algorithm>

namespace tarveth {

bool IgnoreLists::Ignores(const Session& user, const Session& other) {
    return !user.ignored.empty() &&
           std::ranges::find(user.ignored, FoldCase(other.nick)) != user.ignored.end();
}

void IgnoreLists::Add(Session& user, std::string_view folded) {
    if (user.ignored.empty())
        ignorers_.push_back(&user);
    user.ignored.emplace_back(folded);
}

void IgnoreLists::Remove(Session& user, std::string_view folded) {
    std::erase(user.ignored, folded);
    if (user.ignored.empty())
        std::erase(ignorers_, &user);
}

void IgnoreLists::Clear(Session& user) {
    user.ignored.clear();
    std::erase(ignorers_, &user);
}

void IgnoreLists::Rename(const Session& user, std::string_view nick) {
    for (Session* ignorer : ignorers_)
        if (Ignores(*ignorer, user))
            std::ranges::replace(ignorer->ignored, FoldCase(user.nick), FoldCase(nick));
}

std::vector<Session*> IgnoreLists::DeafTo(const Session& speaker) const {
    std::vector<Session*> deaf;
    for (Session* ignorer : ignorers_)
        if (ignorer->box.listening && Ignores(*ignorer, speaker))
            deaf.push_back(ignorer);
    return deaf;
}

} // namespace tarveth
