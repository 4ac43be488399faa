// A source of its own, since the kernel's header and the C library's one for TCP exclude each other.
#include "platform/server_process.h"

#ifdef __linux__

#include <cstddef>

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace tarveth::platform {

std::optional<std::uint64_t> AcknowledgedBytes(int socket) {
    tcp_info info{};
    socklen_t size = sizeof info;
    if (getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) != 0 ||
        size < offsetof(tcp_info, tcpi_bytes_acked) + sizeof info.tcpi_bytes_acked)
        return std::nullopt;
    return info.tcpi_bytes_acked;
}

} // namespace tarveth::platform

#else

namespace tarveth::platform {

std::optional<std::uint64_t> AcknowledgedBytes(int) {
    return std::nullopt;
}

} // namespace tarveth::platform

#endif
