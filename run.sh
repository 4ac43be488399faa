#!/usr/bin/env bash
# Installs what is missing, builds the game and starts it. Anything given is passed on to the game.
# ./run.sh lobby does the same for the lobby server.
set -euo pipefail
cd "$(dirname "$0")"
source tools/dependencies.sh

if [ "${1-}" = lobby ]; then
    shift
    need g++ cmake ninja-build "${LOBBY_PACKAGES[@]}"
    cmake --preset lobby >/dev/null
    cmake --build --preset lobby
    exec build/lobby/bin/tarveth-lobby "$@"
fi

need "${BUILD_PACKAGES[@]}"
cmake --preset play >/dev/null
cmake --build --preset play
exec build/play/bin/tarveth "$@"
