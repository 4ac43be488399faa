// The figures of the lobby as text: a line for the log, and the text format of Prometheus.
#pragma once

#include "server/Lobby.h"

#include <string>

namespace tarveth {

std::string FiguresLine(const Lobby& lobby);
std::string FiguresForPrometheus(const Lobby& lobby);

} // namespace tarveth
