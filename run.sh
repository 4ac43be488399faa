#!/usr/bin/env bash
# Installs what is missing, builds the game and starts it. Anything given is passed on to the game.
set -euo pipefail
cd "$(dirname "$0")"
source tools/dependencies.sh

need "${BUILD_PACKAGES[@]}"
cmake --preset play >/dev/null
cmake --build --preset play
exec build/play/bin/tarveth "$@"
