#!/usr/bin/env bash
# Installs what is missing and builds the game and the lobby server for 64-bit Windows, each as one file that needs no
# other, with a zip and an installer for players. The first time the toolkit is built as well.
set -euo pipefail
cd "$(dirname "$0")"
source tools/dependencies.sh

need "${WINDOWS_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}"
TARVETH_WX=$(tools/build-wx-windows)
export TARVETH_WX
cmake --preset manual >/dev/null
cmake --build --preset manual
cmake --preset windows >/dev/null
cmake --build --preset windows
echo "For players: $(echo build/windows/tarveth-*-windows.zip build/windows/tarveth-*-setup.exe)"
echo "To try it here: wine build/windows/bin/tarveth.exe"
