#include "server/ControlSocket.h"

#include <asio/local/stream_protocol.hpp>
#include <asio/read_until.hpp>
#include <asio/write.hpp>

#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarveth {

namespace {

using namespace std::chrono_literals;
using Local = asio::local::stream_protocol;

constexpr std::size_t kLongestRequest = 8192;

// How long a request and the reading of its answer may take.
constexpr auto kPatience = 30s;

// How long the socket waits before it accepts again after an error, such as a lack of descriptors.
constexpr auto kRetryPause = 200ms;

Operator::Words SplitWords(std::string_view line) {
    Operator::Words words;
    for (;;) {
        const std::size_t end = line.find('\t');
        words.emplace_back(line.substr(0, end));
        if (end == std::string_view::npos)
            return words;
        line.remove_prefix(end + 1);
    }
}

// Whether the program at the other end runs as the lobby's own user or as the superuser. The file's
// permissions say the same; they are not asked on every system.
bool IsOwner(int socket) {
#ifdef SO_PEERCRED
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           (peer.uid == geteuid() || peer.uid == 0);
#else
    uid_t user = 0;
    gid_t group = 0;
    return getpeereid(socket, &user, &group) == 0 && (user == geteuid() || user == 0);
#endif
}

// One request. The handlers of its waits keep it alive.
struct Request : std::enable_shared_from_this<Request> {
    Request(asio::io_context& io, Local::socket connected, const ControlSocket::Handle& handler)
        : socket(std::move(connected)), timer(io), handle(handler) {}

    void Start() {
        timer.expires_after(kPatience);
        timer.async_wait([self = shared_from_this()](const asio::error_code& cancelled) {
            asio::error_code ignored;
            if (!cancelled)
                self->socket.close(ignored);
        });
        asio::async_read_until(socket, asio::dynamic_buffer(text, kLongestRequest), '\n',
                               [self = shared_from_this()](const asio::error_code& error, std::size_t size) {
                                   if (error)
                                       self->timer.cancel();
                                   else
                                       self->Answer(std::string_view(self->text).substr(0, size - 1));
                               });
    }

    void Answer(std::string_view line) {
        const Operator::Answer answer = handle(SplitWords(line));
        text = (answer.done ? "ok\n" : "error\n") + answer.text;
        asio::async_write(
            socket, asio::buffer(text),
            [self = shared_from_this()](const asio::error_code&, std::size_t) { self->timer.cancel(); });
    }

    Local::socket socket;
    asio::steady_timer timer;
    const ControlSocket::Handle& handle;
    std::string text;
};

// Removes the socket of a lobby that has ended; one that still listens is an error.
void RemoveLeftover(asio::io_context& io, const std::string& path) {
    if (std::error_code none; !std::filesystem::is_socket(path, none))
        return;
    Local::socket probe(io);
    asio::error_code error;
    probe.connect({path}, error);
    if (!error)
        throw std::runtime_error(path + " is the socket of another lobby that runs");
    unlink(path.c_str());
}

class PosixControlSocket : public ControlSocket {
public:
    PosixControlSocket(asio::io_context& io, const std::string& path, Handle handle)
        : io_(io), path_(path), handle_(std::move(handle)), acceptor_(io), retry_(io) {
        RemoveLeftover(io, path);
        acceptor_.open();
        // The socket's file is made with the permissions that the mask leaves: its owner's alone.
        const mode_t mask = umask(S_IXUSR | S_IRWXG | S_IRWXO);
        asio::error_code error;
        acceptor_.bind({path}, error);
        umask(mask);
        if (error)
            throw std::runtime_error(path + ": " + error.message());
        acceptor_.listen();
        Accept();
    }
    ~PosixControlSocket() override { Remove(); }

    void Close() override {
        asio::error_code ignored;
        acceptor_.close(ignored);
        retry_.cancel();
        Remove();
    }

private:
    void Accept() {
        acceptor_.async_accept([this](const asio::error_code& error, Local::socket socket) {
            if (error == asio::error::operation_aborted)
                return;
            if (error) {
                AcceptLater();
                return;
            }
            if (IsOwner(socket.native_handle()))
                std::make_shared<Request>(io_, std::move(socket), handle_)->Start();
            Accept();
        });
    }

    void AcceptLater() {
        retry_.expires_after(kRetryPause);
        retry_.async_wait([this](const asio::error_code& cancelled) {
            if (!cancelled)
                Accept();
        });
    }

    void Remove() {
        if (!std::exchange(removed_, true))
            unlink(path_.c_str());
    }

    asio::io_context& io_;
    std::string path_;
    Handle handle_;
    Local::acceptor acceptor_;
    asio::steady_timer retry_;
    bool removed_ = false;
};

} // namespace

std::unique_ptr<ControlSocket> OpenControlSocket(asio::io_context& io, const std::string& path,
                                                 ControlSocket::Handle handle) {
    return std::make_unique<PosixControlSocket>(io, path, std::move(handle));
}

} // namespace tarveth
