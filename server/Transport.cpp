#include "server/Transport.h"

#include "platform/server_process.h"
#include "text/codepage.h"

#include <spdlog/spdlog.h>

#include <algorithm>
#include <span>
#include <utility>

namespace tarveth {

namespace {

using namespace std::chrono_literals;

// How long the program waits at its end for clients that have not yet read that the lobby is closing.
constexpr auto kShutdownTimeout = 1s;

// What is set aside for the time until clients can be dropped: more than any single event allocates.
constexpr std::size_t kMemoryReserve = std::size_t{8} << 20;

// Freed memory is returned to the system this long after at least so much of it has become free.
constexpr auto kTrimPause = 5s;
constexpr std::size_t kWorthTrimming = std::size_t{4} << 20;

// The most buffers of one write.
constexpr std::size_t kParts = 64;

// The most that is read at once from a client that has to wait for its turn.
constexpr std::size_t kLateRead = std::size_t{8} << 10;

// Names a client in the log.
std::string ClientText(const Session& session) {
    const std::string address = AddressText(session.address);
    return session.nick.empty() ? address : FromWire(session.nick) + " (" + address + ")";
}

std::size_t SendSome(TcpSocket& socket, const std::vector<std::string_view>& parts, asio::error_code& error) {
    if (parts.size() == 1)
        return socket.write_some(asio::buffer(parts.front()), error);
    std::array<asio::const_buffer, kParts> buffers;
    for (std::size_t i = 0; i < parts.size(); ++i)
        buffers.at(i) = asio::buffer(parts[i]);
    return socket.write_some(std::span(buffers).first(parts.size()), error);
}

} // namespace

Transport::Transport(asio::io_context& io, const ListenOptions& listen, Lobby& lobby)
    : io_(io),
      listen_(listen),
      lobby_(lobby),
      refusals_([](const std::string& line) { spdlog::info(line); }),
      chores_(io, [this] { AfterEvent(); }),
      listener_(io, listen.bindAddress, listen.port, *this, chores_),
      proxyGate_(
          io,
          [this](TcpSocket socket, const ClientAddress& client, std::string_view rest) {
              Admit(std::move(socket), client, rest);
              AfterEvent();
          },
          [this](const ClientAddress& proxy, std::string_view reason) {
              refusals_.Tell(proxy, reason, Clock::now());
          }),
      timer_(io),
      shutdown_(io),
      trim_(io),
      reserveMemory_(kMemoryReserve) {
    lobby_.SetJournal([](const Session& session, const std::string& event) {
        spdlog::info("{} {}", AddressText(session.address), FromWire(event));
    });
    lobby_.SetAcknowledged([](const Session& session) {
        return platform::AcknowledgedBytes(static_cast<int>(session.connection->socket.native_handle()));
    });
    ApplyProxyRules();
}

void Transport::Configure(const ListenOptions& listen) {
    if (listen.bindAddress != listen_.bindAddress || listen.port != listen_.port)
        spdlog::warn("Another address or port needs a restart of the lobby");
    listen_.keepAliveSeconds = listen.keepAliveSeconds;
    listen_.proxies = listen.proxies;
    ApplyProxyRules();
}

void Transport::ApplyProxyRules() {
    proxyGate_.Configure({listen_.proxies, lobby_.Bounds().handshake, lobby_.Bounds().maxClients});
}

void Transport::Arrive(TcpSocket socket, const ClientAddress& address) {
    if (proxyGate_.IsProxy(address))
        proxyGate_.Receive(std::move(socket), address);
    else
        Admit(std::move(socket), address, {});
}

void Transport::ArriveWithoutRoom(TcpSocket& socket, const ClientAddress& address) {
    Refuse(socket, address, std::string(RefusalReason(Refusal::LobbyFull)));
}

// received: what the client has sent already.
void Transport::Admit(TcpSocket socket, const ClientAddress& address, std::string_view received) {
    auto connection = std::make_unique<Connection>(std::move(socket), address, lobby_.Bounds());
    if (const auto refusal = lobby_.Enter(connection->session, Clock::now())) {
        Refuse(connection->socket, address, *refusal);
        return;
    }
    spdlog::info("{} has connected", ClientText(connection->session));
    connection->place = connections_.size();
    asio::error_code ignored;
    connection->socket.non_blocking(true, ignored);
    connection->socket.set_option(asio::ip::tcp::no_delay(true), ignored);
    platform::EnableKeepAlive(static_cast<int>(connection->socket.native_handle()), listen_.keepAliveSeconds);
    Session& session = connection->session;
    connections_.push_back(std::move(connection));
    if (!received.empty())
        lobby_.Receive(session, received, Clock::now());
}

void Transport::Refuse(TcpSocket& socket, const ClientAddress& address, const std::string& sentence) {
    const std::string text = lobby_.Refuse(sentence);
    refusals_.Tell(address, FromWire(sentence), Clock::now());
    asio::error_code ignored;
    socket.non_blocking(true, ignored);
    socket.write_some(asio::buffer(text), ignored);
    socket.shutdown(TcpSocket::shutdown_send, ignored);
    socket.close(ignored);
}

void Transport::WaitToRead(Connection& connection) {
    connection.reading = true;
    connection.socket.async_wait(TcpSocket::wait_read, [this, &connection](const asio::error_code&) {
        ReadInTurn(connection);
        AfterEvent();
    });
}

// Players are read from at once. Who is no user yet, or has sent something that was dropped, waits for a
// slice of time; until then its connection counts as one with a pending wait.
void Transport::ReadInTurn(Connection& connection) {
    if (connection.session.IsUseful() || connection.closed) {
        Read(connection, scratch_.size());
        return;
    }
    late_.push_back(&connection);
    if (late_.size() == 1)
        chores_.Add([this] { return ReadNextLate(); });
}

bool Transport::ReadNextLate() {
    Connection& next = *late_.front();
    late_.pop_front();
    Read(next, kLateRead);
    return !late_.empty();
}

void Transport::Read(Connection& connection, std::size_t most) {
    connection.reading = false;
    if (connection.closed) {
        FreeWhenIdle(connection);
        return;
    }
    asio::error_code error;
    const std::size_t size = connection.socket.read_some(asio::buffer(scratch_, most), error);
    if (error && error != asio::error::would_block) {
        Drop(connection, error == asio::error::eof ? "it closed the connection" : error.message());
        return;
    }
    if (size > 0 && !stopping_)
        lobby_.Receive(connection.session, {scratch_.data(), size}, Clock::now());
    if (!connection.session.paused)
        WaitToRead(connection);
}

void Transport::WaitToWrite(Connection& connection) {
    connection.writing = true;
    connection.socket.async_wait(TcpSocket::wait_write, [this, &connection](const asio::error_code&) {
        connection.writing = false;
        if (connection.closed)
            FreeWhenIdle(connection);
        else
            FinishOrDrop(connection, Flush(connection));
        AfterEvent();
    });
}

// Sends as much as the socket takes. False if the connection has failed or its reader is too slow: the caller
// drops it.
bool Transport::Flush(Connection& connection) {
    Outbox& box = connection.session.box;
    while (!connection.writing && lobby_.Out().Unsent(box) > 0) {
        asio::error_code error;
        const auto& parts = lobby_.Out().Pending(box, kParts);
        const std::size_t sent = SendSome(connection.socket, parts, error);
        if (error == asio::error::would_block) {
            lobby_.Out().Hold(box);
            WaitToWrite(connection);
        } else if (error)
            return false;
        else
            lobby_.Out().Sent(box, sent);
    }
    lobby_.Out().QueueAnnouncements(box);
    if (lobby_.Out().HeldBy(box) <= lobby_.Bounds().unsentBytes)
        return true;
    ++lobby_.Counts().slowReaders;
    return false;
}

void Transport::FinishOrDrop(Connection& connection, bool sent) {
    if (!sent) {
        DropUnsent(connection);
        return;
    }
    const bool leaving = stopping_ || connection.session.stage == Stage::Dismissed;
    if (!leaving || connection.finished || lobby_.Out().Unsent(connection.session.box) > 0)
        return;
    connection.finished = true;
    asio::error_code ignored;
    connection.socket.shutdown(TcpSocket::shutdown_send, ignored);
}

void Transport::DropUnsent(Connection& connection) {
    const std::size_t held = lobby_.Out().HeldBy(connection.session.box);
    Drop(connection, held <= lobby_.Bounds().unsentBytes
                         ? "a write has failed"
                         : "it does not read, and " + std::to_string(held) + " bytes are held for it");
}

void Transport::Drop(Connection& connection, const std::string& reason) {
    const Session& session = connection.session;
    spdlog::info("{} has left: {}", ClientText(session),
                 session.dismissal.empty() ? reason : FromWire(session.dismissal));
    lobby_.Leave(connection.session);
    connection.closed = true;
    asio::error_code ignored;
    connection.socket.close(ignored);
    FreeWhenIdle(connection);
}

// Frees a closed connection once none of its asynchronous waits is pending.
void Transport::FreeWhenIdle(Connection& connection) {
    if (connection.reading || connection.writing)
        return;
    const std::size_t place = connection.place;
    connections_.back()->place = place;
    std::swap(connections_[place], connections_.back());
    closedConnections_.push_back(std::move(connections_.back()));
    connections_.pop_back();
}

// Runs after every event. What the event caused is sent at once, except announcements.
void Transport::AfterEvent() {
    ServeDue();
    RelieveMemory();
    closedConnections_.clear();
    TrimMemoryLater();
    SetTimer();
    if (stopping_ && connections_.empty())
        io_.stop();
    if (lobby_.Out().HasAnnouncements() && !announcing_)
        BeginAnnouncing();
}

// Drops the clients that keep the most in memory, until what all keep is below the limit. The same happens
// when an allocation has failed and used up the reserve.
void Transport::RelieveMemory() {
    while (lobby_.MemoryHeld() > lobby_.Bounds().memory && DropSlowest()) {
    }
    if (!reserveMemory_.IsUsed())
        return;
    spdlog::warn("Memory has run out; the slowest clients are dropped");
    do
        platform::ReturnFreeMemory();
    while (!reserveMemory_.Refill() && DropSlowest());
}

// False if no client keeps anything in memory.
bool Transport::DropSlowest() {
    Connection* slowest = nullptr;
    std::size_t most = 0;
    for (const auto& connection : connections_) {
        const std::size_t held = connection->closed ? 0 : lobby_.HeldBy(connection->session);
        if (held > most) {
            most = held;
            slowest = connection.get();
        }
    }
    if (slowest == nullptr)
        return false;
    ++lobby_.Counts().memoryDrops;
    Drop(*slowest, "the memory for all clients is full, and it holds " + std::to_string(most) + " bytes");
    return true;
}

// The C library keeps freed memory. Some seconds after a flood it is returned to the system.
void Transport::TrimMemoryLater() {
    peakMemory_ = std::max(peakMemory_, lobby_.MemoryHeld());
    if (trimming_ || peakMemory_ < lobby_.MemoryHeld() + kWorthTrimming)
        return;
    trimming_ = true;
    trim_.expires_after(kTrimPause);
    trim_.async_wait([this](const asio::error_code& cancelled) {
        trimming_ = false;
        if (cancelled)
            return;
        platform::ReturnFreeMemory();
        peakMemory_ = lobby_.MemoryHeld();
    });
}

void Transport::ServeDue() {
    for (auto due = lobby_.TakeDue(); !due.empty(); due = lobby_.TakeDue()) {
        for (Session* session : due) {
            Connection& connection = *session->connection;
            if (connection.closed)
                continue;
            if (session->cutOff) {
                Drop(connection, session->stage == Stage::Dismissed
                                     ? "it did not read that it was dismissed"
                                     : "its client is gone, and one of the same address asks for its name");
                continue;
            }
            const bool sent = Flush(connection);
            FinishOrDrop(connection, sent);
            if (!connection.closed && !connection.reading && !session->paused)
                WaitToRead(connection);
        }
    }
}

void Transport::BeginAnnouncing() {
    if (!announcing_)
        chores_.Add([this] { return AnnounceToNext(); });
    announcing_ = true;
    announcementsEnd_ = lobby_.Out().AnnouncementsEnd();
    unannounced_ = lobby_.Users().size();
}

// Sends one user the announcements, from the last user of the list to the first. Users who leave give their
// place to the last one, and those who come take a place at the end, so that nobody is passed over. What is
// announced meanwhile is sent along, and to those before it in the next round.
bool Transport::AnnounceToNext() {
    unannounced_ = std::min(unannounced_, lobby_.Users().size());
    if (unannounced_ > 0) {
        Connection& connection = *lobby_.Users()[--unannounced_]->connection;
        if (!Flush(connection))
            DropUnsent(connection);
        return true;
    }
    lobby_.Out().ForgetAnnouncements(announcementsEnd_);
    if (lobby_.Out().HasAnnouncements())
        BeginAnnouncing();
    else
        announcing_ = false;
    return announcing_;
}

void Transport::SetTimer() {
    const auto next = lobby_.NextTimer();
    if (!next || (timerTime_ && *timerTime_ <= *next))
        return;
    timerTime_ = next;
    timer_.expires_at(*next);
    timer_.async_wait([this](const asio::error_code& cancelled) {
        if (cancelled)
            return;
        timerTime_.reset();
        lobby_.RunTimers(Clock::now());
        AfterEvent();
    });
}

void Transport::Stop() {
    if (std::exchange(stopping_, true))
        return;
    listener_.Close();
    for (const auto& connection : connections_)
        lobby_.SayGoodbye(connection->session);
    shutdown_.expires_after(kShutdownTimeout);
    shutdown_.async_wait([this](const asio::error_code&) { io_.stop(); });
    AfterEvent();
}

} // namespace tarveth
