#include "server/Lobby.h"

#include "net/wire/nickname.h"
#include "net/wire/plaintext.h"
#include "server/chat.h"
#include "server/games.h"
#include "server/messages.h"
#include "server/names.h"
#include "text/foldcase.h"
#include "text/trim.h"
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

// When this many variants of a nickname are taken, the next numbers tried are ones that no newcomer had
// before, so that a thousand users who ask for one nickname do not cost a million look-ups.
constexpr int kVariantsInARow = 8;

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

std::optional<Refusal> Lobby::Enter(Session& session, Time now) {
    now_ = now;
    if (connections_ >= limits_.maxClients)
        return Refusal::LobbyFull;
    const auto admission = addresses_.Admit(session.address, limits_, now);
    if (const auto* refusal = std::get_if<Refusal>(&admission))
        return *refusal;
    session.addressEntry = std::get<AddressEntry*>(admission);
    ++connections_;
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
    if (droppedOfBatch_ > 0 || acceptedOfBatch_ == 0)
        wait = std::max(wait, ChargeUselessBytes(session, size));
    Pause(session, wait);
    CountInput(session, session.framer.KeptBytes() + session.line.capacity());
}

void Lobby::CountInput(Session& session, std::size_t bytes) {
    inputHeld_ += bytes - std::exchange(session.inputHeld, bytes);
}

std::size_t Lobby::MemoryHeld() const {
    return out_.BytesHeld() + inputHeld_ + connections_ * kBytesOfAConnection;
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
    case TimerKind::Deadline:
        if (session.stage == Stage::Dismissed) {
            session.cutOff = true;
            MarkDue(session);
        } else {
            ++figures_.silent;
            Tell(session, "You took too long to say who you are.");
            Dismiss(session, "it did not complete the handshake in time");
        }
    }
}

void Lobby::Leave(Session& session) {
    --connections_;
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

void Lobby::RemoveUser(Session& session) {
    if (!session.IsUser())
        return;
    LeaveGames(*this, session);
    session.ignored.clear();
    std::erase(ignorers_, &session);
    usersBySkeleton_.erase(NicknameSkeleton(session.nick));
    users_.back()->place = session.place;
    std::swap(users_[session.place], users_.back());
    users_.pop_back();
    roster_.UserChanged();
    out_.QueueAnnouncements(session.box);
    session.box.listening = false;
    Announce({kMarkerText, "removenick(", session.nick, ")"});
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

std::string Lobby::Refuse(Refusal refusal) {
    ++figures_.refusedArrivals;
    return std::string(kMarkerText) + "alert(" + std::string(RefusalReason(refusal)) + ")";
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
    constexpr std::size_t kRestOfMessage = 5; // sys()
    Send(session, {kMarkerText, "sys(", BalancedLine(text.substr(0, kLongestMessage - kRestOfMessage)), ")"});
}

Session* Lobby::FindUser(std::string_view nick) const {
    const auto found = usersBySkeleton_.find(NicknameSkeleton(nick));
    if (found == usersBySkeleton_.end() || FoldCase(found->second->nick) != FoldCase(TrimBlanks(nick)))
        return nullptr;
    return found->second;
}

void Lobby::TakeNickname(Session& session, std::string_view wanted) {
    std::string clean = LobbyNickname(wanted);
    if (reservedNames_.Forbids(clean))
        clean = CleanNickname("");
    const std::string nick = FreeNickname(session, clean);
    if (session.IsUser() && nick != session.nick &&
        !Allow(session, &Allowances::renames, limits_.renames, 1)) {
        Tell(session, "You change your nickname too often, so you are still " + session.nick + ".");
        // The client's program has taken the new nickname already.
        Send(session, {kConfirmation, session.nick, "\r\n"});
        CountDropped(session);
        return;
    }
    if (nick != clean)
        Tell(session, clean + " is taken, so you are " + nick + ".");
    else if (nick != TrimBlanks(wanted))
        Tell(session, "That nickname can't be had as it stands, so you are " + nick + ".");
    Send(session, {kConfirmation, nick, "\r\n"});
    if (session.IsUser())
        RenameUser(session, nick);
    else {
        session.nick = nick;
        AddUser(session);
    }
}

bool Lobby::IsNickname(std::string_view text) const {
    const std::string skeleton = NicknameSkeleton(text);
    return usersBySkeleton_.contains(skeleton) || reservedNames_.Holds(text);
}

std::string Lobby::FreeNickname(const Session& session, const std::string& nick) {
    if (IsFree(session, nick))
        return nick;
    for (int number = 2;; ++number) {
        if (number == kVariantsInARow)
            number += static_cast<int>(++crowdedNames_ % 1'000'000);
        std::string variant = NicknameVariant(nick, number);
        if (IsFree(session, variant))
            return variant;
    }
}

bool Lobby::IsFree(const Session& session, std::string_view nick) const {
    const auto found = usersBySkeleton_.find(NicknameSkeleton(nick));
    return found == usersBySkeleton_.end() || found->second == &session;
}

void Lobby::AddUser(Session& session) {
    session.stage = Stage::Named;
    usersBySkeleton_.emplace(NicknameSkeleton(session.nick), &session);
    session.place = static_cast<std::uint32_t>(users_.size());
    users_.push_back(&session);
    roster_.Add(session);
    Note(session, "is here as " + session.nick);
    Announce({kMarkerText, "addnick(", session.nick, ",", StatusText(session), ")"});
}

void Lobby::RenameUser(Session& session, const std::string& nick) {
    if (nick == session.nick)
        return;
    for (Session* ignorer : ignorers_)
        if (Ignores(*ignorer, session))
            std::ranges::replace(ignorer->ignored, FoldCase(session.nick), FoldCase(nick));
    usersBySkeleton_.erase(NicknameSkeleton(session.nick));
    usersBySkeleton_.emplace(NicknameSkeleton(nick), &session);
    const std::string old = std::exchange(session.nick, nick);
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
    out_.ToOne(session.box, roster_.Text(users_));
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
    std::vector<Session*> deaf;
    for (Session* ignorer : ignorers_)
        if (ignorer->box.listening && Ignores(*ignorer, speaker))
            deaf.push_back(ignorer);
    for (Session* user : deaf)
        out_.QueueAnnouncements(user->box);
    Announce(parts);
    for (Session* user : deaf)
        out_.SkipAnnouncement(user->box);
}

bool Lobby::Ignores(const Session& user, const Session& other) const {
    return !user.ignored.empty() &&
           std::ranges::find(user.ignored, FoldCase(other.nick)) != user.ignored.end();
}

void Lobby::Ignore(Session& user, std::string_view folded) {
    if (user.ignored.empty())
        ignorers_.push_back(&user);
    user.ignored.emplace_back(folded);
}

void Lobby::StopIgnoring(Session& user, std::string_view folded) {
    std::erase(user.ignored, folded);
    if (user.ignored.empty())
        std::erase(ignorers_, &user);
}

} // namespace tarveth
