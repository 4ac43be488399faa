#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every check and test, without a screen.
set -euo pipefail
cd "$(dirname "$0")"
source tools/dependencies.sh

need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" git python3 clang-format-14 clang-tidy-14 libgtest-dev libbenchmark-dev locales \
    "${WINDOW_TEST_PACKAGES[@]}" "${WINDOWS_PACKAGES[@]}" googletest ccache

# What was compiled before comes from a cache outside the tree, also for another clone.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
    export CCACHE_DIR=${XDG_CACHE_HOME:-$HOME/.cache}/tarveth/ccache
fi

windows_program=
if command -v wineserver >/dev/null; then
    windows_program=$PWD/build/windows-tests/bin/tarveth.exe
elif [ "${CI-}" = true ]; then
    echo "Wine is missing, and with it the tests of the Windows programs." >&2
    exit 1
else
    echo "Skipped, since Wine is missing: the tests of the Windows programs"
fi

echo "== Formatting and small checks"
tools/check-format
tools/check-rooms

echo "== Release: build, lint"
cmake --preset release "-DTARVETH_WINDOWS_PROGRAM=$windows_program" >/dev/null
cmake --build --preset release
tools/check-headers build/release
tools/check-lint build/release

if [ -n "$windows_program" ]; then
    echo "== Windows: build, test under Wine"
    TARVETH_WX=$(tools/build-wx-windows)
    export TARVETH_WX
    cmake --preset windows-tests >/dev/null
    cmake --build --preset windows-tests
    ctest --preset windows-tests
fi

echo "== Release: test"
ctest --preset release

echo "== Sanitizers: build, test"
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize
ctest --preset sanitize
