#include "platform/service_manager.h"

#include "platform/posix/descriptor.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarveth::platform {

namespace {

std::string_view Variable(const char* name) {
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nothing changes the environment
    return value == nullptr ? std::string_view() : value;
}

std::optional<std::int64_t> NumberIn(const char* name) {
    const std::string_view text = Variable(name);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole ? std::optional(number) : std::nullopt;
}

} // namespace

void TellServiceManager(std::string_view state) {
    const std::string_view path = Variable("NOTIFY_SOCKET");
    sockaddr_un address{};
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    if (path.front() == '@')
        address.sun_path[0] = 0; // a name that is no file's
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
    const Descriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (socket.IsOpen())
        sendto(socket.Number(), state.data(), state.size(), MSG_NOSIGNAL | MSG_DONTWAIT,
               reinterpret_cast<const sockaddr*>(&address), size);
}

std::optional<std::chrono::microseconds> WatchdogTime() {
    const auto process = NumberIn("WATCHDOG_PID");
    const auto time = NumberIn("WATCHDOG_USEC");
    if (!time || *time <= 0 || (process && *process != getpid()))
        return std::nullopt;
    return std::chrono::microseconds(*time);
}

} // namespace tarveth::platform
