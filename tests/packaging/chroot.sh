# Sourced by the tests of packages: runs a script in a new Debian that is gone afterwards.
# shellcheck shell=bash

# The machine's own package sources for another release of Debian. Its updates for security, which are elsewhere, are
# left out.
package_sources() {
    local file
    for file in /etc/apt/sources.list.d/*.sources; do
        [ ! -f "$file" ] || awk -v release="$1" 'BEGIN { RS = ""; FS = OFS = "\n" }
            /Suites: [a-z]+-security/ { next }
            { for (i = 1; i <= NF; ++i) { if ($i ~ /^#/) { continue }
                  sub(/^Suites:.*/, "Suites: " release, $i); sub(/^Components:.*/, "Components: main", $i); print $i }
              print "" }' "$file"
    done
    [ ! -s /etc/apt/sources.list ] ||
        sed -n "/-security/d; s/^deb \(\[[^]]*\] \)\?\([^ ]*\) .*/deb \1\2 $1 main/p" /etc/apt/sources.list | sort -u
}

# in_new_debian RELEASE PACKAGES FILES SCRIPT: makes a Debian of that release with the packages (commas between them),
# puts the files into its folder /given, and runs the script there as root. Nothing of it is left.
in_new_debian() {
    local release=$1 packages=$2 files=$3 script=$4 work
    work=$(mktemp -d)
    package_sources "$release" >"$work/mirror.list"
    grep -q '^Types:' "$work/mirror.list" && mv "$work/mirror.list" "$work/mirror.sources"
    mkdir "$work/given"
    # shellcheck disable=SC2086 # several files
    cp $files "$script" "$work/given"
    local status=0
    mmdebstrap --quiet --mode=root --variant=apt --include="$packages" --format=null \
        --customize-hook="copy-in $work/given /" \
        --customize-hook="chroot \"\$1\" sh -eu /given/$(basename "$script")" \
        "$release" /dev/null "$work"/mirror.* || status=$?
    rm -rf "$work"
    return $status
}
