#!/usr/bin/env bash
# Installs what is missing, builds the programs and runs their tests, without a screen. More with --all; see --help.
set -euo pipefail
cd "$(dirname "$0")"
source tools/dependencies.sh

ALL_PARTS=(native lint headers benches windows sanitize)
# where the preset windows-tests puts it
WINDOWS_PROGRAM=$PWD/build/windows-tests/bin/tarveth.exe

usage() {
    cat <<'END'
Usage: ./test.sh [--all | PART...]

Installs what is missing on Debian and its relatives, builds and tests. Without arguments: the part native.
  --all      every part, in this order:
  native     the game, the lobby, their tools and the manual, and all their tests, on a screen of their own
  lint       clang-format, the rooms and clang-tidy
  headers    every header compiles by itself
  benches    the benches compile; docs/performance.md says how to run them
  windows    the Windows programs, their packages and their tests, under Wine
  sanitize   the tests of the core, the sockets and the lobby under ASan and UBSan
and one that --all leaves out, since it takes long and makes new systems in folders of their own:
  packages   the packages for Debian and for other Linux systems, checked and tried there; of the last commit
  --help     these lines
END
}

# say TEXT: a heading, with the time since the start.
say() {
    printf '\n== %s (after %d min %02d s)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

test_native() {
    need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
    say "Native: build"
    cmake --preset release -DTARVETH_BENCHES=OFF -DTARVETH_WINDOWS_PROGRAM= >/dev/null
    cmake --build --preset release
    say "Native: test"
    ctest --preset release
}

# How each source is compiled, and the sources that are generated.
prepare_sources() {
    cmake --preset lint >/dev/null
    cmake --build build/lint --target tarveth_pictures >/dev/null
}

test_lint() {
    need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${LINT_PACKAGES[@]}"
    say "Lint: formatting and rooms"
    tools/check-format
    tools/check-rooms
    say "Lint: clang-tidy"
    prepare_sources
    tools/check-lint build/lint
}

test_headers() {
    need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${LINT_PACKAGES[@]}"
    say "Headers: compile by themselves"
    prepare_sources
    tools/check-headers build/lint
}

test_benches() {
    need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" "${TEST_PACKAGES[@]}" libbenchmark-dev
    say "Benches: build"
    cmake --preset release >/dev/null
    cmake --build --preset release
}

test_windows() {
    need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${WINDOWS_PACKAGES[@]}" googletest
    if ! command -v wineserver >/dev/null; then
        echo "The part windows needs Wine, and it is not there." >&2
        return 1
    fi
    say "Windows: the toolkit and the manual"
    TARVETH_WX=$(tools/build-wx-windows)
    export TARVETH_WX
    cmake --preset release -DTARVETH_BENCHES=OFF "-DTARVETH_WINDOWS_PROGRAM=$WINDOWS_PROGRAM" >/dev/null
    cmake --build build/release --target tarveth_help
    say "Windows: build"
    cmake --preset windows-tests >/dev/null
    cmake --build --preset windows-tests
    say "Windows: test of the core and the lobby"
    ctest --preset windows-tests
    say "Windows: test of the programs from outside"
    cmake --build build/release --target wine_tests
    ctest --preset release --label-regex '^wine$'
}

test_sanitize() {
    need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
    say "Sanitizers: build"
    cmake --preset sanitize >/dev/null
    cmake --build --preset sanitize
    say "Sanitizers: test"
    ctest --preset sanitize
}

test_packages() {
    need "${PACKAGE_TEST_PACKAGES[@]}"
    say "Packages: what desktops read"
    desktop-file-validate packaging/linux/tarveth.desktop
    say "Packages: Debian"
    ./package.sh deb
    appstreamcli validate --pedantic --no-net build/packages/staging/tarveth-*/obj-*/packaging/linux/*.metainfo.xml
    local page
    for page in build/packages/staging/tarveth-*/obj-*/bin/*.[68]; do
        [ -z "$(man --warnings -E UTF-8 -l "$page" 2>&1 >/dev/null)" ]
    done
    lintian --pedantic --fail-on error,warning,pedantic build/packages/tarveth_*.changes
    tests/packaging/debian-chroot build/packages
    say "Packages: other Linux systems"
    ./package.sh portable
    tests/packaging/portable-chroot build/packages/tarveth-*-linux-"$(uname -m)".tar.xz
}

parts=()
for argument in "$@"; do
    case $argument in
    --all) parts+=("${ALL_PARTS[@]}") ;;
    --help | -h)
        usage
        exit
        ;;
    *)
        if ! declare -F "test_$argument" >/dev/null; then
            echo "test.sh has no part called \"$argument\"; its parts are: ${ALL_PARTS[*]} packages. See ./test.sh --help." >&2
            exit 2
        fi
        parts+=("$argument")
        ;;
    esac
done
[ ${#parts[@]} -gt 0 ] || parts=(native)

# On a terminal the tests report on one line, and those that fail on lines of their own.
export CTEST_PROGRESS_OUTPUT=1
# Where ccache is installed, what was compiled before comes from a cache outside the tree, also for another clone.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
    export CCACHE_DIR=${XDG_CACHE_HOME:-$HOME/.cache}/tarveth/ccache
fi

part=
trap '[ $? -eq 0 ] || [ -z "$part" ] || say "The part $part has failed" >&2' EXIT
for part in "${parts[@]}"; do
    "test_$part"
done
say "All is well: ${parts[*]}"
