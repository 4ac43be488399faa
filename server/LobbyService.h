// The running lobby: makes its parts, and passes on to them what comes from signals, from the control socket
// and from the service manager.
#pragma once

#include "server/ControlSocket.h"
#include "server/Lobby.h"
#include "server/Operator.h"
#include "server/Transport.h"
#include "server/options.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarveth {

class LobbyService {
public:
    // Begins to listen. words: the command line, which is read again with its files when a signal asks for
    // it. Throws std::exception if something that the options name cannot be used.
    LobbyService(asio::io_context& io, const LobbyOptions& options, std::vector<std::string> words);

    // Serves until a signal ends it.
    void Run();

private:
    void OnEach(asio::signal_set& signals, std::function<void()> act);
    void Apply(const LobbyOptions& options);
    void Reload();
    void Stop();
    void LogFigures() const;
    void KeepWatchdogQuiet(std::chrono::microseconds pause);

    asio::io_context& io_;
    std::vector<std::string> words_;
    Lobby lobby_;
    Operator operator_;
    Transport transport_;
    std::unique_ptr<ControlSocket> control_; // null if the options name none
    asio::signal_set end_;
    asio::signal_set figures_;
    asio::signal_set reload_;
    asio::steady_timer watchdog_;
};

} // namespace tarveth
