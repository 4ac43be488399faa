#include "server/Lobby.h"

#include "net/wire/plaintext.h"
#include "server/chat.h"
#include "server/games.h"
#include "server/messages.h"
#include "server/nicknames.h"
#include "version.h"

#include <algorithm>
#include <utility>

namespace tarveth {

namespace {

using namespace std::chrono_literals;

// How long a dismissed client may take to read what has been sent, before its connection is closed.
constexpr auto kFarewellTimeout = 2s;

// A dismissed client is read from no more often than this, so that a flooder takes no processor time at its
// end.
constexpr auto kDismissedPause = 20ms;

// A pause because of too many bytes counts as this many offences: a client that floods on without a break is
// put out after about half a minute of pauses.
constexpr double kOffencesOfAPause = 40;

// What a connection takes beside the bytes that are counted one by one, rounded up.
constexpr std::size_t kBytesOfAConnection = 1024;

// How long a client may take to acknowledge a few bytes before it counts as gone. Lost packets are sent again
// several times meanwhile.
constexpr auto kPresenceTimeout = 5s;

// How often a client is asked: what it acknowledges the first time may have been sent before it was gone.
constexpr std::uint8_t kPresenceChecks = 2;

// A notice as it may stand in a message.
std::string NoticeText(std::string_view text) {
    constexpr std::size_t kRestOfMessage = 7; // sys() or alert()
    return BalancedLine(text.substr(0, kLongestMessage - kRestOfMessage));
}

} // namespace

Lobby::Lobby(const Limits& limits, std::string messageOfTheDay)
    : limits_(limits), messageOfTheDay_(std::move(messageOfTheDay)) {}

void Lobby::Configure(const Limits& limits, std::string messageOfTheDay) {
    limits_ = limits;
    messageOfTheDay_ = std::move(messageOfTheDay);
}

void Lobby::Note(const Session& session, const std::string& event) const {
    if (journal_)
        journal_(session, event);
}

std::optional<std::string> Lobby::Enter(Session& session, Time now) {
    now_ = now;
    if (const Sanction* ban = sanctions_.Find(Sanction::Kind::Ban, session.address, {}, WallNow()))
        return BanSentence(*ban);
    if (sessions_.size() >= limits_.maxClients)
        return std::string(RefusalReason(Refusal::LobbyFull));
    const auto admission = addresses_.Admit(session.address, limits_, now);
    if (const auto* refusal = std::get_if<Refusal>(&admission))
        return std::string(RefusalReason(*refusal));
    session.addressEntry = std::get<AddressEntry*>(admission);
    session.arrived = now;
    session.seat = static_cast<std::uint32_t>(sessions_.size());
    sessions_.push_back(&session);
    ++figures_.arrivals;
    timers_.Set(session, TimerKind::Deadline, now + limits_.handshake);
    Send(session, {kMarkerText, "update(", kVersion, ")"});
    return std::nullopt;
}

void Lobby::Receive(Session& session, std::string_view bytes, Time now) {
    now_ = now;
    if (session.stage == Stage::Dismissed) {
        Pause(session, kDismissedPause);
        return;
    }
    const std::size_t size = bytes.size();
    acceptedOfBatch_ = droppedOfBatch_ = 0;
    while (session.stage != Stage::Dismissed) {
        const auto frame = session.framer.Next(bytes);
        if (!frame)
            break;
        HandleFrame(session, *frame);
    }
    WatchOpenLine(session);
    Clock::duration wait = session.moves.Borrow(limits_.moves, 0, now_);
    session.useful = droppedOfBatch_ == 0 && acceptedOfBatch_ > 0;
    if (!session.useful)
        wait = std::max(wait, ChargeUselessBytes(session, size));
    Pause(session, wait);
    CountInput(session, session.framer.KeptBytes() + session.line.capacity());
}

void Lobby::CountInput(Session& session, std::size_t bytes) {
    inputHeld_ += bytes - std::exchange(session.inputHeld, bytes);
}

std::size_t Lobby::MemoryHeld() const {
    return out_.BytesHeld() + inputHeld_ + sessions_.size() * kBytesOfAConnection;
}

std::size_t Lobby::HeldBy(const Session& session) const {
    return out_.HeldBy(session.box) + session.inputHeld;
}

// Charges bytes of a batch in which something was dropped, or nothing was complete. Gives how long the client
// must not be read from.
Clock::duration Lobby::ChargeUselessBytes(Session& session, std::size_t bytes) {
    const auto amount = static_cast<double>(bytes);
    Clock::duration wait = session.allowances.uselessBytes.Borrow(limits_.uselessBytes, amount, now_);
    if (session.addressEntry != nullptr)
        wait = std::max(
            wait, session.addressEntry->allowances.uselessBytes.Borrow(limits_.uselessBytes, amount, now_));
    if (wait > 0s)
        Offend(session, kOffencesOfAPause);
    return wait;
}

bool Lobby::Allow(Session& session, Bucket Allowances::*bucket, const Rate& rate, double amount) {
    AddressEntry* entry = session.addressEntry;
    if (entry != nullptr && !(entry->allowances.*bucket).Holds(rate, amount, now_))
        return false;
    if (!(session.allowances.*bucket).Take(rate, amount, now_))
        return false;
    return entry == nullptr || (entry->allowances.*bucket).Take(rate, amount, now_);
}

void Lobby::CountDropped(Session& session) {
    ++figures_.dropped;
    ++droppedOfBatch_;
    Offend(session, 1);
}

void Lobby::Offend(Session& session, double offences) {
    if (session.stage == Stage::Dismissed ||
        Allow(session, &Allowances::offences, limits_.offences, offences))
        return;
    ++figures_.flooders;
    Tell(session,
         "You have sent too much that could not be passed on, so the lobby has closed your connection.");
    Dismiss(session, "it was put out for sending too much that was dropped");
}

void Lobby::HandleFrame(Session& session, const Frame& frame) {
    if (frame.kind == Frame::Kind::Text) {
        ReceiveText(*this, session, frame.whole);
        return;
    }
    if (!session.line.empty())
        EndLine(*this, session);
    if (frame.kind == Frame::Kind::Message) {
        DispatchClientMessage(*this, session, frame);
        return;
    }
    Tell(session,
         "A message of more than " + std::to_string(limits_.longestMessage) + " characters was ignored.");
    CountDropped(session);
}

void Lobby::WatchOpenLine(Session& session) {
    if (session.line.empty() || session.stage == Stage::Dismissed)
        timers_.Clear(session, TimerKind::ChatLine);
    else
        timers_.Set(session, TimerKind::ChatLine, now_ + limits_.linePause);
}

void Lobby::Pause(Session& session, Clock::duration time) {
    if (time <= 0s)
        return;
    ++figures_.pauses;
    session.paused = true;
    timers_.Set(session, TimerKind::Resume, now_ + time);
}

void Lobby::RunTimers(Time now) {
    now_ = now;
    while (const auto timer = timers_.TakeExpired(now))
        RunTimer(*timer->session, timer->kind);
}

void Lobby::RunTimer(Session& session, TimerKind kind) {
    switch (kind) {
    case TimerKind::ChatLine:
        EndLine(*this, session);
        break;
    case TimerKind::Resume:
        session.paused = false;
        MarkDue(session);
        break;
    case TimerKind::Presence:
        CloseIfGone(session);
        break;
    case TimerKind::Deadline:
        RunDeadline(session);
    }
}

void Lobby::RunDeadline(Session& session) {
    if (session.stage == Stage::Dismissed) {
        session.cutOff = true;
        MarkDue(session);
        return;
    }
    ++figures_.silent;
    Tell(session, "You took too long to say who you are.");
    Dismiss(session, "it did not complete the handshake in time");
}

void Lobby::CheckPresence(Session& session) {
    session.presenceChecks = kPresenceChecks;
    AskForPresence(session);
}

// Clients ignore the lobby's version after the first time.
void Lobby::AskForPresence(Session& session) {
    const auto acknowledged = acknowledged_ ? acknowledged_(session) : std::nullopt;
    if (!acknowledged)
        return;
    session.acknowledged = *acknowledged;
    Send(session, {kMarkerText, "update(", kVersion, ")"});
    timers_.Set(session, TimerKind::Presence, now_ + kPresenceTimeout);
}

void Lobby::CloseIfGone(Session& session) {
    if (acknowledged_(session) != session.acknowledged) {
        if (--session.presenceChecks > 0)
            AskForPresence(session);
        return;
    }
    ++figures_.ghosts;
    session.cutOff = true;
    MarkDue(session);
}

void Lobby::Leave(Session& session) {
    sessions_.back()->seat = session.seat;
    std::swap(sessions_[session.seat], sessions_.back());
    sessions_.pop_back();
    CountInput(session, 0);
    AddressBook::Leave(session.addressEntry, now_);
    RemoveUser(session);
    session.stage = Stage::Dismissed;
    timers_.ClearAll(session);
    if (session.due)
        std::erase(due_, &session);
    Outgoing::Discard(session.box);
}

void Lobby::Dismiss(Session& session, std::string_view reason) {
    session.dismissal = reason;
    RemoveUser(session);
    session.stage = Stage::Dismissed;
    session.paused = false;
    timers_.ClearAll(session);
    timers_.Set(session, TimerKind::Deadline, now_ + kFarewellTimeout);
    MarkDue(session);
}

void Lobby::PutOut(Session& session, std::string_view sentence, std::string_view reason) {
    if (session.stage == Stage::Dismissed)
        return;
    Send(session, {kMarkerText, "alert(", NoticeText(sentence), ")"});
    Dismiss(session, reason);
}

void Lobby::RemoveUser(Session& session) {
    directory_.Absent().ForgetWaiting(session);
    if (!session.IsUser())
        return;
    Session* partner = session.partner;
    LeaveGames(*this, session);
    ignoreLists_.Clear(session);
    directory_.Remove(session);
    directory_.Absent().ForgetPartner(session);
    roster_.UserChanged();
    out_.QueueAnnouncements(session.box);
    session.box.listening = false;
    Announce({kMarkerText, "removenick(", session.nick, ")"});
    // Whom the lobby has put out has not been cut off.
    if (!session.dismissal.empty())
        return;
    session.stage = Stage::Dismissed;
    directory_.Absent().Keep(session, partner, now_ + limits_.keptNames, now_);
    GiveNicknameBack(*this, session);
}

std::vector<Session*> Lobby::TakeDue() {
    for (Session* session : due_)
        session->due = false;
    return std::exchange(due_, {});
}

void Lobby::MarkDue(Session& session) {
    if (session.due)
        return;
    session.due = true;
    due_.push_back(&session);
}

std::string Lobby::Refuse(std::string_view sentence) {
    ++figures_.refusedArrivals;
    return std::string(kMarkerText) + "alert(" + NoticeText(sentence) + ")";
}

void Lobby::SayGoodbye(Session& session) {
    if (session.stage != Stage::Dismissed)
        Tell(session, "The lobby is closing. Please come back later.");
}

void Lobby::Send(Session& session, BlockWriter::Parts parts) {
    out_.ToOne(session.box, parts);
    MarkDue(session);
}

void Lobby::Tell(Session& session, std::string_view text) {
    Send(session, {kMarkerText, "sys(", NoticeText(text), ")"});
}

void Lobby::TellAll(std::string_view text) {
    Announce({kMarkerText, "sys(", NoticeText(text), ")"});
}

void Lobby::AddUser(Session& session, const std::string& nick) {
    session.stage = Stage::Named;
    session.nick = nick;
    directory_.Add(session);
    roster_.Add(session);
    Note(session, "is here as " + nick);
    Announce({kMarkerText, "addnick(", nick, ",", StatusText(session), ")"});
}

void Lobby::RenameUser(Session& session, const std::string& nick) {
    const std::string old = session.nick;
    if (nick == old)
        return;
    ignoreLists_.Rename(session, nick);
    directory_.Rename(session, nick);
    Note(session, "was called " + old + " and is now " + nick);
    if (session.partner != nullptr)
        KeepFormerNick(session, old);
    roster_.UserChanged();
    Announce({kMarkerText, "changenick(", old, ",", nick, ",", StatusText(session), ")"});
}

void Lobby::StatusChanged(const Session& user) {
    roster_.UserChanged();
    Announce({kMarkerText, "changenick(", user.nick, ",", user.nick, ",", StatusText(user), ")"});
}

void Lobby::SendUserList(Session& session) {
    out_.ToOne(session.box, roster_.Text(Users()));
    MarkDue(session);
    if (session.box.listening)
        return;
    out_.StartListening(session.box);
    timers_.Clear(session, TimerKind::Deadline);
    std::string_view rest = messageOfTheDay_;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        if (const std::string line = PlainLine(rest.substr(0, end)); !line.empty())
            Tell(session, line);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void Lobby::AnnounceFrom(const Session& speaker, BlockWriter::Parts parts) {
    const std::vector<Session*> deaf = ignoreLists_.DeafTo(speaker);
    for (Session* user : deaf)
        out_.QueueAnnouncements(user->box);
    Announce(parts);
    for (Session* user : deaf)
        out_.SkipAnnouncement(user->box);
}

} // namespace tarveth
