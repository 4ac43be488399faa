#include "server/Roster.h"

namespace tarveth {

void Roster::Add(const Session& user) {
    if (!stale_)
        AddSlice(text_, writer_.Append({kMarkerText, "addnick(", user.nick, ",", StatusText(user), ")"}));
}

const std::vector<Slice>& Roster::Text(const std::vector<Session*>& users) {
    if (stale_) {
        stale_ = false;
        text_.clear();
        for (const Session* user : users)
            Add(*user);
    }
    return text_;
}

std::string_view StatusText(const Session& user) {
    return user.partner != nullptr ? "1" : "0";
}

} // namespace tarveth
