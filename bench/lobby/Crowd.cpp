#include "bench/lobby/Crowd.h"

#include "bench/lobby/ServerProcess.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <stdexcept>

#include <arpa/inet.h>
#include <linux/errqueue.h>
#include <linux/net_tstamp.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tarveth {

namespace {

constexpr double kPatience = 120; // in seconds, for waits that should take a few

// The addresses of crowds begin here.
constexpr std::uint32_t kFirstAddress = 0x7F010001; // 127.1.0.1

// from: the client's own address; 0 for the usual one.
int Connect(int port, std::uint32_t from) {
    const int client = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(from);
    if (from != 0 && bind(client, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("can't come from another address");
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (client < 0 || connect(client, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("can't connect");
    const int on = 1;
    setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return client;
}

} // namespace

Crowd::Crowd(int port, std::size_t size, std::size_t perAddress)
    : epoll_(epoll_create1(0)), members_(size), buffer_(1U << 20) {
    for (std::size_t i = 0; i < size; ++i) {
        const auto from = perAddress == 0 ? 0 : kFirstAddress + static_cast<std::uint32_t>(i / perAddress);
        members_[i].socket = Connect(port, from);
        Watch(members_[i], EPOLLIN, EPOLL_CTL_ADD);
    }
}

Crowd::~Crowd() {
    // A reset avoids TIME_WAIT, which would use up the ports.
    const linger none{1, 0};
    for (const Member& member : members_) {
        setsockopt(member.socket, SOL_SOCKET, SO_LINGER, &none, sizeof none);
        close(member.socket);
    }
    close(epoll_);
}

std::string Crowd::Nick(std::size_t member) {
    const std::string digits = std::to_string(member);
    return "P" + std::string(5 - digits.size(), '0') + digits;
}

void Crowd::Watch(Member& member, std::uint32_t events, int operation) const {
    epoll_event event{};
    event.events = events;
    event.data.u64 = static_cast<std::uint64_t>(&member - members_.data());
    epoll_ctl(epoll_, operation, member.socket, &event);
}

double Crowd::Join() {
    const double start = SecondsNow();
    for (std::size_t i = 0; i < Size(); ++i)
        Send(i, "\251clientver(2.6.4)\251nick(" + Nick(i) + ")\251sendnicks()");
    std::size_t complete = 0;
    ServeUntil([&] { return complete == Size(); },
               [&](std::size_t member, std::string_view) {
                   // update, and one addnick a member
                   complete += members_[member].markers == Size() + 1 ? 1 : 0;
                   faults_ += members_[member].markers > Size() + 1 ? 1 : 0;
                   return std::string_view::npos;
               });
    return SecondsNow() - start;
}

void Crowd::Pair() {
    std::size_t playing = 0;
    for (std::size_t i = 0; i < Size(); i += 2)
        Send(i, "\251invite(" + Nick(i + 1) + "," + Nick(i) + ")");
    ServeUntil([&] { return playing == Size() / 2; },
               [&](std::size_t member, std::string_view bytes) {
                   const std::string partner = Nick(PartnerOf(member));
                   if (bytes.find("\251invite(" + Nick(member)) != std::string_view::npos)
                       Send(member,
                            "\251accept(" + partner + "," + Nick(member) + "," + Nick(member) + " accepts)");
                   playing += bytes.find("\251accept(") != std::string_view::npos ? 1 : 0;
                   return bytes.size();
               });
    // The lobby announces the games; the relay does not. Both are waited for until nothing more arrives.
    for (double quiet = SecondsNow(); SecondsNow() - quiet < 0.3;)
        Serve(50, [&](std::size_t, std::string_view bytes) {
            quiet = SecondsNow();
            return bytes.size();
        });
}

void Crowd::ServeUntil(const std::function<bool()>& done, const Hear& hear) {
    for (const double start = SecondsNow(); !done();) {
        Serve(100, hear);
        if (SecondsNow() - start > kPatience)
            throw std::runtime_error("messages were lost");
    }
}

void Crowd::StampArrivals() {
    const int stamps = SOF_TIMESTAMPING_RX_SOFTWARE | SOF_TIMESTAMPING_SOFTWARE;
    for (const Member& member : members_)
        if (setsockopt(member.socket, SOL_SOCKET, SO_TIMESTAMPING, &stamps, sizeof stamps) != 0)
            throw std::runtime_error("the system does not note when bytes arrive");
}

ssize_t Crowd::Receive(int socket) {
    std::array<char, 256> control{};
    iovec bytes{buffer_.data(), buffer_.size()};
    msghdr message{};
    message.msg_iov = &bytes;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    const ssize_t size = recvmsg(socket, &message, MSG_DONTWAIT);
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part != nullptr; part = CMSG_NXTHDR(&message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_TIMESTAMPING)
            continue;
        timespec time{};
        std::memcpy(&time, CMSG_DATA(part), sizeof time);
        arrival_ = static_cast<std::uint64_t>(time.tv_sec) * 1'000'000 +
                   static_cast<std::uint64_t>(time.tv_nsec) / 1000;
    }
    return size;
}

void Crowd::Serve(int milliseconds, const Hear& hear, std::size_t most) {
    std::array<epoll_event, kMostEvents> events{};
    const int count = epoll_wait(epoll_, events.data(), static_cast<int>(most), milliseconds);
    for (int i = 0; i < count; ++i) {
        const epoll_event& event = events.at(static_cast<std::size_t>(i));
        if ((event.events & EPOLLOUT) != 0)
            Retry(members_[event.data.u64]);
        if ((event.events & ~EPOLLOUT) != 0)
            Read(event.data.u64, hear);
    }
}

void Crowd::Read(std::size_t member, const Hear& hear) {
    Member& m = members_[member];
    const ssize_t size = Receive(m.socket);
    if (size <= 0)
        throw std::runtime_error("the server has closed a connection");
    std::string_view bytes(buffer_.data(), static_cast<std::size_t>(size));
    m.markers += static_cast<std::uint64_t>(std::ranges::count(bytes, '\251'));
    if (!m.kept.empty()) {
        m.kept.append(bytes);
        bytes = m.kept;
    }
    const std::size_t understood = std::min(bytes.size(), hear(member, bytes));
    m.kept = std::string(bytes.substr(understood));
}

void Crowd::Send(std::size_t member, std::string_view bytes) {
    Member& m = members_[member];
    const ssize_t sent =
        m.unsent.empty() ? send(m.socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT) : 0;
    const std::size_t gone = sent > 0 ? static_cast<std::size_t>(sent) : 0;
    if (gone == bytes.size())
        return;
    m.unsent.append(bytes.substr(gone));
    Watch(m, EPOLLIN | EPOLLOUT, EPOLL_CTL_MOD);
}

void Crowd::Retry(Member& member) const {
    const ssize_t sent =
        send(member.socket, member.unsent.data(), member.unsent.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent > 0)
        member.unsent.erase(0, static_cast<std::size_t>(sent));
    if (member.unsent.empty())
        Watch(member, EPOLLIN, EPOLL_CTL_MOD);
}

void Crowd::AppendMove(std::string& text, std::size_t member, std::uint64_t time) {
    std::array<char, 24> digits{};
    const auto number = [&](std::uint64_t value) {
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        return std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()));
    };
    // The partner's nickname is written in place: a string for each move would cost more than sending it.
    std::array<char, 7> nick = {'P', '0', '0', '0', '0', '0', ','};
    std::size_t rest = PartnerOf(member);
    for (std::size_t place = 5; rest > 0; --place, rest /= 10)
        nick.at(place) = static_cast<char>('0' + rest % 10);
    text.append("\251play(").append(nick.data(), nick.size()).append("M(");
    text.append(number(members_[member].sent++)).append(", ");
    text.append(number(time)).append("))");
}

} // namespace tarveth
