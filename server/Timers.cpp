#include "server/Timers.h"

namespace tarveth {

namespace {

Time& TimerTime(Session& session, TimerKind kind) {
    return session.timers.at(static_cast<std::size_t>(kind));
}

} // namespace

void Timers::Set(Session& session, TimerKind kind, Time time) {
    Clear(session, kind);
    TimerTime(session, kind) = time;
    timers_.emplace(time, &session, kind);
}

void Timers::Clear(Session& session, TimerKind kind) {
    Time& time = TimerTime(session, kind);
    if (time == Time{})
        return;
    timers_.erase({time, &session, kind});
    time = Time{};
}

void Timers::ClearAll(Session& session) {
    Clear(session, TimerKind::Deadline);
    Clear(session, TimerKind::ChatLine);
    Clear(session, TimerKind::Resume);
    Clear(session, TimerKind::Presence);
}

std::optional<Time> Timers::Next() const {
    return timers_.empty() ? std::nullopt : std::optional(std::get<Time>(*timers_.begin()));
}

std::optional<Timers::Timer> Timers::TakeExpired(Time now) {
    if (timers_.empty() || std::get<Time>(*timers_.begin()) > now)
        return std::nullopt;
    const auto [time, session, kind] = *timers_.begin();
    Clear(*session, kind);
    return Timer{session, kind};
}

} // namespace tarveth
