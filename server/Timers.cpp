#include "server/Alarms.h"

namespace tarveth {

namespace {

Time& AlarmTime(Session& session, AlarmKind kind) {
    return session.alarms.at(static_cast<std::size_t>(kind));
}

} // namespace

void Alarms::Set(Session& session, AlarmKind kind, Time time) {
    Clear(session, kind);
    AlarmTime(session, kind) = time;
    alarms_.emplace(time, &session, kind);
}

void Alarms::Clear(Session& session, AlarmKind kind) {
    Time& time = AlarmTime(session, kind);
    if (time == Time{})
        return;
    alarms_.erase({time, &session, kind});
    time = Time{};
}

void Alarms::ClearAll(Session& session) {
    Clear(session, AlarmKind::Patience);
    Clear(session, AlarmKind::Line);
    Clear(session, AlarmKind::Resume);
}

std::optional<Time> Alarms::Next() const {
    return alarms_.empty() ? std::nullopt : std::optional(std::get<Time>(*alarms_.begin()));
}

std::optional<Alarms::Alarm> Alarms::TakeRinging(Time now) {
    if (alarms_.empty() || std::get<Time>(*alarms_.begin()) > now)
        return std::nullopt;
    const auto [time, session, kind] = *alarms_.begin();
    Clear(*session, kind);
    return Alarm{session, kind};
}

} // namespace tarveth
