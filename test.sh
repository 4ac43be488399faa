#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every check and test, without a screen.
set -euo pipefail
cd "$(dirname "$0")"
source tools/dependencies.sh

need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" git python3 clang-format-14 clang-tidy-14 libgtest-dev libbenchmark-dev \
    "${WINDOW_TEST_PACKAGES[@]}"

echo "== Formatting and small checks"
tools/check-format
tools/check-rooms

echo "== Release: build, lint, test"
cmake --preset release >/dev/null
cmake --build --preset release
tools/check-headers build/release
tools/check-lint build/release
ctest --preset release

echo "== Sanitizers: build, test"
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize
ctest --preset sanitize
