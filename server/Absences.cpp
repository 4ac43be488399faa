#include "server/Absences.h"

#include "server/Session.h"
#include "server/names.h"

#include <algorithm>

namespace tarveth {

namespace {

constexpr std::size_t kSmallestSweep = 256;

// The most nicknames that are kept: an attacker who leaves under more of them finds the next ones free.
constexpr std::size_t kMostKept = 20000;

} // namespace

void Absences::Keep(const Session& user, Session* partner, Time until, Time now) {
    if (until <= now)
        return;
    if (absences_.size() >= sweepSize_) {
        std::erase_if(absences_, [now](const auto& entry) { return entry.second.until <= now; });
        sweepSize_ = std::max(kSmallestSweep, 2 * absences_.size());
    }
    if (absences_.size() >= kMostKept)
        return;
    const std::string skeleton = NicknameSkeleton(user.nick);
    absences_[skeleton] = {user.address.LimitPrefix(), partner, until};
    if (partner == nullptr)
        return;
    ForgetPartner(*partner);
    partner->absentPartner = skeleton;
}

bool Absences::IsKept(const std::string& skeleton, const ClientAddress& address, Time now) const {
    const auto found = absences_.find(skeleton);
    return found != absences_.end() && found->second.until > now &&
           found->second.prefix != address.LimitPrefix();
}

Session* Absences::End(const Session& user, Time now) {
    const auto found = absences_.find(NicknameSkeleton(user.nick));
    if (found == absences_.end())
        return nullptr;
    Session* partner = found->second.partner;
    const bool inTime = found->second.until > now;
    if (partner != nullptr)
        partner->absentPartner.clear();
    absences_.erase(found);
    return inTime ? partner : nullptr;
}

void Absences::Await(Session& newcomer, const std::string& nick, Time until) {
    ForgetWaiting(newcomer);
    waiting_.push_back({&newcomer, NicknameSkeleton(nick), until});
}

Session* Absences::TakeWaiting(const Session& user, Time now) {
    std::erase_if(waiting_, [now](const Waiting& waiting) { return waiting.until <= now; });
    const std::string skeleton = NicknameSkeleton(user.nick);
    const auto found = std::ranges::find_if(waiting_, [&](const Waiting& waiting) {
        return waiting.skeleton == skeleton &&
               waiting.newcomer->address.LimitPrefix() == user.address.LimitPrefix();
    });
    if (found == waiting_.end())
        return nullptr;
    Session* newcomer = found->newcomer;
    waiting_.erase(found);
    return newcomer;
}

void Absences::ForgetWaiting(const Session& session) {
    std::erase_if(waiting_, [&session](const Waiting& waiting) { return waiting.newcomer == &session; });
}

void Absences::ForgetPartner(Session& session) {
    const auto found = absences_.find(session.absentPartner);
    if (found != absences_.end() && found->second.partner == &session)
        found->second.partner = nullptr;
    session.absentPartner.clear();
}

} // namespace tarveth
