#include "server/LobbyService.h"

#include "platform/server_process.h"
#include "platform/service_manager.h"
#include "server/figures_text.h"
#include "version.h"

#include <spdlog/spdlog.h>

#include <csignal>
#include <exception>
#include <utility>

namespace tarveth {

LobbyService::LobbyService(asio::io_context& io, const LobbyOptions& options, std::vector<std::string> words)
    : io_(io),
      words_(std::move(words)),
      lobby_(options.limits, options.messageOfTheDay),
      operator_(lobby_, options.bansFile,
                [](const std::string& act) { spdlog::info("The operator: {}", act); }),
      transport_(io, options.listen, lobby_),
      end_(io, SIGINT, SIGTERM),
      figures_(io),
      reload_(io),
      watchdog_(io) {
    lobby_.Names().Reserve(options.reservedNames);
    if (!options.controlPath.empty())
        control_ = OpenControlSocket(io, options.controlPath, [this](const Operator::Words& words) {
            Operator::Answer answer = operator_.Do(words, Clock::now());
            transport_.ServeLobby();
            return answer;
        });
    OnEach(end_, [this] { Stop(); });
    if (const auto signal = platform::FiguresSignal())
        figures_.add(*signal);
    if (const auto signal = platform::ReloadSignal())
        reload_.add(*signal);
    OnEach(figures_, [this] { LogFigures(); });
    OnEach(reload_, [this] { Reload(); });
}

void LobbyService::Run() {
    spdlog::info("tarveth-lobby {} listens on {}, port {}", kVersion,
                 transport_.Endpoint().address().to_string(), transport_.Endpoint().port());
    platform::TellServiceManager("READY=1");
    if (const auto time = platform::WatchdogTime())
        KeepWatchdogQuiet(*time / 2);
    io_.run();
    LogFigures();
    spdlog::info("The lobby is closed");
}

void LobbyService::OnEach(asio::signal_set& signals, std::function<void()> act) {
    signals.async_wait([this, &signals, act = std::move(act)](const asio::error_code& cancelled, int) {
        if (cancelled)
            return;
        act();
        OnEach(signals, act);
    });
}

void LobbyService::Apply(const LobbyOptions& options) {
    operator_.Reload(options.bansFile, Clock::now());
    lobby_.Configure(options.limits, options.messageOfTheDay);
    lobby_.Names().Reserve(options.reservedNames);
    transport_.Configure(options.listen);
    transport_.ServeLobby();
    spdlog::set_level(spdlog::level::from_str(options.logLevel));
}

// Reads the files anew. A fault of theirs is logged, and changes nothing.
void LobbyService::Reload() {
    try {
        Apply(ReadOptions(words_));
        spdlog::info("The configuration has been read again");
    } catch (const std::exception& error) {
        spdlog::error("The configuration stays as it is: {}", error.what());
    }
}

void LobbyService::Stop() {
    platform::TellServiceManager("STOPPING=1");
    if (control_)
        control_->Close();
    transport_.Stop();
}

void LobbyService::LogFigures() const {
    spdlog::info("{}", FiguresLine(lobby_));
}

// The loop that serves the clients also tells the service manager that the lobby is alive, so that a lobby
// that hangs is noticed.
void LobbyService::KeepWatchdogQuiet(std::chrono::microseconds pause) {
    platform::TellServiceManager("WATCHDOG=1");
    watchdog_.expires_after(pause);
    watchdog_.async_wait([this, pause](const asio::error_code& cancelled) {
        if (!cancelled)
            KeepWatchdogQuiet(pause);
    });
}

} // namespace tarveth
