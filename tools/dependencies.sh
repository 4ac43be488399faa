# Sourced by run.sh and test.sh: makes sure that packages are there.
# shellcheck shell=bash

# need PACKAGE...: installs those that are missing, on Debian and its relatives; elsewhere says what to install.
need() {
    if ! command -v apt-get >/dev/null 2>&1; then
        echo "This is not a Debian or Ubuntu system, so nothing is installed for you." >&2
        echo "Please install what these Debian packages hold, if it is not there yet:" >&2
        printf '  %s\n' "$@" >&2
        return 0
    fi
    local missing=()
    local package
    for package in "$@"; do
        if ! dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed; then
            missing+=("$package")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return 0
    fi
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null 2>&1; then
            echo "These packages are missing, and there is no sudo to install them with: ${missing[*]}" >&2
            return 1
        fi
        root=(sudo)
    fi
    mkdir -p build
    local log=build/packages.log
    echo "Installing ${#missing[@]} packages and what they need; $log tells how it goes: ${missing[*]}"
    if ! { "${root[@]}" apt-get update -q && "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        cat "$log" >&2
        echo "The packages could not be installed; the package manager's own words are above." >&2
        return 1
    fi
}

# What the game itself is built with.
BUILD_PACKAGES=(g++ cmake ninja-build pkg-config libwxgtk3.2-dev libgtk-3-dev halibut libpng-dev libsdl2-dev
    libasio-dev)

# What the lobby server is built with.
LOBBY_PACKAGES=(libasio-dev libcli11-dev libspdlog-dev)

# What programs for Windows are built with and tried on, and what makes the manual for them.
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix g++ cmake ninja-build pkg-config halibut libpng-dev wine wine64 nsis zip)

# The window tests' desktop without a screen, and their hands and eyes.
WINDOW_TEST_PACKAGES=(xvfb openbox dbus-daemon at-spi2-core fonts-dejavu-core
    libatspi2.0-dev libxtst-dev libxdamage-dev)

# What the tests are built with and run on.
TEST_PACKAGES=(git python3 libgtest-dev locales "${WINDOW_TEST_PACKAGES[@]}")

# What looks at the sources; the benches are looked at too.
LINT_PACKAGES=(git python3 clang-format-14 clang-tidy-14 libbenchmark-dev)

FUZZ_PACKAGES=(clang libclang-rt-14-dev cmake ninja-build libasio-dev)

# What makes Debian packages, and what looks at them.
DEB_PACKAGES=(debhelper dpkg-dev fakeroot zip)
PACKAGE_TEST_PACKAGES=(lintian mmdebstrap appstream desktop-file-utils bash-completion man-db)

# What makes the archive for other Linux systems.
PORTABLE_PACKAGES=(binutils dpkg-dev file xz-utils zip)
