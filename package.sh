#!/usr/bin/env bash
# Builds packages from the last commit into build/packages; see --help.
set -euo pipefail
cd "$(dirname "$0")"
source tools/dependencies.sh

usage() {
    cat <<'END'
Usage: ./package.sh deb | portable | windows | source

Installs what is missing on Debian and its relatives, and builds from the last commit into build/packages:
  deb        packages for Debian 12: tarveth and tarveth-lobby, with their debug symbols, and their source package
  portable   an archive for other Linux systems with GTK 3, with the libraries that it needs beside it, and one with
             the debug symbols
  windows    a zip and an installer for Windows, as ./windows.sh does
  source     the archive of the sources
The times in a package are that of the commit.
END
}

VERSION=$(sed -n 's/^project(Tarveth VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
OUT=$PWD/build/packages
STAGING=$OUT/staging
TREE=$STAGING/tarveth-$VERSION

# Everything that writes a time into a package takes this one.
prepare() {
    if ! SOURCE_DATE_EPOCH=$(git log -1 --format=%ct 2>/dev/null); then
        echo "package.sh builds from a commit, and this folder is no git repository." >&2
        exit 1
    fi
    export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C.UTF-8 DEB_BUILD_MAINT_OPTIONS=hardening=+all
    [ -z "$(git status --porcelain --untracked-files=no)" ] ||
        echo "Some files are changed and not committed; the package has them as they were committed." >&2
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$STAGING CCACHE_NOHASHDIR=1
        export CCACHE_DIR=${CCACHE_DIR-${XDG_CACHE_HOME:-$HOME/.cache}/tarveth/ccache}
    fi
    mkdir -p "$OUT"
}

# The archive of the sources, and a fresh copy of them in $TREE.
package_source() {
    git archive --format=tar --prefix="tarveth-$VERSION/" HEAD | gzip -9n >"$OUT/tarveth-$VERSION.tar.gz"
    rm -rf "$TREE"
    mkdir -p "$STAGING"
    tar xzf "$OUT/tarveth-$VERSION.tar.gz" -C "$STAGING"
}

# Debian's own record of releases, with the version that CMakeLists.txt states.
write_debian_changelog() {
    cat <<END
tarveth ($VERSION-1) unstable; urgency=medium

  * Release $VERSION; CHANGELOG.md tells what is new.

 -- $(sed -n 's/^Maintainer: //p' packaging/debian/control)  $(date -u -R -d "@$SOURCE_DATE_EPOCH")
END
}

package_deb() {
    need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" "${DEB_PACKAGES[@]}"
    package_source
    cp "$OUT/tarveth-$VERSION.tar.gz" "$STAGING/tarveth_$VERSION.orig.tar.gz"
    cp -r "$TREE/packaging/debian" "$TREE/debian"
    write_debian_changelog >"$TREE/debian/changelog"
    (cd "$TREE" && dpkg-buildpackage -us -uc)
    find "$STAGING" -maxdepth 1 -type f -exec mv -t "$OUT" {} +
    echo "For Debian 12: $(echo "$OUT"/tarveth*_"$VERSION"-1_*.deb)"
}

# strip_apart FOLDER SYMBOLS: takes the debug symbols of the programs in FOLDER into files of their own in SYMBOLS.
strip_apart() {
    local program
    mkdir -p "$2"
    for program in "$1"/tarveth*; do
        file -b "$program" | grep -q '^ELF' || continue
        objcopy --only-keep-debug --compress-debug-sections "$program" "$2/$(basename "$program").debug"
        (cd "$2" && objcopy --strip-unneeded --add-gnu-debuglink="$(basename "$program").debug" "$OLDPWD/$program")
    done
}

# archive FOLDER: packs a folder of $STAGING, the same bytes each time.
archive() {
    tar c -C "$STAGING" --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner "$1" |
        xz -T1 >"$OUT/$1.tar.xz"
}

package_portable() {
    need "${BUILD_PACKAGES[@]}" "${LOBBY_PACKAGES[@]}" "${PORTABLE_PACKAGES[@]}"
    package_source
    local name
    name=tarveth-$VERSION-linux-$(uname -m)
    local stage=$STAGING/stage folder=$STAGING/$name
    rm -rf "$stage" "$folder" "$folder-debug" "$STAGING/build"
    # The libraries' own libraries are found too where the program says where, in the older of the two ways.
    (cd "$TREE" && eval "$(dpkg-buildflags --export=sh)" && export CXXFLAGS="$CXXFLAGS $CPPFLAGS" &&
        cmake -G Ninja -S . -B "$STAGING/build" -DCMAKE_BUILD_TYPE=Release -DTARVETH_TESTS=OFF \
            "-DCMAKE_INSTALL_RPATH=\$ORIGIN/lib" "-DCMAKE_EXE_LINKER_FLAGS=$LDFLAGS -Wl,--disable-new-dtags" \
            -DCMAKE_INSTALL_LIBDIR=lib >/dev/null)
    cmake --build "$STAGING/build"
    cmake --install "$STAGING/build" --prefix "$stage" >/dev/null
    # One folder, from which everything is started.
    mv "$stage/lib/tarveth" "$folder"
    cp "$stage"/bin/tarveth-* LICENSE packaging/portable/README packaging/lobby/tarveth-lobby.conf "$folder"
    cp -r "$stage/share/man" "$folder/man"
    (cd "$STAGING" && strip_apart "$name" "$name-debug")
    packaging/portable/take-libraries "$folder"
    archive "$name"
    archive "$name-debug"
    echo "For other Linux systems: $OUT/$name.tar.xz"
}

package_windows() {
    ./windows.sh
    cp build/windows/tarveth-"$VERSION"-windows.zip build/windows/tarveth-"$VERSION"-setup.exe "$OUT"
}

case ${1-} in
deb | portable | windows | source)
    [ $# -eq 1 ] || { usage >&2; exit 2; }
    prepare
    "package_$1"
    ;;
--help | -h) usage ;;
*)
    usage >&2
    exit 2
    ;;
esac
