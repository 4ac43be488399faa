// tarveth-lobby: reads the command line and runs the lobby.
#include "platform/server_process.h"
#include "server/LobbyService.h"
#include "server/LogSink.h"
#include "server/options.h"

#include <spdlog/spdlog.h>

#include <exception>
#include <memory>
#include <string>

namespace tarveth {

namespace {

void StartLog(const std::string& level) {
    spdlog::set_default_logger(std::make_shared<spdlog::logger>("lobby", std::make_shared<LogSink>()));
    spdlog::set_level(spdlog::level::from_str(level));
    spdlog::set_pattern("%Y-%m-%d %H:%M:%S.%e %l: %v");
}

} // namespace

} // namespace tarveth

int main(int count, char** arguments) {
    using namespace tarveth;
    int exitCode = 0;
    const auto options = ReadCommandLine(count, arguments, exitCode);
    if (!options)
        return exitCode;
    try {
        StartLog(options->logLevel);
        platform::RaiseOpenFileLimit();
        platform::IgnoreSigpipe();
        asio::io_context io(platform::SignalHandlersRunOnAnotherThread() ? 1 : ASIO_CONCURRENCY_HINT_UNSAFE);
        LobbyService(io, *options, {arguments + 1, arguments + count}).Run();
    } catch (const std::exception& error) {
        spdlog::error("The lobby can't run on {}, port {}: {}", options->listen.bindAddress,
                      options->listen.port, error.what());
        return 1;
    }
    return 0;
}
