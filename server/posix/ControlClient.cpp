#include "server/posix/ControlClient.h"

#include "platform/posix/descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <system_error>

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarveth {

namespace {

[[noreturn]] void Fail(const std::string& path, const std::string& what) {
    throw ControlError("The lobby can't be reached at " + path + ": " + what);
}

[[noreturn]] void FailWithError(const std::string& path) {
    const bool late = errno == EAGAIN || errno == EWOULDBLOCK;
    Fail(path, late ? "it does not answer" : std::generic_category().message(errno));
}

void Connect(int socket, const std::string& path, int seconds) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        Fail(path, "the path is too long");
    std::memcpy(address.sun_path, path.data(), path.size());
    const timeval patience{seconds, 0};
    setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    if (connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        FailWithError(path);
}

// The words with tabs between them; a tab or a line end in a word becomes a blank.
std::string RequestLine(std::vector<std::string> words) {
    std::string line;
    for (std::string& word : words) {
        std::ranges::replace_if(
            word, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
        line += (line.empty() ? "" : "\t") + word;
    }
    return line + "\n";
}

void Send(int socket, const std::string& path, std::string_view text) {
    while (!text.empty()) {
        const ssize_t sent = send(socket, text.data(), text.size(), MSG_NOSIGNAL);
        if (sent < 0)
            FailWithError(path);
        text.remove_prefix(static_cast<std::size_t>(sent));
    }
}

std::string ReceiveAll(int socket, const std::string& path) {
    std::string text;
    std::array<char, 65536> part{};
    for (;;) {
        const ssize_t size = recv(socket, part.data(), part.size(), 0);
        if (size < 0)
            FailWithError(path);
        if (size == 0)
            return text;
        text.append(part.data(), static_cast<std::size_t>(size));
    }
}

} // namespace

ControlAnswer AskLobby(const std::string& path, std::vector<std::string> words, int seconds) {
    const platform::Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!socket.IsOpen())
        FailWithError(path);
    Connect(socket.Number(), path, seconds);
    Send(socket.Number(), path, RequestLine(std::move(words)));
    const std::string text = ReceiveAll(socket.Number(), path);
    const std::size_t end = text.find('\n');
    if (end == std::string::npos)
        Fail(path, "it has closed the connection without an answer");
    return {text.substr(0, end) == "ok", text.substr(end + 1)};
}

} // namespace tarveth
