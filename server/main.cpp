// tarveth-lobby: reads the command line, starts the server, and hands it the signals.
#include "platform/server_process.h"
#include "server/Server.h"
#include "server/options.h"
#include "version.h"

#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>

#include <csignal>
#include <exception>

namespace tarveth {

namespace {

void StartLog(const std::string& level) {
    spdlog::set_default_logger(spdlog::stderr_logger_st("lobby"));
    spdlog::set_level(spdlog::level::from_str(level));
    spdlog::set_pattern("%Y-%m-%d %H:%M:%S.%e %l: %v");
    spdlog::flush_on(spdlog::level::debug);
}

void WaitForFigures(asio::signal_set& signal, Server& server) {
    signal.async_wait([&signal, &server](const asio::error_code& cancelled, int) {
        if (cancelled)
            return;
        server.LogFigures();
        WaitForFigures(signal, server);
    });
}

void Serve(const LobbyOptions& options) {
    platform::RaiseOpenFileLimit();
    platform::IgnoreSigpipe();
    asio::io_context io(platform::SignalHandlersRunOnAnotherThread() ? 1 : ASIO_CONCURRENCY_HINT_UNSAFE);
    asio::signal_set end(io, SIGINT, SIGTERM);
    asio::signal_set figures(io);
    Server server(io, options.reach, options.limits, options.messageOfTheDay);
    end.async_wait([&server](const asio::error_code& cancelled, int) {
        if (!cancelled)
            server.Stop();
    });
    if (const auto signal = platform::FiguresSignal()) {
        figures.add(*signal);
        WaitForFigures(figures, server);
    }
    spdlog::info("tarveth-lobby {} listens on {}, port {}", kVersion, server.Endpoint().address().to_string(),
                 server.Endpoint().port());
    io.run();
    server.LogFigures();
    spdlog::info("The lobby is closed");
}

} // namespace

} // namespace tarveth

int main(int count, char** arguments) {
    int exitCode = 0;
    const auto options = tarveth::ReadCommandLine(count, arguments, exitCode);
    if (!options)
        return exitCode;
    try {
        tarveth::StartLog(options->logLevel);
        tarveth::Serve(*options);
    } catch (const std::exception& error) {
        spdlog::error("The lobby can't run on {}, port {}: {}", options->reach.bind, options->reach.port,
                      error.what());
        return 1;
    }
    return 0;
}
