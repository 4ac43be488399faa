// tarveth-lobby: reads the command line, starts the transport, and hands it the signals.
#include "platform/server_process.h"
#include "server/LogSink.h"
#include "server/Transport.h"
#include "server/options.h"
#include "version.h"

#include <spdlog/spdlog.h>

#include <csignal>
#include <exception>
#include <memory>
#include <string>
#include <vector>

namespace tarveth {

namespace {

void StartLog(const std::string& level) {
    spdlog::set_default_logger(std::make_shared<spdlog::logger>("lobby", std::make_shared<LogSink>()));
    spdlog::set_level(spdlog::level::from_str(level));
    spdlog::set_pattern("%Y-%m-%d %H:%M:%S.%e %l: %v");
}

void WaitForFigures(asio::signal_set& signal, Transport& transport) {
    signal.async_wait([&signal, &transport](const asio::error_code& cancelled, int) {
        if (cancelled)
            return;
        transport.LogFigures();
        WaitForFigures(signal, transport);
    });
}

// Reads the files anew. A fault of theirs is logged, and changes nothing.
void Reload(const std::vector<std::string>& words, Transport& transport) {
    try {
        const LobbyOptions options = ReadOptions(words);
        transport.Configure(options.listen, options.limits, options.messageOfTheDay);
        spdlog::set_level(spdlog::level::from_str(options.logLevel));
        spdlog::info("The configuration has been read again");
    } catch (const OptionError& error) {
        spdlog::error("The configuration stays as it is: {}", error.what());
    }
}

void WaitForReload(asio::signal_set& signal, const std::vector<std::string>& words, Transport& transport) {
    signal.async_wait([&signal, &words, &transport](const asio::error_code& cancelled, int) {
        if (cancelled)
            return;
        Reload(words, transport);
        WaitForReload(signal, words, transport);
    });
}

void Serve(const LobbyOptions& options, const std::vector<std::string>& words) {
    platform::RaiseOpenFileLimit();
    platform::IgnoreSigpipe();
    asio::io_context io(platform::SignalHandlersRunOnAnotherThread() ? 1 : ASIO_CONCURRENCY_HINT_UNSAFE);
    asio::signal_set end(io, SIGINT, SIGTERM);
    asio::signal_set figures(io);
    asio::signal_set reload(io);
    Transport transport(io, options.listen, options.limits, options.messageOfTheDay);
    end.async_wait([&transport](const asio::error_code& cancelled, int) {
        if (!cancelled)
            transport.Stop();
    });
    if (const auto signal = platform::FiguresSignal()) {
        figures.add(*signal);
        WaitForFigures(figures, transport);
    }
    if (const auto signal = platform::ReloadSignal()) {
        reload.add(*signal);
        WaitForReload(reload, words, transport);
    }
    spdlog::info("tarveth-lobby {} listens on {}, port {}", kVersion,
                 transport.Endpoint().address().to_string(), transport.Endpoint().port());
    io.run();
    transport.LogFigures();
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
        tarveth::Serve(*options, {arguments + 1, arguments + count});
    } catch (const std::exception& error) {
        spdlog::error("The lobby can't run on {}, port {}: {}", options->listen.bindAddress,
                      options->listen.port, error.what());
        return 1;
    }
    return 0;
}
