// When something is to happen to a session. Only what is awaited is kept, so an idle lobby has no alarm.
#pragma once

#include "server/Session.h"

#include <optional>
#include <set>
#include <tuple>

namespace tarveth {

class Alarms {
public:
    struct Alarm {
        Session* session;
        AlarmKind kind;
    };

    // A session has one alarm of a kind; setting it anew moves it.
    void Set(Session& session, AlarmKind kind, Time time);
    void Clear(Session& session, AlarmKind kind);
    void ClearAll(Session& session);

    std::optional<Time> Next() const;
    // Takes the earliest one that is not after now.
    std::optional<Alarm> TakeRinging(Time now);

private:
    std::set<std::tuple<Time, Session*, AlarmKind>> alarms_;
};

} // namespace tarveth
