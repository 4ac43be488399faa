#include "server/Server.h"

#include "platform/server_process.h"

#include <spdlog/spdlog.h>

#include <span>
#include <utility>

namespace tarveth {

namespace {

using namespace std::chrono_literals;

// So many clients are let in before others are served.
constexpr int kAcceptsInARow = 64;

// When there are no sockets left, not even one to say so, the next try is made after this.
constexpr auto kNoSocketPause = 100ms;

// So long the lobby waits at its end for those who have not been told yet.
constexpr auto kGoodbye = 1s;

// Parts of one sending.
constexpr std::size_t kParts = 64;

bool IsLackOfSockets(const asio::error_code& error) {
    return error == asio::error::no_descriptors || error == asio::error::no_buffer_space ||
           error == asio::error::no_memory || error == std::errc::too_many_files_open_in_system;
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

Server::Server(asio::io_context& io, const Reach& reach, const Limits& limits, std::string messageOfTheDay)
    : io_(io),
      acceptor_(io, {asio::ip::make_address(reach.bind), reach.port}, platform::ListenerSetsReuseAddress()),
      reserve_(io),
      alarm_(io),
      retry_(io),
      reach_(reach),
      addresses_(reach.perAddress),
      lobby_(limits, std::move(messageOfTheDay)) {
    acceptor_.non_blocking(true);
    reserve_.open(asio::ip::tcp::v4());
    WaitForClients();
}

void Server::WaitForClients() {
    acceptor_.async_wait(TcpAcceptor::wait_read, [this](const asio::error_code& error) {
        if (!error)
            AcceptClients();
    });
}

void Server::AcceptClients() {
    for (int i = 0; i < kAcceptsInARow; ++i) {
        asio::error_code error;
        asio::ip::tcp::endpoint peer;
        TcpSocket socket(io_);
        acceptor_.accept(socket, peer, error);
        if (error == asio::error::would_block)
            break;
        if (!error) {
            Admit(std::move(socket), peer.address());
        } else if (IsLackOfSockets(error) && !RefuseForLackOfSockets()) {
            retry_.expires_after(kNoSocketPause);
            retry_.async_wait([this](const asio::error_code& cancelled) {
                if (!cancelled)
                    WaitForClients();
            });
            return;
        }
    }
    WaitForClients();
    AfterEvent();
}

void Server::Admit(TcpSocket socket, const asio::ip::address& address) {
    if (connections_.size() >= reach_.maxClients) {
        Refuse(socket, "The lobby is full. Please try again later.");
        return;
    }
    if (!addresses_.Enter(address)) {
        Refuse(socket, "There are too many connections from your address.");
        return;
    }
    asio::error_code ignored;
    socket.non_blocking(true, ignored);
    socket.set_option(asio::ip::tcp::no_delay(true), ignored);
    platform::EnableKeepAlive(static_cast<int>(socket.native_handle()));
    auto connection = std::make_unique<Connection>(std::move(socket), address, lobby_.Bounds());
    connection->place = connections_.size();
    connections_.push_back(std::move(connection));
    lobby_.Enter(connections_.back()->session, Clock::now());
}

// The spare socket makes room to accept one client and tell him. False if that could not be done.
bool Server::RefuseForLackOfSockets() {
    asio::error_code error;
    reserve_.close(error);
    TcpSocket socket(io_);
    acceptor_.accept(socket, error);
    const bool accepted = !error;
    if (accepted)
        Refuse(socket, "The lobby is full. Please try again later.");
    reserve_.open(asio::ip::tcp::v4(), error);
    return accepted && !error;
}

void Server::Refuse(TcpSocket& socket, std::string_view why) {
    ++lobby_.Counts().refusedArrivals;
    spdlog::debug("A client was refused: {}", why);
    asio::error_code ignored;
    socket.non_blocking(true, ignored);
    const std::string text = "\251alert(" + std::string(why) + ")";
    socket.write_some(asio::buffer(text), ignored);
    socket.shutdown(TcpSocket::shutdown_send, ignored);
    socket.close(ignored);
}

void Server::WaitToRead(Connection& connection) {
    connection.reading = true;
    connection.socket.async_wait(TcpSocket::wait_read, [this, &connection](const asio::error_code&) {
        connection.reading = false;
        if (connection.closed)
            Bury(connection);
        else
            Read(connection);
        AfterEvent();
    });
}

void Server::Read(Connection& connection) {
    asio::error_code error;
    const std::size_t size = connection.socket.read_some(asio::buffer(scratch_), error);
    if (error && error != asio::error::would_block) {
        spdlog::debug("A client has gone: {}", error.message());
        Drop(connection);
        return;
    }
    if (size > 0 && !stopping_)
        lobby_.Receive(connection.session, {scratch_.data(), size}, Clock::now());
    if (!connection.session.paused)
        WaitToRead(connection);
}

void Server::WaitToWrite(Connection& connection) {
    connection.writing = true;
    connection.socket.async_wait(TcpSocket::wait_write, [this, &connection](const asio::error_code&) {
        connection.writing = false;
        if (connection.closed)
            Bury(connection);
        else
            FinishOrDrop(connection, Flush(connection));
        AfterEvent();
    });
}

// Sends what goes. False if the connection is of no more use; it is then to be dropped.
bool Server::Flush(Connection& connection) {
    Outbox& box = connection.session.box;
    while (!connection.writing && lobby_.Out().Unsent(box) > 0) {
        asio::error_code error;
        const auto& parts = lobby_.Out().Pending(box, kParts);
        const std::size_t sent = SendSome(connection.socket, parts, error);
        if (error == asio::error::would_block)
            WaitToWrite(connection);
        else if (error)
            return false;
        else
            lobby_.Out().Sent(box, sent);
    }
    lobby_.Out().KeepAnnouncements(box);
    if (lobby_.Out().Unsent(box) <= lobby_.Bounds().unsentBytes)
        return true;
    ++lobby_.Counts().slowReaders;
    spdlog::info("{} was dropped: {} bytes wait to be read", connection.session.nick, box.unsent);
    return false;
}

void Server::FinishOrDrop(Connection& connection, bool sent) {
    if (!sent) {
        Drop(connection);
        return;
    }
    const bool leaving = stopping_ || connection.session.stage == Stage::Dismissed;
    if (!leaving || connection.finished || lobby_.Out().Unsent(connection.session.box) > 0)
        return;
    connection.finished = true;
    asio::error_code ignored;
    connection.socket.shutdown(TcpSocket::shutdown_send, ignored);
}

void Server::Drop(Connection& connection) {
    lobby_.Leave(connection.session);
    addresses_.Leave(connection.address);
    connection.closed = true;
    asio::error_code ignored;
    connection.socket.close(ignored);
    Bury(connection);
}

// Once no wait of it is pending.
void Server::Bury(Connection& connection) {
    if (connection.reading || connection.writing)
        return;
    const std::size_t place = connection.place;
    connections_.back()->place = place;
    std::swap(connections_[place], connections_.back());
    graves_.push_back(std::move(connections_.back()));
    connections_.pop_back();
}

// What every event ends with: what it caused is sent at once, except announcements, which are gathered until
// the events that came together with it have been served too.
void Server::AfterEvent() {
    ++eventsServed_;
    ServeDue();
    graves_.clear();
    SetAlarm();
    if (stopping_ && connections_.empty())
        io_.stop();
    if (!lobby_.Out().HasAnnouncements() || announcing_)
        return;
    announcing_ = true;
    announcementTime_ = Clock::now();
    GatherAnnouncements();
}

// While more events come in, a sending to all is put off for as long as the last one took: a crowd that comes
// in at once is announced in a few sendings, a single line without delay.
void Server::GatherAnnouncements() {
    asio::post(io_, [this, before = eventsServed_] {
        if (eventsServed_ != before && Clock::now() < announcementTime_ + lastSending_) {
            GatherAnnouncements();
            return;
        }
        announcing_ = false;
        const Time start = Clock::now();
        SendAnnouncements();
        lastSending_ = Clock::now() - start;
        AfterEvent();
    });
}

void Server::ServeDue() {
    for (auto due = lobby_.TakeDue(); !due.empty(); due = lobby_.TakeDue()) {
        for (Session* session : due) {
            Connection& connection = *session->connection;
            if (connection.closed)
                continue;
            if (session->cutOff) {
                Drop(connection);
                continue;
            }
            const bool sent = Flush(connection);
            FinishOrDrop(connection, sent);
            if (!connection.closed && !connection.reading && !session->paused)
                WaitToRead(connection);
        }
    }
}

void Server::SendAnnouncements() {
    std::vector<Connection*> lost;
    for (Session* user : lobby_.Users())
        if (!Flush(*user->connection))
            lost.push_back(user->connection);
    lobby_.Out().EndTurn();
    for (Connection* connection : lost)
        Drop(*connection);
}

void Server::SetAlarm() {
    const auto next = lobby_.NextWake();
    if (!next || (alarmTime_ && *alarmTime_ <= *next))
        return;
    alarmTime_ = next;
    alarm_.expires_at(*next);
    alarm_.async_wait([this](const asio::error_code& cancelled) {
        if (cancelled)
            return;
        alarmTime_.reset();
        lobby_.Wake(Clock::now());
        AfterEvent();
    });
}

void Server::Stop() {
    if (std::exchange(stopping_, true))
        return;
    asio::error_code ignored;
    acceptor_.close(ignored);
    retry_.cancel();
    for (const auto& connection : connections_)
        lobby_.SayGoodbye(connection->session);
    retry_.expires_after(kGoodbye);
    retry_.async_wait([this](const asio::error_code&) { io_.stop(); });
    AfterEvent();
}

void Server::LogFigures() {
    const Figures& counts = lobby_.Counts();
    spdlog::info(
        "{} connections, {} users, {} games; {} arrivals, {} refused, {} silent; {} messages, {} moves, "
        "{} chat lines; {} dropped, {} pauses, {} slow readers dropped",
        connections_.size(), lobby_.Users().size(), counts.games, counts.arrivals, counts.refusedArrivals,
        counts.silent, counts.messages, counts.moves, counts.chatLines, counts.dropped, counts.pauses,
        counts.slowReaders);
}

} // namespace tarveth
