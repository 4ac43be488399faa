// The yardstick of the lobby's benches: a minimal program that carries the same messages from one client to
// another. It checks nothing, limits nothing, and forgets no client. It prints its port and then serves.
#include <array>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

struct Peer {
    int socket = -1;
    Peer* partner = nullptr;
    std::string nick;
    std::string kept;          // an incomplete message
    std::string unsent;        // bytes that the socket did not take
    std::size_t newsHeard = 0; // bytes of this turn's announcements
    bool listening = false;
};

class Relay {
public:
    Relay();
    [[noreturn]] void Run();

private:
    void Accept();
    void Read(Peer& peer);
    std::size_t HandleText(Peer& peer, std::string_view bytes);
    void Handle(Peer& peer, std::string_view message);
    void Send(Peer& peer, std::string_view bytes);
    void Retry(Peer& peer);
    void TellNews();

    int listener_ = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    int epoll_ = epoll_create1(0);
    std::vector<Peer*> peers_;
    std::unordered_map<std::string, Peer*> names_;
    std::string roster_;
    std::string news_; // the announcements of this turn
    std::array<char, 65536> buffer_{};
};

Relay::Relay() {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(listener_, 4096) != 0)
        std::perror("relay");
    getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    epoll_event event{EPOLLIN, {nullptr}};
    epoll_ctl(epoll_, EPOLL_CTL_ADD, listener_, &event);
    std::fprintf(stderr, "relay listens on 127.0.0.1, port %d\n", ntohs(address.sin_port));
}

void Relay::Run() {
    std::array<epoll_event, 1024> events{};
    for (;;) {
        const int count = epoll_wait(epoll_, events.data(), static_cast<int>(events.size()), -1);
        for (int i = 0; i < count; ++i) {
            const epoll_event& event = events.at(static_cast<std::size_t>(i));
            auto* peer = static_cast<Peer*>(event.data.ptr);
            if (peer == nullptr) {
                Accept();
                continue;
            }
            if ((event.events & EPOLLOUT) != 0)
                Retry(*peer);
            if ((event.events & ~EPOLLOUT) != 0)
                Read(*peer);
        }
        if (!news_.empty())
            TellNews();
    }
}

void Relay::Accept() {
    for (int socket = 0; (socket = accept4(listener_, nullptr, nullptr, SOCK_NONBLOCK)) >= 0;) {
        const int on = 1;
        setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        auto* peer = new Peer;
        peer->socket = socket;
        peers_.push_back(peer);
        epoll_event event{EPOLLIN, {peer}};
        epoll_ctl(epoll_, EPOLL_CTL_ADD, socket, &event);
        Send(*peer, "\251update(2.6.4)");
    }
}

void Relay::Read(Peer& peer) {
    const ssize_t size = recv(peer.socket, buffer_.data(), buffer_.size(), 0);
    if (size <= 0) {
        epoll_ctl(epoll_, EPOLL_CTL_DEL, peer.socket, nullptr);
        return;
    }
    const std::string_view bytes(buffer_.data(), static_cast<std::size_t>(size));
    if (peer.partner != nullptr) {
        Send(*peer.partner, bytes);
        return;
    }
    peer.kept.append(bytes);
    peer.kept.erase(0, HandleText(peer, peer.kept));
}

// How much of the bytes has been handled.
std::size_t Relay::HandleText(Peer& peer, std::string_view bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::string_view rest = bytes.substr(done);
        const std::size_t end = rest.find(rest.front() == '\251' ? ')' : '\n');
        if (end == std::string_view::npos)
            break;
        const std::string_view piece = rest.substr(0, end + 1);
        if (rest.front() == '\251')
            Handle(peer, piece);
        else
            news_.append(peer.nick).append(": ").append(piece);
        done += end + 1;
    }
    return done;
}

void Relay::Handle(Peer& peer, std::string_view message) {
    const std::string_view arguments = message.substr(message.find('(') + 1);
    const std::string first(arguments.substr(0, arguments.find_first_of(",)")));
    if (message.starts_with("\251nick(")) {
        peer.nick = first;
        names_[first] = &peer;
        const std::string line = "\251addnick(" + first + ",0)";
        roster_ += line;
        news_ += line;
    } else if (message.starts_with("\251sendnicks(")) {
        Send(peer, roster_);
        peer.listening = true;
        peer.newsHeard = news_.size();
    } else if (message.starts_with("\251invite(")) {
        Send(*names_[first], message);
    } else if (message.starts_with("\251accept(")) {
        Send(*names_[first], message);
        peer.partner = names_[first];
        peer.partner->partner = &peer;
    }
}

void Relay::Send(Peer& peer, std::string_view bytes) {
    if (!peer.unsent.empty()) {
        peer.unsent.append(bytes);
        return;
    }
    const ssize_t sent = send(peer.socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent == static_cast<ssize_t>(bytes.size()))
        return;
    peer.unsent = bytes.substr(sent > 0 ? static_cast<std::size_t>(sent) : 0);
    epoll_event event{EPOLLIN | EPOLLOUT, {&peer}};
    epoll_ctl(epoll_, EPOLL_CTL_MOD, peer.socket, &event);
}

void Relay::Retry(Peer& peer) {
    const ssize_t sent = send(peer.socket, peer.unsent.data(), peer.unsent.size(), MSG_NOSIGNAL);
    if (sent > 0)
        peer.unsent.erase(0, static_cast<std::size_t>(sent));
    if (!peer.unsent.empty())
        return;
    epoll_event event{EPOLLIN, {&peer}};
    epoll_ctl(epoll_, EPOLL_CTL_MOD, peer.socket, &event);
}

void Relay::TellNews() {
    for (Peer* peer : peers_) {
        if (peer->listening && peer->newsHeard < news_.size())
            Send(*peer, std::string_view(news_).substr(peer->newsHeard));
        peer->newsHeard = 0;
    }
    news_.clear();
}

} // namespace

int main() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
    Relay().Run();
}
