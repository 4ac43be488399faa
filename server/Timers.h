// The timers of all sessions, in the order of their expiry. Nothing is polled: an idle lobby has no timer.
#pragma once

#include "server/Session.h"

#include <optional>
#include <set>
#include <tuple>

namespace tarveth {

class Timers {
public:
    struct Timer {
        Session* session;
        TimerKind kind;
    };

    // Sets the session's timer of that kind; one that was set before is moved.
    void Set(Session& session, TimerKind kind, Time time);
    void Clear(Session& session, TimerKind kind);
    void ClearAll(Session& session);

    std::optional<Time> Next() const;
    // Takes the earliest timer, if it expires no later than now.
    std::optional<Timer> TakeExpired(Time now);

private:
    std::set<std::tuple<Time, Session*, TimerKind>> timers_;
};

} // namespace tarveth
